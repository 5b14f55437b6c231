// The settings of a stored preset as a window shows them, and a choice stored back.
#include <quillonic/media.hpp>

#include <iostream>
#include <string_view>

using namespace quillonic;

namespace {

template <class Setting> void showPicker(std::string_view name, const Setting& settings) {
  std::cout << name << ':';
  for (const auto& setting : settings) std::cout << " [" << setting.pickerDescription() << ']';
  std::cout << '\n';
}

}  // namespace

int main() {
  Cloud_ConversionOptions preset;
  preset.codecType = Cloud_ConversionOptions::CodecType::h264;
  FrameRate::custom(12).storeIn(preset.videoOptions);
  VideoDimension::tenEightyP.storeIn(preset.videoOptions);
  SampleRate::hz48000.storeIn(preset.audioOptions);

  // A stored number without a fixed case is read as a custom rate; one that cannot be a rate as nothing.
  const auto rate = FrameRate::fromProto(preset.videoOptions).value_or(FrameRate::match);
  std::cout << rate.description() << ", " << VideoDimension::fromProto(preset.videoOptions).description()
            << ", " << SampleRate::fromProto(preset.audioOptions).description() << '\n';

  showPicker("data rates for H.264", VideoDataRate::allowed(preset.codecType));
  preset.codecType = Cloud_ConversionOptions::CodecType::dnxhd;
  showPicker("data rates for DNxHD", VideoDataRate::allowed(preset.codecType));
  showPicker("frame rates for DNxHD", FrameRate::allowed(preset.codecType));
  for (const auto depth : allowed<ColorDepth>(preset.codecType)) std::cout << description(depth) << '\n';

  // A switch over the cases reads like one over an enumeration: the compiler reports missing cases.
  const auto dataRate = VideoDataRate::fromProto(preset.videoOptions);
  switch (dataRate.kind()) {
    case VideoDataRate::Kind::auto_:
      std::cout << "the encoder chooses the data rate\n";
      break;
    case VideoDataRate::Kind::restrict:
      std::cout << "at most " << dataRate.doubleForProto() << " megabits per second\n";
      break;
  }
}
