#include <OpenColorIO/OpenColorIO.h>
#include <stdexcept>

#include "../luts.hpp"

namespace quillonic::benchmarks {
namespace {

namespace ocio = OCIO_NAMESPACE;

struct Form {
  ocio::BitDepth depth;
  long channels;
};

Form formOf(Pixels pixels) {
  switch (pixels) {
    case Pixels::rgbFloat:
      return {ocio::BIT_DEPTH_F32, 3};
    case Pixels::rgbaFloat:
      return {ocio::BIT_DEPTH_F32, 4};
    case Pixels::rgb8:
      return {ocio::BIT_DEPTH_UINT8, 3};
    case Pixels::rgba8:
      return {ocio::BIT_DEPTH_UINT8, 4};
    case Pixels::rgb16:
      return {ocio::BIT_DEPTH_UINT16, 3};
    case Pixels::planarFloat:
    case Pixels::planar16:
      break;
  }
  throw std::runtime_error("planes are not measured");
}

ocio::ConstProcessorRcPtr processorOf(const std::string& file, bool isTetrahedral) {
  const auto transform = ocio::FileTransform::Create();
  transform->setSrc(file.c_str());
  transform->setInterpolation(isTetrahedral ? ocio::INTERP_TETRAHEDRAL : ocio::INTERP_LINEAR);
  return ocio::Config::CreateRaw()->getProcessor(transform);
}

Work graded(const Grading& grading) {
  const auto [depth, channels] = formOf(grading.pixels);
  const auto cpu = processorOf(grading.file, grading.isTetrahedral)
                       ->getOptimizedCPUProcessor(depth, depth, ocio::OPTIMIZATION_DEFAULT);
  const auto image = [depth = depth, channels = channels](std::byte* pixels) {
    return ocio::PackedImageDesc(pixels, Grading::width, Grading::height, channels, depth, ocio::AutoStride,
                                 ocio::AutoStride, ocio::AutoStride);
  };
  return [=] {
    const auto source = image(grading.source);
    auto target = image(grading.target);
    cpu->apply(source, target);
  };
}

void read(const std::string& file) {
  ocio::ClearAllCaches();
  use(processorOf(file, true));
}

const bool added = addGrader("OpenColorIO", "", graded) && addCubeReader("OpenColorIO", "", read);

}  // namespace
}  // namespace quillonic::benchmarks
