#define __STDC_CONSTANT_MACROS  // what its headers ask of C++
extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
}
#include <memory>
#include <stdexcept>

#include "../luts.hpp"

namespace quillonic::benchmarks {
namespace {

void check(int result) {
  if (result < 0) throw std::runtime_error("libavfilter failed");
}

struct Form {
  const char* name;
  AVPixelFormat format;
  int bytesOfPixel;
};

Form formOf(Pixels pixels) {
  switch (pixels) {
    case Pixels::rgb8:
      return {"rgb24", AV_PIX_FMT_RGB24, 3};
    case Pixels::rgba8:
      return {"rgba", AV_PIX_FMT_RGBA, 4};
    case Pixels::rgb16:
      return {"rgb48le", AV_PIX_FMT_RGB48LE, 6};
    case Pixels::planarFloat:
      return {"gbrpf32le", AV_PIX_FMT_GBRPF32LE, 4};
    case Pixels::planar16:
      return {"gbrp16le", AV_PIX_FMT_GBRP16LE, 2};
    case Pixels::rgbFloat:
    case Pixels::rgbaFloat:
      break;
  }
  throw std::runtime_error("it has no such pixels");
}

// A source, the filter and a sink.
struct Graph {
  std::unique_ptr<AVFilterGraph, void (*)(AVFilterGraph*)> graph{
      avfilter_graph_alloc(), [](AVFilterGraph* all) { avfilter_graph_free(&all); }};
  AVFilterContext* source = nullptr;
  AVFilterContext* sink = nullptr;

  Graph(const std::string& file, bool isTetrahedral, const char* format) {
    graph->nb_threads = 1;
    const auto arguments = "video_size=" + std::to_string(Grading::width) + "x" +
                           std::to_string(Grading::height) + ":pix_fmt=" + format + ":time_base=1/25";
    check(avfilter_graph_create_filter(&source, avfilter_get_by_name("buffer"), "in", arguments.c_str(),
                                       nullptr, graph.get()));
    AVFilterContext* lut = nullptr;
    const auto options = "file=" + file + ":interp=" + (isTetrahedral ? "tetrahedral" : "trilinear");
    check(avfilter_graph_create_filter(&lut, avfilter_get_by_name("lut3d"), "lut", options.c_str(), nullptr,
                                       graph.get()));
    check(avfilter_graph_create_filter(&sink, avfilter_get_by_name("buffersink"), "out", nullptr, nullptr,
                                       graph.get()));
    check(avfilter_link(source, 0, lut, 0));
    check(avfilter_link(lut, 0, sink, 0));
    check(avfilter_graph_config(graph.get(), nullptr));
  }
};

using Frame = std::unique_ptr<AVFrame, void (*)(AVFrame*)>;

Frame makeFrame() {
  return {av_frame_alloc(), [](AVFrame* frame) { av_frame_free(&frame); }};
}

Work graded(const Grading& grading) {
  const auto [name, format, bytes] = formOf(grading.pixels);
  const auto graph = std::make_shared<Graph>(grading.file, grading.isTetrahedral, name);
  const std::shared_ptr<AVFrame> frame = makeFrame();
  frame->width = Grading::width;
  frame->height = Grading::height;
  frame->format = format;
  const bool isPlanar = grading.pixels == Pixels::planarFloat || grading.pixels == Pixels::planar16;
  const auto row = static_cast<int>(Grading::width) * bytes;
  const auto plane = static_cast<std::size_t>(row) * Grading::height;
  auto* const first = reinterpret_cast<std::uint8_t*>(grading.source);
  frame->buf[0] = av_buffer_create(
      first, plane * (isPlanar ? 3 : 1), [](void*, std::uint8_t*) {}, nullptr, AV_BUFFER_FLAG_READONLY);
  // Its planes are green, blue and red.
  for (int i = 0; i < (isPlanar ? 3 : 1); ++i) {
    frame->data[i] = first + (isPlanar ? plane * static_cast<std::size_t>((i + 1) % 3) : 0);
    frame->linesize[i] = row;
  }
  return [=] {
    check(av_buffersrc_add_frame_flags(graph->source, frame.get(), AV_BUFFERSRC_FLAG_KEEP_REF));
    const auto result = makeFrame();
    check(av_buffersink_get_frame(graph->sink, result.get()));
  };
}

void read(const std::string& file) {
  use(Graph(file, true, "rgb24").sink);
}

const bool added =
    addGrader("libavfilter", "truncates integers", graded) && addCubeReader("libavfilter", "", read);

}  // namespace
}  // namespace quillonic::benchmarks
