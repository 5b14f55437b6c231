# Fails if a program does not print exactly the contents of a file, or exits with an error.
# Run with -D PROGRAM=... -D EXPECTED=... -D TEMPORARY=..., a folder for the program's own files, -P
set(ENV{TMPDIR} ${TEMPORARY})
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE output RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} printed\n${output}\nand not ${EXPECTED}:\n${expected}")
endif()
