# cmake -D ROOT=<tree> -D LAYERS=<layers.txt> -P CheckLayers.cmake
#
# Reads every #include of the rooms and fails, naming file and line, on one that the list of layers
# does not allow, on one that is not written from the root of the tree, and on a header from outside
# the standard library in a room that needs nothing else. A list with a cycle is refused too.
cmake_minimum_required(VERSION 3.25)

set(standardHeaders
    # language support, concepts, diagnostics, memory, utilities
    cfloat climits compare concepts coroutine csetjmp csignal cstdarg cstddef cstdint cstdlib
    exception initializer_list limits new source_location typeinfo version
    cassert cerrno stdexcept system_error
    memory memory_resource scoped_allocator
    any bit bitset charconv chrono ctime execution format functional optional ratio tuple
    type_traits typeindex utility variant
    # text
    cctype clocale codecvt cstring cuchar cwchar cwctype locale regex string string_view
    # containers, iterators, algorithms, numbers
    array deque forward_list list map queue set span stack unordered_map unordered_set vector
    iterator ranges algorithm
    cfenv cmath complex numbers numeric random valarray
    # input and output
    cinttypes cstdio filesystem fstream iomanip ios iosfwd iostream istream ostream sstream
    streambuf strstream syncstream
    # threads
    atomic barrier condition_variable future latch mutex semaphore shared_mutex stop_token thread
)

set(problems "")

# ---- the list ----

set(rooms "")
set(standardOnly "")
file(STRINGS "${LAYERS}" lines REGEX "^[^#]")
foreach(line IN LISTS lines)
    if(line MATCHES "^standard-only:(.*)$")
        string(REGEX MATCHALL "[a-z/]+" standardOnly "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^([a-z/]+) *->(.*)$")
        set(room "${CMAKE_MATCH_1}")
        string(REGEX MATCHALL "[(]?[a-z/]+[)]?" targets "${CMAKE_MATCH_2}")
        list(APPEND rooms "${room}")
        set(reaches_${room} "")
        set(alone_${room} "")
        foreach(target IN LISTS targets)
            if(target MATCHES "^[(](.*)[)]$")
                list(APPEND alone_${room} "${CMAKE_MATCH_1}")
            else()
                list(APPEND reaches_${room} "${target}")
            endif()
        endforeach()
    else()
        message(FATAL_ERROR "${LAYERS}: cannot read \"${line}\"")
    endif()
endforeach()

foreach(room IN LISTS rooms)
    foreach(target IN LISTS reaches_${room} alone_${room})
        if(NOT target IN_LIST rooms)
            string(APPEND problems "${LAYERS}: ${room} -> ${target}: no such room\n")
        endif()
    endforeach()
endforeach()

# Grows each reach until nothing is added; a room that then reaches itself stands on a cycle.
set(grown TRUE)
while(grown)
    set(grown FALSE)
    foreach(room IN LISTS rooms)
        foreach(target IN LISTS reaches_${room})
            foreach(further IN LISTS reaches_${target} alone_${target})
                if(NOT further IN_LIST reaches_${room})
                    list(APPEND reaches_${room} "${further}")
                    set(grown TRUE)
                endif()
            endforeach()
        endforeach()
    endforeach()
endwhile()
foreach(room IN LISTS rooms)
    set(cyclic FALSE)
    foreach(target IN LISTS alone_${room})
        if(target STREQUAL room OR room IN_LIST reaches_${target})
            set(cyclic TRUE)
        endif()
    endforeach()
    if(cyclic OR room IN_LIST reaches_${room})
        string(APPEND problems "${LAYERS}: ${room} is on a cycle\n")
    endif()
endforeach()

# ---- the files ----

function(find_room path result)
    set(best "")
    foreach(room IN LISTS rooms)
        string(FIND "${path}" "${room}/" position)
        if(position EQUAL 0)
            set(best "${room}")
        endif()
    endforeach()
    set(${result} "${best}" PARENT_SCOPE)
endfunction()

function(find_line path text result)
    file(READ "${ROOT}/${path}" content)
    string(FIND "\n${content}\n" "\n${text}\n" position)
    string(SUBSTRING "\n${content}" 0 ${position} before)
    string(REGEX MATCHALL "\n" newlines "${before}")
    list(LENGTH newlines count)
    math(EXPR count "${count} + 1")
    set(${result} ${count} PARENT_SCOPE)
endfunction()

macro(add_problem line text)
    find_line("${path}" "${line}" lineNumber)
    string(APPEND problems "${path}:${lineNumber}: ${text}\n")
endmacro()

set(patterns "")
foreach(top IN ITEMS platform viewdata embedded terminal)
    list(APPEND patterns "${ROOT}/${top}/*.h" "${ROOT}/${top}/*.cpp")
endforeach()
file(GLOB_RECURSE paths RELATIVE "${ROOT}" ${patterns})
list(LENGTH paths fileCount)
if(fileCount EQUAL 0)
    message(FATAL_ERROR "${ROOT}: no sources found")
endif()

foreach(path IN LISTS paths)
    find_room("${path}" room)
    if(room STREQUAL "")
        string(APPEND problems "${path}:1: belongs to no room\n")
        continue()
    endif()

    set(onlyStandard FALSE)
    foreach(folder IN LISTS standardOnly)
        string(FIND "${path}" "${folder}/" position)
        if(position EQUAL 0)
            set(onlyStandard TRUE)
        endif()
    endforeach()

    file(STRINGS "${ROOT}/${path}" includes REGEX "^[ \t]*#[ \t]*include" ENCODING UTF-8)
    foreach(line IN LISTS includes)
        if(line MATCHES "include[ \t]*\"([^\"]*)\"")
            set(included "${CMAKE_MATCH_1}")
            find_room("${included}" includedRoom)
            if(includedRoom STREQUAL "" OR NOT EXISTS "${ROOT}/${included}")
                add_problem("${line}" "\"${included}\" is no file from the root of the tree")
            elseif(
                NOT includedRoom STREQUAL room
                AND NOT includedRoom IN_LIST reaches_${room}
                AND NOT includedRoom IN_LIST alone_${room}
            )
                add_problem("${line}" "${room} may not include ${includedRoom}")
            endif()
        elseif(line MATCHES "include[ \t]*<([^>]*)>")
            set(included "${CMAKE_MATCH_1}")
            if(onlyStandard AND NOT included IN_LIST standardHeaders)
                add_problem("${line}" "<${included}> is not of the standard library")
            endif()
        else()
            add_problem("${line}" "an include that cannot be read")
        endif()
    endforeach()
endforeach()

if(problems)
    message(NOTICE "${problems}")
    message(FATAL_ERROR "The layers are not kept.")
endif()
message(STATUS "${fileCount} files keep the layers")
