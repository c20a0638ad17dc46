# Runs PROGRAM, through EMULATOR if there is one, and compares what it prints with the file EXPECTED.
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE result)
string(REPLACE "\r" "" printed "${printed}")
file(READ "${EXPECTED}" expected)
if(NOT result EQUAL 0 OR NOT printed STREQUAL expected)
    message(FATAL_ERROR "${PROGRAM} ended with ${result} and printed:\n${printed}\nexpected:\n${expected}")
endif()
