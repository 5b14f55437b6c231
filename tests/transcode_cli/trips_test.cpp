// Transcodes by the example tool, judged by what ffprobe and decoded frames say of the outputs.

#include <quillonic/time.hpp>
#include <quillonic/transcode_cli.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "child_process.hpp"
#include "texts.hpp"

namespace quillonic {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

const std::filesystem::path tool = std::filesystem::path(EXAMPLES_DIRECTORY) / "transcoder_tool";

Words operator+(Words a, const Words& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

ChildResult ffmpeg(const Words& words) {
  return runChild("/usr/bin/ffmpeg", Words{"-nostdin", "-v", "error", "-y"} + words);
}

// Everything about a file, as lines such as streams.stream.0.width=64.
std::string probe(const std::filesystem::path& file, const Words& more = {}) {
  return runChild("/usr/bin/ffprobe",
                  Words{"-v", "error", "-of", "flat", "-show_format", "-show_streams", "-show_chapters"} +
                      more + Words{"file:" + file.native()})
      .output;
}

// Decoded pixels, red, green and blue each.
struct Frame {
  std::size_t width = 0;
  std::string bytes;

  std::array<int, 3> at(std::size_t x, std::size_t y) const {
    const auto* pixel = reinterpret_cast<const unsigned char*>(bytes.data()) + 3 * (y * width + x);
    return {pixel[0], pixel[1], pixel[2]};
  }
};

class Trips : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists("/usr/bin/ffmpeg")) GTEST_SKIP() << "ffmpeg is not installed";
    if (!std::filesystem::exists(tool)) GTEST_SKIP() << "the tool is built where nlohmann-json is installed";
    std::filesystem::create_directory_symlink(folder.path(), lowerCase);
  }

  void TearDown() override { std::filesystem::remove(lowerCase); }

  // A clip of a second with sound, and a start timecode if it is given.
  std::filesystem::path clip(const std::string& name, const std::string& picture, const Words& more = {}) {
    const auto file = folder / name;
    const auto made = ffmpeg(Words{"-f", "lavfi", "-i", picture} +
                             split("-f lavfi -i sine=440:r=48000 -t 1 -c:v libx264 -preset ultrafast -qp 4 "
                                   "-pix_fmt yuv420p -c:a aac") +
                             more + Words{"-f", "mov", "file:" + file.native()});
    EXPECT_EQ(made.errors, "");
    return file;
  }

  ChildResult run(const std::filesystem::path& in, const std::filesystem::path& out, const Words& words) {
    return runChild(tool, Words{"-in", in, "-out", out} + words);
  }

  // The frames with these numbers, one below the other.
  Frame frames(const std::filesystem::path& file, std::size_t width, const std::string& numbers) {
    const auto raw = folder / "frames.raw";
    ffmpeg({"-i", "file:" + file.native(), "-vf", "select='" + numbers + "'", "-vsync", "0", "-pix_fmt",
            "rgb24", "-f", "rawvideo", raw});
    Frame frame{width, contentOf(raw)};
    std::filesystem::remove(raw);
    return frame;
  }

  std::size_t filesIn(const std::filesystem::path& path) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path), {}));
  }

  const TemporaryFolder folder;
  // The same folder by a name that arrives where paths are lower-cased.
  const std::filesystem::path lowerCase =
      std::filesystem::temp_directory_path() / ("quillonic-" + std::to_string(getpid()));
};

