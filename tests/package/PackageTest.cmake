# One step of the package's test, see CMakeLists.txt: fails with what it saw instead.
cmake_minimum_required(VERSION 3.25)

set(prefix "${SCRATCH}/prefix")
set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=${SANITIZE}") # what the libraries need of a program that links them
endif()

# run(<variable of the output> <command>...): fails with the output when the command does.
function(run result)
    execute_process(
        COMMAND ${ARGN}
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output
        RESULT_VARIABLE status
    )
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${ARGN}\nended with ${status}:\n${output}")
    endif()
    set(${result} "${output}" PARENT_SCOPE)
endfunction()

function(expect text part)
    string(FIND "${text}" "${part}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "\"${part}\" is not in:\n${text}")
    endif()
endfunction()

# configure(<source> <folder> <option>...): the command, into `command`.
macro(set_configure source folder)
    set(command
        "${CMAKE_COMMAND}" -S "${source}" -B "${folder}" -G "${GENERATOR}"
        "-DCMAKE_PREFIX_PATH=${prefix}"
        "-DCMAKE_CXX_COMPILER=${COMPILER}"
        "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}"
        "-DCMAKE_BUILD_TYPE=${CONFIG}"
        "-DCMAKE_CXX_FLAGS=${flags}"
        ${ARGN}
    )
endmacro()

function(expect_refusal part)
    execute_process(
        COMMAND ${command} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status
    )
    if(status EQUAL 0)
        message(FATAL_ERROR "not refused: ${command}")
    endif()
    expect("${output}" "${part}")
endfunction()

# Projects are copied out of the tree, so that none of its headers is found by accident.
function(copy_project from name)
    file(REMOVE_RECURSE "${SCRATCH}/${name}")
    file(COPY "${SOURCE}/${from}/" DESTINATION "${SCRATCH}/${name}")
endfunction()

function(install)
    file(REMOVE_RECURSE "${SCRATCH}")
    run(output "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}")

    # The headers that are compiled alone are those that are there.
    file(GLOB_RECURSE installed RELATIVE "${prefix}/include/quorin" "${prefix}/include/quorin/*")
    set(compiledFolder "${BUILD}/tests/headers")
    if(EXISTS "${compiledFolder}")
        foreach(header IN LISTS installed)
            if(NOT EXISTS "${compiledFolder}/${header}.cpp")
                message(FATAL_ERROR "${header} is installed and not compiled alone")
            endif()
        endforeach()
    endif()
    list(LENGTH installed count)
    if(count LESS 100)
        message(FATAL_ERROR "only ${count} headers are installed")
    endif()

    # A package that is moved must work; nothing of it may name the build or the sources.
    file(GLOB_RECURSE texts "${prefix}/${LIBDIR}/*.cmake" "${prefix}/${LIBDIR}/*.pc")
    foreach(path IN LISTS texts)
        file(READ "${path}" content)
        foreach(folder IN ITEMS "${BUILD}" "${SOURCE}" "${prefix}")
            string(FIND "${content}" "${folder}" place)
            if(NOT place EQUAL -1)
                message(FATAL_ERROR "${path} names ${folder}")
            endif()
        endforeach()
    endforeach()
endfunction()

function(components)
    copy_project(tests/package/components components)
    set(build "${SCRATCH}/components/build")
    # Two components need nothing but the standard library: the others' is not even looked for.
    set_configure("${SCRATCH}/components" "${build}" -DWANTED=platform,viewdata)
    run(output ${command})
    expect("${output}" "made: platform viewdata;")
    file(READ "${build}/CMakeCache.txt" cache)
    if(cache MATCHES "xlsxwriter|INIReader")
        message(FATAL_ERROR "platform and viewdata looked for: ${CMAKE_MATCH_0}")
    endif()

    set_configure("${SCRATCH}/components" "${build}-embedded" -DWANTED=embedded)
    run(output ${command})
    expect("${output}" "made: platform viewdata embedded;")

    set_configure("${SCRATCH}/components" "${build}-unknown" -DWANTED=charts)
    expect_refusal("there is no component charts, but platform")
    set_configure(
        "${SCRATCH}/components" "${build}-other" -DWANTED=viewdata -DWANTED_VERSION=99.0
    )
    expect_refusal("${VERSION}")
endfunction()

function(consumer)
    copy_project(tests/package/consumer consumer)
    set(build "${SCRATCH}/consumer/build")
    set_configure("${SCRATCH}/consumer" "${build}")
    run(output ${command})
    run(output "${CMAKE_COMMAND}" --build "${build}")
    run(output "${build}/consumer" "${SCRATCH}/rows.csv")
    expect("${output}" "1 row")
    file(READ "${SCRATCH}/rows.csv" rows)
    expect("${rows}" "00005")
endfunction()

function(pkgconfig)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
    find_program(pkgConfig NAMES pkg-config pkgconf REQUIRED)
    run(version "${pkgConfig}" --modversion quorin-viewdata)
    expect("${version}" "${VERSION}")
    set(entries quorin-embedded quorin-export quorin-kit quorin-viewdata)
    run(options "${pkgConfig}" --cflags --libs ${entries})
    string(STRIP "${options}" options)
    separate_arguments(options UNIX_COMMAND "${options}")
    run(
        output "${COMPILER}" -std=c++20 ${flags} "${SOURCE}/tests/package/consumer/main.cpp"
        -o "${SCRATCH}/consumer-of-pkg-config" ${options}
    )
    run(output "${SCRATCH}/consumer-of-pkg-config" "${SCRATCH}/rows.csv")
    expect("${output}" "1 row")
endfunction()

# The examples alone against the package; their own tests judge what they print.
function(examples)
    copy_project(examples examples)
    set(build "${SCRATCH}/examples/build")
    set_configure("${SCRATCH}/examples" "${build}")
    run(output ${command})
    run(output "${CMAKE_COMMAND}" --build "${build}")
    run(
        output "${CMAKE_CTEST_COMMAND}" --test-dir "${build}" --no-tests=error --output-on-failure
    )
endfunction()

# Programs find the data beside them, and not those of the tree: one name differs.
function(programs)
    set(moved "${SCRATCH}/moved")
    file(REMOVE_RECURSE "${moved}")
    file(COPY "${prefix}/" DESTINATION "${moved}")
    set(symbols "${moved}/share/quorin/universe/symbols.csv")
    file(READ "${symbols}" content)
    string(REPLACE "HSBC Holdings" "Moved Bank" content "${content}")
    file(WRITE "${symbols}" "${content}")
    run(output "${moved}/bin/quorin-console" --text --frames 1)
    expect("${output}" "Moved Bank")
    set(ENV{QUORIN_DATA} "${SOURCE}/data")
    run(output "${moved}/bin/quorin-console" --text --frames 1)
    expect("${output}" "HSBC Holdings")

    set(ENV{QT_QPA_PLATFORM} offscreen)
    foreach(program IN ITEMS quorin-console quorin-terminal)
        if(EXISTS "${moved}/bin/${program}")
            run(output "${moved}/bin/${program}" --version)
            if(NOT output STREQUAL "${program} ${VERSION}\n")
                message(FATAL_ERROR "${program} --version says ${output}")
            endif()
        endif()
    endforeach()
endfunction()

cmake_language(CALL "${STEP}")
