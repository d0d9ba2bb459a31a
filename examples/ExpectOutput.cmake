# Runs an example and fails unless it ends well and prints what is expected.
cmake_minimum_required(VERSION 3.25)

if(FILE)
    file(REMOVE "${FILE}")
endif()
set(input)
if(INPUT)
    set(input INPUT_FILE "${INPUT}")
endif()
execute_process(
    COMMAND "${PROGRAM}" ${ARGUMENTS} ${input}
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors
    RESULT_VARIABLE status
)
if(NOT status EQUAL 0 OR NOT output MATCHES "${PRINTS}")
    message(FATAL_ERROR "ended with ${status}, expected \"${PRINTS}\":\n${output}${errors}")
endif()
if(FILE)
    file(READ "${FILE}" content)
    if(NOT content MATCHES "${HOLDS}")
        message(FATAL_ERROR "${FILE}: expected \"${HOLDS}\":\n${content}")
    endif()
endif()