TEST_F(Trips, WriteWhatIsAskedFor) {
  const auto source = clip("source.mov", "testsrc2=s=160x90:r=25", {"-timecode", "01:02:03:04"});
  struct Row {
    std::string words;
    std::string extension;
    std::string lines;  // that ffprobe must print, without "streams.stream."
  };
  const Row rows[] = {
      {"-preset vantiro_cloud", "mov",
       "0.codec_name=\"h264\" 0.width=960 0.height=540 1.codec_name=\"aac\" 1.channels=2 "
       "1.sample_rate=\"48000\""},
      {"-vcodec h264 -dims 64x64 -vr 50 -vbd 10 -acodec aac -asr 44100 -acl mono -tc_track -tc_match", "mov",
       "0.width=64 0.height=64 0.avg_frame_rate=\"50/1\" 0.nb_frames=\"50\" 0.pix_fmt=\"yuv420p10le\" "
       "1.sample_rate=\"44100\" 1.channels=1 0.tags.timecode=\"01:02:03:08\""},
      {"-dims 64x64 -aspect_scaling match -vprofile main -vn -acodec apple_lossless -abpc 24 -acl oct", "mov",
       "0.codec_name=\"alac\" 0.channels=8 0.bits_per_raw_sample=\"24\""},
      {"-dims 64x64 -aspect_scaling match -vprofile main -key_frames 5 -an", "mp4",
       "0.width=64 0.height=36 0.profile=\"Main\" format.nb_streams=1"},
      {"-vcodec h265 -vprofile main10 -file_format mp4 -dims 128x72", "mp4",
       "0.codec_name=\"hevc\" 0.pix_fmt=\"yuv420p10le\" 0.codec_tag_string=\"hvc1\""},
      {"-vcodec prores422lt -acodec lpcm -abpc 24 -acl quad", "mov",
       "0.profile=\"LT\" 1.codec_name=\"pcm_s24le\" 1.channel_layout=\"quad\""},
      {"-vcodec prores4444 -acl hex -adiscrete", "mov",
       "0.profile=\"4444\" 6.channels=1 6.codec_type=\"audio\" format.nb_streams=7"},
      {"-vcodec dnxhd -vbd 10 -dims 256x144 -tc_track -tc_custom 10:00:00:00", "mxf",
       "0.codec_name=\"dnxhd\" 0.pix_fmt=\"yuv422p10le\" 1.codec_name=\"pcm_s16le\" "
       "format.tags.timecode=\"10:00:00:00\""},
      {"-vcodec mjpeg -ac_omit_0 0", "mov", "0.codec_name=\"mjpeg\" format.nb_streams=1"},
      {"-vcodec mp4 -vbr 0.5", "mov", "0.codec_name=\"mpeg4\""},
      {"-vcodec copy -acopy", "mov", "0.codec_name=\"h264\" 0.width=160 1.codec_name=\"aac\""},
      {"-file_format wav -acl oct -tc_track -tc_custom 01:00:00:00 -tc_rate 25", "wav",
       "0.codec_name=\"pcm_s16le\" 0.channel_layout=\"7.1\" format.tags.time_reference=\"172800000\""},
      {"-vr 29.97 -tc_track -tc_custom 01:00:00:00 -tc_drop", "mov",
       "0.avg_frame_rate=\"30000/1001\" 0.tags.timecode=\"01:00:00;00\""},
      {"-vr 23.98 -tc_track -tc_custom 00:59:59:23", "mov",
       "0.avg_frame_rate=\"24000/1001\" 0.tags.timecode=\"00:59:59:23\""},
      {"-c_space rec_2020 -dims 64x36", "mov",
       "0.color_primaries=\"bt2020\" 0.color_transfer=\"bt2020-10\" 0.color_space=\"bt2020nc\""},
      {"-c_space rec_709 -dims 64x36 -vcodec prores422", "mov",
       "0.color_primaries=\"bt709\" 0.color_transfer=\"bt709\" 0.color_space=\"bt709\""},
      {"-c_space srgb -dims 64x36", "mov",
       "0.color_primaries=\"bt709\" 0.color_transfer=\"iec61966-2-1\" 0.color_space=\"bt709\""},
      {"-c_space smpte_c -dims 64x36", "mov",
       "0.color_primaries=\"smpte170m\" 0.color_transfer=\"bt709\" 0.color_space=\"smpte170m\""},
      {"-c_space ebu_3213 -dims 64x36", "mov",
       "0.color_primaries=\"bt470bg\" 0.color_transfer=\"bt709\" 0.color_space=\"smpte170m\""},
  };
  std::size_t number = 0;
  for (const auto& [words, extension, lines] : rows) {
    const auto out = folder / ("out" + std::to_string(number++) + "." + extension);
    const auto result = run(source, out, split(words, ' '));
    EXPECT_EQ(result.exitStatus, 0) << words << result.errors;
    EXPECT_EQ(contentOf(out).empty(), false) << words;
    const auto found = probe(out);
    for (const auto& line : split(lines, ' ')) {
      const auto prefix = line.starts_with("format") ? "" : "streams.stream.";
      EXPECT_THAT(found, HasSubstr(prefix + line + "\n")) << words;
    }
    EXPECT_THAT(found, testing::ContainsRegex("format.duration=\"(1[.]0|0[.]99)")) << words;
    EXPECT_EQ(found.find("timecode") != std::string::npos,
              words.find("tc_track") != std::string::npos && extension != "wav")
        << words;
  }
  EXPECT_THAT(probe(folder / "out3.mp4", {"-skip_frame", "nokey", "-count_frames"}),
              HasSubstr("nb_read_frames=\"5\""));
  // A drop-frame timecode does not come along to a rate without it, and is converted where it is asked for.
  const auto dropping = clip("drop.mov", "testsrc2=s=256x144:r=30000/1001", {"-timecode", "00:01:00;12"});
  EXPECT_EQ(run(dropping, folder / "plain.mxf", split("-vr 25")).errors, "");
  EXPECT_EQ(run(dropping, folder / "match.mxf", split("-vr 25 -tc_track -tc_match")).errors, "");
  EXPECT_THAT(probe(folder / "match.mxf"), HasSubstr("format.tags.timecode=\"00:01:00:10\""));
  const auto web = contentOf(folder / "out0.mov");
  EXPECT_LT(web.find("moov"), web.find("mdat"));
}

