# Fails if the README's example differs from the compiled program.
# Run with -D README=... -D EXAMPLE=... -P
file(READ ${README} readme)
file(READ ${EXAMPLE} example)
string(FIND "${readme}" "```cpp\n${example}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${README} does not hold ${EXAMPLE} as it is")
endif()
