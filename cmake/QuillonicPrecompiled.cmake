# Precompiles external headers, for fast builds: CMAKE_PROJECT_quillonic_INCLUDE names this file. That hides whether
# each source includes what it needs; tests/check_includes.py tells, each public header is compiled alone, and the
# presets "clang" and "release" do without.
function(quillonic_precompile)
  set(standard <algorithm> <array> <charconv> <chrono> <filesystem> <fstream> <map> <memory> <optional> <ranges> <set>
    <span> <string> <string_view> <system_error> <variant> <vector>)
  target_precompile_headers(quillonic PRIVATE ${standard})

  # Programs of a kind share the headers of one. Small ones gain nothing.
  if(QUILLONIC_BUILD_TESTS)
    get_property(tests DIRECTORY tests PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER tests INCLUDE REGEX "_test$")
    list(POP_FRONT tests first_test)
    target_precompile_headers(${first_test} PRIVATE ${standard} <gmock/gmock.h> <gtest/gtest.h>)
    foreach(test ${tests})
      target_precompile_headers(${test} REUSE_FROM ${first_test})
    endforeach()
  endif()
  if(TARGET example_child)
    target_precompile_headers(example_child PRIVATE ${standard} <nlohmann/json.hpp>)
    foreach(program machine_tool media_analysis_tool offload_app transcoder_tool)
      if(TARGET ${program})
        target_precompile_headers(${program} REUSE_FROM example_child)
      endif()
    endforeach()
  endif()
endfunction()
cmake_language(DEFER CALL quillonic_precompile)