TEST_F(Trips, NameEachSettingThatIsNotHonouredOnce) {
  const auto source = clip("source.mov", "testsrc2=s=64x36:r=25");
  const auto result = run(source, folder / "out.mov",
                          split("-vcodec prores422 -vbr 9 -gpu_encoding -arri_wp d60 -key_frames 5 -vprofile "
                                "high -abr 9 -tc_burn_size 5 -tc_match -vbd 8 -crop_anchor c -wmt_burn",
                                ' '));
  EXPECT_EQ(result.exitStatus, 0) << result.errors;
  const auto lines = split(result.errors, '\n');
  EXPECT_EQ(lines.size(), 12U) << result.errors;  // and nothing after the last line break
  for (const auto flag : {"-vbr", "-gpu_encoding", "-arri_wp", "-key_frames", "-vprofile", "-abr",
                          "-tc_burn_size", "-tc_match", "-vbd", "-crop_anchor", "-wmt_burn"}) {
    EXPECT_THAT(lines, testing::Contains(HasSubstr(std::string(flag) + " is not honoured: ")));
  }
  EXPECT_THAT(run(source, folder / "two.mov", split("-tc_track -tc_match -tc_custom 01:00:00:00")).errors,
              HasSubstr("-tc_custom is not honoured: -tc_match is taken instead"));
}

TEST_F(Trips, JoinAllGroupsInOrder) {
  const auto red = clip("red.mov", "color=red:s=64x36:r=25", {"-timecode", "01:00:00:00"});
  const auto green = clip("green.mov", "color=lime:s=32x32:r=30");
  const auto blue = clip("blue.mov", "color=blue:s=64x36:r=25", {"-an"});
  const auto out = folder / "out.mov";
  const auto result = runChild(
      tool, {"-in_10_0", blue, "-in_2_1", green, "-in_2_0", red, "-out", out, "-tc_track", "-acl", "stereo"});
  EXPECT_EQ(result.exitStatus, 0) << result.errors;
  const auto found = probe(out);
  for (const auto line :
       {"0.width=64", "0.nb_frames=\"75\"", "1.channels=2", "0.tags.timecode=\"01:00:00:00\""}) {
    EXPECT_THAT(found, HasSubstr(std::string("streams.stream.") + line));
  }
  EXPECT_THAT(found, testing::ContainsRegex("chapters.chapter.1.start_time=\"2[.]0"));
  const auto middles = frames(out, 64, "not(mod(n-12,25))");
  for (std::size_t part = 0; part < 3; ++part) {
    const auto pixel = middles.at(32, 18 + 36 * part);
    EXPECT_EQ(std::ranges::max_element(pixel) - pixel.begin(), static_cast<std::ptrdiff_t>(part));
  }
}

