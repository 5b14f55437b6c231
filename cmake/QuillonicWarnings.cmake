# The warnings for every target of this project. The preset decides whether they stop the build
# (CMAKE_COMPILE_WARNING_AS_ERROR).
function(quillonic_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wcast-align -Wformat=2 -Wundef -Wdouble-promotion -Wextra-semi
    -Wimplicit-fallthrough)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wduplicated-cond -Wduplicated-branches -Wlogical-op)
  endif()
endfunction()
