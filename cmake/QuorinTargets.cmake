# How rooms become targets. Sources are globbed, so that a new file needs no entry anywhere.

# Links the ones of the named targets that exist: a room without files has no target.
function(quorin_link_existing target scope)
    foreach(other IN LISTS ARGN)
        if(TARGET ${other})
            target_link_libraries(${target} ${scope} ${other})
        endif()
    endforeach()
endfunction()

# quorin_library(<target> [ALIAS <name>] FOLDERS <folder>... [EXCEPT <folder>...] [LINKS <target>...])
# A static library of everything under the folders but those excepted; without any .cpp an interface library; without
# any file at all nothing.
function(quorin_library target)
    cmake_parse_arguments(ARG "" "ALIAS" "FOLDERS;EXCEPT;LINKS" ${ARGN})
    set(sources)
    set(headers)
    foreach(folder IN LISTS ARG_FOLDERS)
        set(here "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
        file(GLOB_RECURSE folderSources CONFIGURE_DEPENDS "${here}/*.cpp")
        file(GLOB_RECURSE folderHeaders CONFIGURE_DEPENDS "${here}/*.h")
        list(APPEND sources ${folderSources})
        list(APPEND headers ${folderHeaders})
    endforeach()
    foreach(folder IN LISTS ARG_EXCEPT)
        foreach(file IN LISTS sources headers)
            cmake_path(SET here NORMALIZE "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
            cmake_path(IS_PREFIX here "${file}" NORMALIZE isExcepted)
            if(isExcepted)
                list(REMOVE_ITEM sources "${file}")
                list(REMOVE_ITEM headers "${file}")
            endif()
        endforeach()
    endforeach()

    if(sources)
        add_library(${target} STATIC ${sources} ${headers})
        # Flags are of the build and not of the installed library.
        target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quorin_flags>)
        set(scope PUBLIC)
    elseif(headers)
        add_library(${target} INTERFACE)
        set(scope INTERFACE)
    else()
        return()
    endif()
    target_include_directories(${target} ${scope} "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>")
    target_compile_features(${target} ${scope} cxx_std_20)
    quorin_link_existing(${target} ${scope} ${ARG_LINKS})
    if(ARG_ALIAS)
        add_library(${ARG_ALIAS} ALIAS ${target})
    endif()
endfunction()

# Where the data files of the tree are, for programs and tests; the libraries are told at run time.
function(quorin_define_data_dir target)
    target_compile_definitions(
        ${target} PRIVATE "QUORIN_DATA_DIR=\"${PROJECT_SOURCE_DIR}/data\""
    )
endfunction()

# Where a program that is installed finds them, from its own folder.
function(quorin_define_installed_data_dir target)
    cmake_path(
        RELATIVE_PATH CMAKE_INSTALL_FULL_DATADIR
        BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}"
        OUTPUT_VARIABLE fromProgram
    )
    target_compile_definitions(
        ${target} PRIVATE "QUORIN_INSTALLED_DATA_DIR=\"${fromProgram}/quorin\""
    )
endfunction()

function(quorin_define_version target)
    target_compile_definitions(${target} PRIVATE "QUORIN_VERSION=\"${PROJECT_VERSION}\"")
endfunction()
