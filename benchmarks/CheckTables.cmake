# Measures a little, and checks that the tables tell of it and that the page can be renewed from it.

file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")
file(COPY "${DOCS}/benchmarks.md" DESTINATION "${SCRATCH}")
set(figures "${SCRATCH}/figures.json")

execute_process(
    COMMAND "${BENCH}" --quick --filter "LibraryCells|HandWrittenCells" --json "${figures}"
    OUTPUT_VARIABLE tables
    RESULT_VARIABLE result
)
set(cell "numeric cell, raw +100000 cell +[0-9.]+ ns +[0-9.]+ ns +[0-9.]+ +1.50")
set(allocations "allocations per numeric cell +0.000 +0 *\n")
foreach(line IN ITEMS "${cell}" "${allocations}")
    if(NOT result EQUAL 0 OR NOT tables MATCHES "${line}")
        message(FATAL_ERROR "the tables lack '${line}' (${result}):\n${tables}")
    endif()
endforeach()

find_program(python python3)
if(NOT python)
    message(STATUS "no Python, the page is not checked")
    return()
endif()
execute_process(
    COMMAND "${python}" "${CMAKE_CURRENT_LIST_DIR}/plot_growth.py" "${figures}" --docs "${SCRATCH}"
    RESULT_VARIABLE result
)
execute_process(
    COMMAND
        "${python}" -c
        "import sys, xml.dom.minidom as d; sys.exit(len(d.parse(sys.argv[1]).getElementsByTagName('polyline')) != 2)"
        "${SCRATCH}/pictures/bench-cell.svg"
    RESULT_VARIABLE drawing
)
file(STRINGS "${SCRATCH}/benchmarks.md" row REGEX "^. numeric cell, raw . 100,000 . cell . ")
if(NOT result EQUAL 0 OR NOT drawing EQUAL 0 OR NOT row)
    message(FATAL_ERROR "plot_growth.py: ${result}, the picture: ${drawing}, the row: '${row}'")
endif()