TEST_F(Trips, BurnInsChangeThePictureInTheirPlacesOnly) {
  constexpr std::size_t width = 960;
  constexpr std::size_t height = 540;
  const auto source = clip("source.mov", "color=gray:s=960x540:r=25", {"-frames:v", "3"});
  const auto image = lowerCase / "mark.png";
  ffmpeg({"-f", "lavfi", "-i", "color=red:s=200x100", "-frames:v", "1", "-update", "1", image});
  TranscodeCliArguments settings(
      Words{"-in", source, "-wmf_path", image} +
      split("-wmf_scale 0.5 -tc_burn -tc_custom 10:00:00:00 -tc_burn_font_rgb 255,255,0 -tc_burn_box_rgb "
            "0,0,255 -tc_burn_size 30 -wmt_burn -wmt_text text -wmt_size 40 -wmt_font_rgb 0,255,0"));
  const auto anchors = VAVTranscodeArgumentOverlayAnchorValue::allCases();
  for (std::size_t i = 0; i < anchors.size(); i += 2) {
    const std::size_t places[] = {i, (i + 4) % 9, (i + 8) % 9};
    settings.setWatermarkFileBurnAnchor(anchors[places[0]]);
    settings.setTimecodeBurnAnchor(anchors[places[1]]);
    settings.setWatermarkTextBurnAnchor(anchors[places[2]]);
    const auto out = folder / ("out" + std::to_string(i) + ".mov");
    settings.setOutputFile(out);
    EXPECT_EQ(runChild(tool, settings.launchArguments()).exitStatus, 0);
    const auto burnt = frames(out, width, "eq(n,0)");
    ASSERT_EQ(burnt.bytes.size(), width * height * 3);
    std::array<std::array<std::size_t, 3>, 9> colored{};  // pixels of the three burn-ins in each ninth
    for (std::size_t y = 0; y < height; ++y) {
      for (std::size_t x = 0; x < width; ++x) {
        const auto [red, green, blue] = burnt.at(x, y);
        auto& ninth = colored[y * 3 / height * 3 + x * 3 / width];
        ninth[0] += red > 180 && green < 80;
        ninth[1] += blue > 180 && red < 80;
        ninth[2] += green > 180 && red < 80;
        const bool isGrey = std::abs(red - green) < 30 && std::abs(green - blue) < 30;
        EXPECT_TRUE(isGrey || std::ranges::count(places, y * 3 / height * 3 + x * 3 / width) == 1);
      }
    }
    for (std::size_t ninth = 0; ninth < 9; ++ninth) {
      EXPECT_EQ(colored[ninth][0] > 4000, ninth == places[0]) << i << ' ' << ninth;
      EXPECT_EQ(colored[ninth][1] > 2000, ninth == places[1]) << i << ' ' << ninth;
      EXPECT_EQ(colored[ninth][2] > 200, ninth == places[2]) << i << ' ' << ninth;
    }
  }
}

// One law over names: whatever bytes they have, inputs and outputs are files of that name, and a text is
// drawn as it is.
TEST_F(Trips, NamesAndTextsAreNeverSyntax) {
  const auto source = clip("plain.mov", "color=black:s=320x180:r=25");
  const auto mark = folder / "mark.png";
  ffmpeg({"-f", "lavfi", "-i", "color=red:s=16x16", "-frames:v", "1", "-update", "1", mark});
  const std::string names[] = {"a b",     "it's", "\"q\"",  "a:b",        "100%d %{n}", "back\\slash",
                               "a,b;c",   "[in]", "-vf",    "two\nlines", "latin-\xe9", "été",
                               "$(x)`y`", "=",    "file:x", "%03d"};
  for (const auto& name : names) {
    const auto hostile = folder.folder(name) / (name + ".mov");
    std::filesystem::copy_file(source, hostile);
    const auto image = lowerCase / name / (name + ".png");
    const auto lut = folder / name / (name + ".cube");
    std::filesystem::copy_file(mark, image);
    std::ofstream(lut) << "LUT_3D_SIZE 2\n0 0 1\n1 0 1\n0 1 1\n1 1 1\n0 0 1\n1 0 1\n0 1 1\n1 1 1\n";
    const auto out = folder / name / (name + " out.mov");
    const bool isText = name != "-vf" && name.find('\xe9') == std::string::npos;
    // Where the temporary folder has capitals, the path of an image does not arrive.
    TranscodeCliArguments settings;
    settings.setWatermarkFileBurnFilePath(image);
    const bool arrives = settings.problems().empty();
    const auto result =
        run(hostile, out,
            Words{"-clut", lut, "-work_dir", folder / name, "-an"} +
                (arrives ? Words{"-wmf_path", image} : Words{}) +
                (isText ? Words{"-wmt_burn", "-wmt_text", name, "-wmt_size", "30", "-wmt_anchor", "cl"}
                        : Words{}));
    EXPECT_EQ(result.exitStatus, 0) << name << result.errors;
    EXPECT_EQ(filesIn(folder / name), 4U) << name;
    // Text that was expanded would change with the frames.
    const auto both = frames(out, 320, "eq(n,0)+eq(n,20)");
    ASSERT_EQ(both.bytes.size(), 2U * 320 * 180 * 3) << name;
    EXPECT_GT(both.at(160, 20)[2], 200) << name;  // the table turns black to blue
    EXPECT_EQ(both.at(308, 8)[0] > 100, arrives) << name;
    std::size_t white = 0;
    std::size_t changed = 0;
    for (std::size_t y = 0; y < 180; ++y) {
      for (std::size_t x = 0; x < 320; ++x) {
        white += both.at(x, y)[1] > 150;
        changed += std::abs(both.at(x, y)[1] - both.at(x, y + 180)[1]) > 60;
      }
    }
    EXPECT_EQ(white > 15, isText) << name;
    EXPECT_LT(changed, 20U) << name;
  }
}

