cmake_language(DEFER CALL target_precompile_headers quillonic PRIVATE
  <algorithm> <array> <charconv> <chrono> <filesystem> <fstream> <map> <memory> <optional> <ranges> <set> <span> <string>
  <string_view> <system_error> <variant> <vector>)
