// Settings stored as JSON. Needs nlohmann-json and the target Quillonic::json; the library itself does not.
#include <quillonic/json.hpp>
#include <quillonic/transcode_cli.hpp>

#include <iostream>
#include <limits>
#include <string>

using namespace quillonic;

int main() {
  const TranscodeCliArguments settings({"-vcodec", "h264", "-vn", "-out", "/media/Out.MOV"}, true);
  const std::string text = toJson(encode(settings)).dump(2);
  std::cout << text << '\n';

  // `ordered_json` keeps the order of the keys.
  const auto again = decode<TranscodeCliArguments>(fromJson(nlohmann::ordered_json::parse(text)));
  for (const auto& word : again.commandLineArguments()) std::cout << '"' << word << "\" ";
  std::cout << '\n';

  // Values that JSON cannot express survive too: a file name that is not UTF-8, an infinite number.
  std::cout << toJson(std::string("f\xff")).dump() << '\n';
  std::cout << toJson(std::numeric_limits<double>::infinity()).dump() << '\n';

  try {
    fromJson(nlohmann::ordered_json::parse(R"({"$number": "many"})"));
  } catch (const nlohmann::json::exception& error) {
    std::cout << "no JSON: " << error.what() << '\n';
  } catch (const DecodingError& error) {
    std::cout << error.what() << '\n';
  }
}