// Also those that ffmpeg does not read, or not as they are meant.
TEST_F(Trips, LookUpTablesOfEveryKindColorThePicture) {
  const auto source = clip("source.mov", "color=black:s=64x36:r=25", {"-frames:v", "1"});
  const std::pair<const char*, const char*> tables[] = {
      {"curve.spi1d", "Version 1\nFrom 0 1\nLength 2\nComponents 3\n{\n1 0 0\n0 1 1\n}\n"},
      {"domain.cube", "LUT_1D_SIZE 3\nDOMAIN_MIN -1 -1 -1\nDOMAIN_MAX 1 1 1\n0 1 1\n1 0 0\n1 1 1\n"},
      {"shaper.cube",
       "LUT_1D_SIZE 2\nLUT_3D_SIZE 2\n1 1 1\n0 0 0\n"
       "0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n1 0 0\n"},
  };
  for (const auto& [name, text] : tables) {
    const auto out = folder / (std::string(name) + ".mov");
    EXPECT_EQ(run(source, out, {"-clut", folder.file(name, text)}).errors, "");
    const auto pixel = frames(out, 64, "eq(n,0)").at(32, 18);
    EXPECT_TRUE(pixel[0] > 220 && pixel[1] < 40 && pixel[2] < 40) << name;
  }
}

TEST_F(Trips, RefusalsSayWhyAndLeaveNothing) {
  const auto source = clip("source.mov", "testsrc2=s=64x36:r=25");
  const auto broken = folder.file("broken.mov", "no media");
  const auto existing = folder.file("existing.mov", "kept");
  const auto files = filesIn(folder.path());
  const auto out = (folder / "out.mov").native();
  const Words in{"-in", source, "-out", out};
  const std::tuple<Words, int, std::string> rows[] = {
      {in + split("-tc_burn -tc_drop"), 64, "drop frame needs 29.97 or 59.94"},
      {in + split("-tc_track -tc_custom 01:00:00:25"), 64, "01:00:00:25 is never counted at 25"},
      {in + split("-vr 29.97 -tc_track -tc_custom 00:01:00;00"), 64, "00:01:00;00 is never"},
      {in + split("-vr 12.5 -tc_burn"), 64, "no timecode counts 12.5"},
      {in + split("-vr 1001"), 64, "-vr: from"},
      {in + split("-vr 24fps"), 64, "-vr: found \"24fps\", expected"},
      {in + split("-vcodecc h264"), 64, "-vcodecc: no flag of the transcoder, although"},
      {split("-vcodec h264 -Zoom 1 -parentPid 1 --what"), 64,
       "transcoder_tool: cannot use these settings\n  --what: no flag of the transcoder\n"
       "  -zoom: no flag of the transcoder\n"},
      {in + split("-file_format mp4 -vcodec prores422"), 64, "mp4 files do not hold prores422"},
      {in + split("-vcodec h264 -vprofile 'x:y"), 64, "'x:y is not one of baseline"},
      {in + split("-dims 63x64"), 64, "even numbers"},
      {in + split("-vn -an"), 64, "nothing is left"},
      {in + split("-wmt_burn -wmt_text \xff"), 64, "not UTF-8"},
      {in + split("-wmt_burn -wmt_text -i"), 64, "-i: no flag"},
      {in + split("-wmf_path /no.png"), 66, "/no.png"},
      {in + split("-clut /no.cube"), 66, "/no.cube"},
      {in + Words{"-clut", broken}, 65, "broken.mov: line 1, column 1: found \"no media\""},
      {in + split("-wmt_burn -wmt_text x -wmt_size 0"), 64, "without size"},
      {in + split("-file_format wav -acl stereo -adiscrete"), 64, "one track"},
      {{"-in_0_0", source, "-in_0_1", "/no.mov", "-out", out}, 66, "/no.mov: No such file"},
      {split("-in /dev/null -out /nowhere/b.mov"), 66, "/dev/null"},
      {{"-in", broken, "-out", out}, 65, "cannot read " + broken.native()},
      {{"-in_0_0", source, "-in_0_1", broken, "-out", out}, 65, "cannot read " + broken.native()},
      {{"-in", source, "-out", existing}, 73, "exists"},
      {{"-in", source, "-out", source, "-overwrite"}, 73, "is an input"},
      {{"-in", source, "-out", folder.path(), "-overwrite"}, 73, "is not a file"},
      {{"-in", source, "-out", "/nowhere/out.mov"}, 73, "No such file"},
      {{"-in", source}, 64, "an output file"},
      {{}, 64, "an output file"},
  };
  for (const auto& [words, status, reason] : rows) {
    const auto result = runChild(tool, words);
    EXPECT_EQ(result.exitStatus, status) << reason << result.errors;
    EXPECT_THAT(result.errors, HasSubstr(reason));
    EXPECT_EQ(filesIn(folder.path()), files) << reason;
  }
  EXPECT_EQ(contentOf(existing), "kept");
  EXPECT_EQ(run(source, existing, {"-overwrite"}).exitStatus, 0);
  EXPECT_THAT(probe(existing), HasSubstr("codec_name=\"h264\""));

  const std::string path = std::getenv("PATH");
  setenv("PATH", "/nowhere", 1);
  const auto missing = run(source, out, {});
  setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(missing.exitStatus, 69);
  EXPECT_THAT(missing.errors, HasSubstr("install the package ffmpeg"));
}

