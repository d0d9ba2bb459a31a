# cmake -D CHECK=<CheckLayers.cmake> -P ExpectRefusals.cmake
# Feeds the check a small bad tree and a cyclic list: each fault is named, and nothing else.
cmake_minimum_required(VERSION 3.25)

set(here "${CMAKE_CURRENT_LIST_DIR}")

function(expect_refusals layers)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -D "ROOT=${here}/bad" -D "LAYERS=${layers}" -P "${CHECK}"
        RESULT_VARIABLE code
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output
    )
    if(code EQUAL 0)
        message(SEND_ERROR "${layers}: the bad tree was let through")
    endif()
    foreach(expected IN LISTS ARGN)
        string(FIND "${output}" "${expected}" position)
        if(position EQUAL -1)
            message(SEND_ERROR "${layers}: no word of \"${expected}\" in:\n${output}")
        endif()
    endforeach()
    string(REGEX MATCHALL "[^\n]*(:[0-9]+: )[^\n]*" reported "${output}")
    list(FILTER reported EXCLUDE REGEX "CMake Error")
    list(LENGTH reported reportedCount)
    list(LENGTH ARGN expectedCount)
    if(NOT reportedCount EQUAL expectedCount)
        message(SEND_ERROR "${layers}: ${reportedCount} faults, not ${expectedCount}, in:\n${output}")
    endif()
endfunction()

expect_refusals(
    "${here}/../../cmake/layers.txt"
    "platform/rtl/ThirdParty.h:3: <xlsxwriter.h> is not of the standard library"
    "platform/rtl/Upward.h:3: platform/rtl may not include platform/widgets"
    "platform/rtl/FromItsFolder.h:2: \"ThirdParty.h\" is no file from the root of the tree"
    "platform/rtl/Missing.cpp:2: \"platform/rtl/Missing.h\" is no file from the root of the tree"
    "viewdata/services/Backward.h:2: viewdata/services may not include viewdata/market"
    "viewdata/account/Sideways.cpp:1: viewdata/account may not include viewdata/market"
    "viewdata/stray/Homeless.h:1: belongs to no room"
)

# The same files under a cyclic list; services stand beside the cycle, not on it.
execute_process(
    COMMAND
        ${CMAKE_COMMAND} -D "ROOT=${here}/bad" -D "LAYERS=${here}/cyclic.txt" -P "${CHECK}"
    RESULT_VARIABLE code
    ERROR_VARIABLE output
)
foreach(room IN ITEMS platform/rtl platform/widgets viewdata/market)
    if(code EQUAL 0 OR NOT output MATCHES "${room} is on a cycle")
        message(SEND_ERROR "cyclic.txt: the cycle through ${room} was let through")
    endif()
endforeach()
if(output MATCHES "viewdata/services is on a cycle")
    message(SEND_ERROR "cyclic.txt: viewdata/services is not on the cycle")
endif()
