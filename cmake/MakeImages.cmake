# Turns pictures written as text into C++: cmake -D "PICTURES=a.txt;b.txt" -D OUT=file.cpp -P this
#
# A picture is its name on the first line, then one line per colour ("c RRGGBBAA", c standing for a
# pixel; "mask RRGGBB" for a mask colour), an empty line, and 16 lines of 16 pixels.

cmake_minimum_required(VERSION 3.25)

set(side 16)
math(EXPR last "${side} - 1")
set(text
    "// Made from the pictures in viewdata/presentation/images.

#include \"viewdata/presentation/ResourcePictures.h\"

namespace quorin {

static constexpr TResourcePicture Pictures[] = {
"
)
foreach(picture IN LISTS PICTURES)
    file(STRINGS "${picture}" lines)
    list(POP_FRONT lines name)
    set(mask "NoMaskColor")
    set(rows)
    set(colours)
    foreach(line IN LISTS lines)
        if(line MATCHES "^mask ([0-9A-F]+)$")
            set(mask "0x${CMAKE_MATCH_1}u")
        elseif(line MATCHES "^(.) ([0-9A-F][0-9A-F][0-9A-F][0-9A-F][0-9A-F][0-9A-F])([0-9A-F][0-9A-F])$")
            list(APPEND colours "${CMAKE_MATCH_1}")
            set("colour_${CMAKE_MATCH_1}" "0x${CMAKE_MATCH_3}${CMAKE_MATCH_2}u")
        elseif(NOT line STREQUAL "")
            list(APPEND rows "${line}")
        endif()
    endforeach()
    list(LENGTH rows count)
    if(NOT count EQUAL side)
        message(FATAL_ERROR "${picture}: ${count} rows instead of ${side}")
    endif()
    string(APPEND text "{${mask}, {{ // ${name}\n")
    foreach(row IN LISTS rows)
        string(LENGTH "${row}" width)
        if(NOT width EQUAL side)
            message(FATAL_ERROR "${picture}: \"${row}\" has ${width} pixels instead of ${side}")
        endif()
        string(APPEND text "    ")
        foreach(column RANGE ${last})
            string(SUBSTRING "${row}" ${column} 1 pixel)
            if(NOT DEFINED "colour_${pixel}")
                message(FATAL_ERROR "${picture}: there is no colour \"${pixel}\"")
            endif()
            string(APPEND text "${colour_${pixel}}, ")
        endforeach()
        string(APPEND text "\n")
    endforeach()
    string(APPEND text "}}},\n")
    foreach(colour IN LISTS colours)
        unset("colour_${colour}")
    endforeach()
endforeach()
string(
    APPEND
    text
    "};

std::span<const TResourcePicture> ResourcePictures() {
    return Pictures;
}

} // namespace quorin
"
)
file(WRITE "${OUT}" "${text}")
