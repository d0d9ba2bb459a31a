# What `cmake --install` gives: headers, libraries, data, programs, a CMake package and entries for
# pkg-config.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# The folders whose headers are public, and the headers themselves, from the root of the tree.
# Headers of a program are its own.
function(quorin_public_headers result)
    set(patterns)
    foreach(room IN ITEMS platform viewdata embedded)
        list(APPEND patterns "${PROJECT_SOURCE_DIR}/${room}/*.h")
    endforeach()
    file(GLOB_RECURSE headers RELATIVE "${PROJECT_SOURCE_DIR}" CONFIGURE_DEPENDS ${patterns})
    list(FILTER headers EXCLUDE REGEX "/program/")
    set(${result} ${headers} PARENT_SCOPE)
endfunction()

# Includes are written from the root of the tree, so the folders stay as they are, under a folder of
# their own.
set(quorinHeaders "${CMAKE_INSTALL_INCLUDEDIR}/quorin")
set(quorinData "${CMAKE_INSTALL_DATADIR}/quorin")
set(quorinPackage "${CMAKE_INSTALL_LIBDIR}/cmake/QuorinViewData")

quorin_public_headers(headers)
foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/${header}" DESTINATION "${quorinHeaders}/${folder}")
endforeach()

foreach(folder IN ITEMS accounts language recordings scripts universe)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/data/${folder}" DESTINATION "${quorinData}")
endforeach()

# A set per component, so that a program that takes one needs nothing of the others.
foreach(component IN ITEMS platform viewdata export embedded kit)
    set(target quorin_${component})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${component})
    target_include_directories(${target} INTERFACE "$<INSTALL_INTERFACE:${quorinHeaders}>")
    install(
        TARGETS ${target}
        EXPORT QuorinViewData-${component}
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    )
    install(
        EXPORT QuorinViewData-${component}
        NAMESPACE quorin::
        DESTINATION "${quorinPackage}"
    )
endforeach()

foreach(program IN ITEMS quorin-console quorin-terminal)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
    endif()
endforeach()

if(TARGET quorin::xlsxwriter)
    set(QUORIN_HAS_XLSX TRUE)
    set(exportLibraries "-lxlsxwriter")
else()
    set(QUORIN_HAS_XLSX FALSE)
    set(exportLibraries "")
endif()
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/QuorinViewDataConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/QuorinViewDataConfig.cmake"
    INSTALL_DESTINATION "${quorinPackage}"
    PATH_VARS quorinData
)
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/QuorinViewDataConfigVersion.cmake" COMPATIBILITY SameMinorVersion
)
install(
    FILES
        "${PROJECT_BINARY_DIR}/QuorinViewDataConfig.cmake"
        "${PROJECT_BINARY_DIR}/QuorinViewDataConfigVersion.cmake"
        "${PROJECT_SOURCE_DIR}/cmake/QuorinDependencies.cmake"
    DESTINATION "${quorinPackage}"
)

# quorin_pkgconfig(<name> <description> <requires> <libs>): a prefix that is moved is found again,
# since its place is told from that of the entry.
function(quorin_pkgconfig name description requires libs)
    set(folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    cmake_path(
        RELATIVE_PATH CMAKE_INSTALL_PREFIX
        BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}/${folder}"
        OUTPUT_VARIABLE prefixFromEntry
    )
    configure_file(
        "${PROJECT_SOURCE_DIR}/cmake/quorin.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY
    )
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${folder}")
endfunction()

quorin_pkgconfig(
    quorin-viewdata "View data of a trading terminal" "" "-lquorin_viewdata -lquorin_platform"
)
quorin_pkgconfig(
    quorin-export "Views as CSV, XLS and XLSX files" quorin-viewdata
    "-lquorin_export -lquorin_platform ${exportLibraries}"
)
quorin_pkgconfig(
    quorin-embedded "Every service of quorin-viewdata in memory" quorin-viewdata
    "-lquorin_embedded -lquorin_viewdata -lquorin_platform -lINIReader -linih"
)
quorin_pkgconfig(
    quorin-kit "Checks of any service of quorin-viewdata against its contract" quorin-viewdata
    "-lquorin_kit -lquorin_viewdata -lquorin_platform"
)
