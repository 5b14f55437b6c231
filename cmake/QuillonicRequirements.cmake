# Stops where the compiler, its standard library or its options cannot compile the library, with the sentence of the
# header that says what is needed.
if(NOT QUILLONIC_COMPILER_FITS)
  set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
  try_compile(QUILLONIC_COMPILER_FITS
    SOURCE_FROM_CONTENT requirements.cpp "#include <quillonic/requirements.hpp>\n"
    CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${PROJECT_SOURCE_DIR}/include"
    CXX_STANDARD 20
    OUTPUT_VARIABLE output)
  unset(CMAKE_TRY_COMPILE_TARGET_TYPE)
  if(NOT QUILLONIC_COMPILER_FITS)
    if(output MATCHES "\"(Quillonic needs [^\"]*)\"")
      set(output ${CMAKE_MATCH_1})
    endif()
    message(FATAL_ERROR "${output}")
  endif()
endif()