TEST_F(Trips, ASignalOrTheEndOfTheParentEndsTheToolWithoutAFile) {
  const auto source = clip("source.mov", "testsrc2=s=640x360:r=25", {"-t", "20"});
  const auto start = [&](const Words& more) {
    return startChild(tool, Words{"-in", source, "-out", folder / "out.mov", "-progress_file",
                                  folder / "progress", "-work_dir", folder.folder("work")} +
                                split("-vcodec prores4444xq -dims 1280x720") + more);
  };
  const auto awaitProgress = [&] {
    while (contentOf(folder / "progress").empty()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  };
  int status = 0;
  for (const int signal : {SIGINT, SIGTERM}) {
    const auto child = start({});
    awaitProgress();
    kill(child, signal);
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    std::filesystem::remove(folder / "progress");
    EXPECT_EQ(filesIn(folder.path()), 2U);
    EXPECT_EQ(filesIn(folder / "work"), 0U);
  }
  const auto parent = fork();
  if (parent == 0) {
    pause();
    _exit(0);
  }
  const auto child = start({"-parentPid", std::to_string(parent)});
  awaitProgress();
  kill(parent, SIGKILL);
  waitpid(parent, nullptr, 0);
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status)) << status;
  EXPECT_EQ(filesIn(folder / "work"), 0U);
  EXPECT_FALSE(std::filesystem::exists(folder / "out.mov"));
}

// The parent makes a copy for review and one for editing, and has both analysed.
TEST_F(Trips, TheParentRunsBothTools) {
  const auto card = folder.folder("card");
  const auto first = clip("card/A001_C001.mov", "testsrc2=s=160x90:r=25", {"-timecode", "01:00:00:00"});
  const auto second = clip("card/two\nlines \xe9.mov", "testsrc2=s=160x90:r=25");
  const auto image = folder / "card/Mark.png";  // its capital would not arrive
  ffmpeg({"-f", "lavfi", "-i", "color=red:s=16x16", "-frames:v", "1", "-update", "1", image});
  const auto out = folder.folder("out");
  const auto examples = tool.parent_path();
  const auto result = runChild(examples / "offload_app", {tool, examples / "media_analysis_tool", out,
                                                          "--watermark", image, first, second});
  EXPECT_EQ(result.exitStatus, 0) << result.errors;
  for (const auto text : {"-vcodec prores422lt", "lines \xe9.mov'",
                          "review: 100% frame=", "edit: 100% frame=", "analysis.json"}) {
    EXPECT_THAT(result.output, HasSubstr(text));
  }
  EXPECT_THAT(result.output,
              HasSubstr("-parentPid " + std::to_string(result.process) + " -parentAppNumber 7"));
  const auto review = probe(out / "review.mov");
  EXPECT_THAT(review, HasSubstr("0.codec_name=\"h264\""));
  EXPECT_THAT(review, HasSubstr("0.tags.timecode=\"01:00:00:00\""));
  EXPECT_THAT(probe(out / "edit.mov"), HasSubstr("0.codec_name=\"prores\""));
  EXPECT_EQ(filesIn(out), 9U);  // two copies, three still frames of each, the results
}

}  // namespace
}  // namespace quillonic
