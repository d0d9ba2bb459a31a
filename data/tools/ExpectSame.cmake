# cmake -D PROGRAM=<program> -D SHIPPED=<file> -D MADE=<scratch file> -P ExpectSame.cmake
# Fails unless the program prints the shipped file, byte for byte.
execute_process(COMMAND "${PROGRAM}" OUTPUT_FILE "${MADE}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND "${CMAKE_COMMAND}" -E compare_files "${MADE}" "${SHIPPED}" RESULT_VARIABLE differs
)
if(differs)
    message(FATAL_ERROR "${SHIPPED} is not what the program makes: compare it with ${MADE}")
endif()
