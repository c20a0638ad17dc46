# Runs a program and compares what it prints, its output followed by its error output, with a file:
#   cmake -DCOMMAND=... -DEXPECTED=FILE -DSTATUS=N -DACTUAL=FILE -P compare-output.cmake
# COMMAND is a list. What was printed is left in ACTUAL.txt and compared with EXPECTED.txt; line ends may be those of any
# system, and ACTUAL stands in it as @OUT@. An argument that ends with ACTUAL.NAME names a file that the program writes, the bytes
# of EXPECTED.NAME, or does not leave there when there is no such file.
cmake_minimum_required(VERSION 3.25)

set(outputs "")
foreach(argument IN LISTS COMMAND)
    string(FIND "${argument}" "${ACTUAL}." place)
    if(NOT place EQUAL -1)
        string(SUBSTRING "${argument}" ${place} -1 output)
        list(APPEND outputs "${output}")
        file(WRITE "${output}" "left by an earlier run")
    endif()
endforeach()

# Into files: the services that Wine starts with a program keep a pipe open long after it.
file(MAKE_DIRECTORY "${ACTUAL}")
execute_process(COMMAND ${COMMAND} OUTPUT_FILE "${ACTUAL}/out" ERROR_FILE "${ACTUAL}/errors" RESULT_VARIABLE status)
file(READ "${ACTUAL}/out" output)
file(READ "${ACTUAL}/errors" errors)
string(REPLACE "\r" "" actual "${output}${errors}")
string(REPLACE "${ACTUAL}" "@OUT@" actual "${actual}")
file(WRITE "${ACTUAL}.txt" "${actual}")
file(READ "${EXPECTED}.txt" expected)

if(NOT "${status}" STREQUAL "${STATUS}")
    message(SEND_ERROR "status ${status} instead of ${STATUS}:\n${errors}")
endif()
if(NOT "${actual}" STREQUAL "${expected}")
    execute_process(COMMAND diff -u "${EXPECTED}.txt" "${ACTUAL}.txt" OUTPUT_VARIABLE difference ERROR_QUIET)
    message(SEND_ERROR "${ACTUAL}.txt is not ${EXPECTED}.txt:\n${difference}")
endif()
foreach(output IN LISTS outputs)
    string(REPLACE "${ACTUAL}" "${EXPECTED}" wanted "${output}")
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${output}" "${wanted}" RESULT_VARIABLE differs ERROR_QUIET)
    if(differs AND (EXISTS "${output}" OR EXISTS "${wanted}"))
        message(SEND_ERROR "${output} is not ${wanted}")
    endif()
endforeach()
