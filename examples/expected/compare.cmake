# Runs a program and compares what it prints, its output followed by its error output, with a file:
#   cmake -DCOMMAND=... -DEXPECTED=FILE -DSTATUS=N -DACTUAL=FILE -P compare.cmake
# COMMAND is a list. What was printed is left in ACTUAL. Line ends may be those of any system.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
string(REPLACE "\r" "" actual "${output}${errors}")
file(WRITE "${ACTUAL}" "${actual}")
file(READ "${EXPECTED}" expected)

if(NOT "${status}" STREQUAL "${STATUS}")
    message(SEND_ERROR "status ${status} instead of ${STATUS}:\n${errors}")
endif()
if(NOT "${actual}" STREQUAL "${expected}")
    execute_process(COMMAND diff -u "${EXPECTED}" "${ACTUAL}" OUTPUT_VARIABLE difference ERROR_QUIET)
    message(SEND_ERROR "${ACTUAL} is not ${EXPECTED}:\n${difference}")
endif()
