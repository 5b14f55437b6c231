# Precompiles external headers, for fast builds: CMAKE_PROJECT_quillonic_INCLUDE names this file. Daily builds
# do not use it, since they show whether each source includes what it needs.
function(quillonic_precompile)
  set(standard <algorithm> <array> <charconv> <chrono> <filesystem> <fstream> <map> <memory> <optional> <ranges> <set>
    <span> <string> <string_view> <system_error> <variant> <vector>)
  target_precompile_headers(quillonic PRIVATE ${standard})
  if(QUILLONIC_BUILD_TESTS)
    get_property(programs DIRECTORY tests PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER programs INCLUDE REGEX "_test$")
    foreach(program ${programs})
      target_precompile_headers(${program} PRIVATE ${standard} <gmock/gmock.h> <gtest/gtest.h>)
    endforeach()
  endif()
endfunction()
cmake_language(DEFER CALL quillonic_precompile)
