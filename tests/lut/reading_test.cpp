#include <quillonic/lut.hpp>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <tuple>
#include <vector>

#include "recorded_log.hpp"
#include "temporary_folder.hpp"

namespace quillonic::lut {
namespace {

// The corners of a cube of edge 2 that changes nothing, red fastest, and blue fastest as 8-bit integers.
const std::string cube = "0 0 0\n1 0 0\n0 1 0\n1 1 0\n0 0 1\n1 0 1\n0 1 1\n1 1 1\n";
const std::string cube255 =
    "0 0 0\n0 0 255\n0 255 0\n0 255 255\n255 0 0\n255 0 255\n255 255 0\n255 255 255\n";
const std::string spi3d = "SPILUT 1.0\n3 3\n2 2 2\n";
const std::string spi3dRows =
    "0 0 0 0 0 0\n1 1 1 1 1 1\n0 0 1 0 0 1\n0 1 0 0 1 0\n0 1 1 0 1 1\n1 0 0 1 0 0\n1 0 1 1 0 1\n1 1 0 1 1 "
    "0\n";
const std::string csp = "CSPLUTV100\n3D\n";
const std::string noShaper = "0\n\n\n0\n0\n";

std::string numbersOf(const Rgb& color) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::setprecision(5) << color[0] << ' ' << color[1] << ' ' << color[2];
  return text.str();
}

// Kind and sizes, and what becomes of a colour.
std::string summaryOf(const Result<Lut, Failure>& lut) {
  if (!lut) return lut.error().description();
  const auto facts = lut->description();
  std::string text(rawValue(facts.kind));
  if (facts.size1D) text += " " + std::to_string(*facts.size1D);
  if (facts.size3D) text += " " + std::to_string(*facts.size3D);
  return text + ": " + numbersOf(Applier(*lut).apply({0.25F, 0.5F, 0.75F}));
}

TEST(Reading, AcceptsWhatProgramsWrite) {
  const std::string same3D = "3D 2: 0.25 0.5 0.75";
  const std::tuple<std::string, std::string, std::string> table[] = {
      // .cube, both dialects
      {"a.cube", "LUT_3D_SIZE 2\n" + cube, same3D},
      {"a.CUBE", "\xEF\xBB\xBF\t lut_3d_size\t2 # edge\r\n\r\n# more\r" + cube + " \t\n#", same3D},
      {"", "LUT_3D_SIZE 2\rTITLE\r" + cube.substr(0, cube.size() - 1), same3D},
      {"a.cube", "DOMAIN_MAX 2 2 2\nLUT_3D_SIZE 2\nDOMAIN_MIN -1 0 0.5\n" + cube,
       "3D 2: 0.41667 0.25 0.16667"},
      {"a.cube", "LUT_3D_SIZE 2\nLUT_3D_INPUT_RANGE 0 2\nDOMAIN_MAX 2 2 2\n" + cube,
       "3D 2: 0.125 0.25 0.375"},
      {"a.cube", "LUT_3D_SIZE 2\nLUT_1D_INPUT_RANGE 5 1\nLUT_IN_VIDEO_RANGE\nKEY 1 2\n" + cube, same3D},
      {"a.cube", "LUT_1D_SIZE 3\n0 0 0\n.25 1. +2.5e-1\n1 1e0 -0.5\n", "1D 3: 0.125 1 -0.125"},
      {"a.cube",
       "LUT_3D_SIZE 2\nLUT_1D_SIZE 2\nLUT_1D_INPUT_RANGE 0 1\nLUT_3D_INPUT_RANGE 0 2\n0 0 0\n2 2 2\n" + cube,
       "1D+3D 2 2: 0.25 0.5 0.75"},
      {"a.cube", "LUT_1D_SIZE 2\n1e-60 1e-400 0\n1 1 1\n", "1D 2: 0.25 0.5 0.75"},
      // .3dl
      {"a.3dl", cube255, same3D},
      {"a", "3DMESH\nMesh 0 8\n0 64 128 191 255\n" + cube255 + "LUT8\ngamma 1.0\n", same3D},
      {"a.3dl", "Mesh 0 10\n" + cube255, "3D 2: 0.062317 0.12463 0.18695"},
      {"a.3dl", cube255 + "# end", same3D},
      // .spi1d and .spi3d
      {"a", "Version 1\nFrom -1 1\nLength 2\nComponents 1\n{\n-1\n1\n}\nfree text", "1D 2: 0.25 0.5 0.75"},
      {"a.spi1d", "Components 2\nLength 2\nVersion 1\nOther\n{\n0 1\n1 0", "1D 2: 0.25 0.5 0"},
      {"a.spi1d", "Version 1\nLength 2\nComponents 3\n{\n0 1 0\n1 0 .5\n}", "1D 2: 0.25 0.5 0.375"},
      {"a", spi3d + spi3dRows, same3D},
      // .csp
      {"a", "# comment\n" + csp + "BEGIN METADATA\n# free\nEND METADATA\n" + noShaper + "2 2 2\n" + cube,
       same3D},
      {"a.csp", csp + "3\n0 0.5 1\n0 0.25 1\n2\n0 2\n0 1\n0\n2 2 2\n" + cube, "1D+3D 3 2: 0.125 0.25 0.75"},
      {"a.csp", "CSPLUTV100\n1D\n2\n-1 1\n0 1\n0\n0\n2\n0 0 0\n1 1 2", "1D 2: 0.625 0.5 1.5"},
      // .lut
      {"a.lut", "LUT: 1 2 256\n0\n255\n", "1D 2: 0.25 0.5 0.75"},
      {"log10to8.lut", "LUT: 3 2\n0\n255\n# green\n255\n0\n0\n0\n", "1D 2: 0.25 0.5 0"},
      {"16FPto12.lut", "LUT: 4 2\n0\n4095\n0\n4095\n0\n4095\n7\n7\n", "1D 2: 0.25 0.5 0.75"},
  };
  for (const auto& [name, text, summary] : table)
    EXPECT_EQ(summaryOf(readText(text, name)), summary) << name << text;

  std::string plain;
  for (int i = 0; i < 256; ++i) plain += std::to_string(255 - i) + "\n";
  EXPECT_EQ(summaryOf(readText(plain)), "1D 256: 0.75 0.5 0.25");
}

TEST(Reading, KeepsWhatFilesTellBesides) {
  const auto lut = readText(
      "#first\nTITLE \"a \"b\" # c\" d\n  KEY 1 # 2\nLUT_1D_SIZE 2\nLUT_OUT_VIDEO_RANGE\n"
      "0 0 0\n # last \n1 1 1\n");
  ASSERT_TRUE(lut);
  const auto& header = lut->header;
  EXPECT_EQ(header.title, "a \"b\" # c");
  EXPECT_EQ(header.comments, "first\nlast\n");
  EXPECT_EQ(header.unknownLines, "KEY 1 # 2\n");
  EXPECT_TRUE(header.givesVideoRange && !header.expectsVideoRange && !header.depth);
  EXPECT_EQ(readText("TITLE \"half \nLUT_1D_SIZE 2\n0 0 0\n1 1 1")->header.title, "half");
  EXPECT_EQ(readText(cube255, "a.3dl")->header.depth, 8);
}

TEST(Reading, RefusesAndTellsWhere) {
  const std::string cubeRows(cube.substr(0, 42));  // seven rows
  const std::string spi1d = "Version 1\nLength 2\nComponents 1\n{\n";
  const std::tuple<std::string, std::string, std::size_t, std::string, std::string> table[] = {
      // counts and rows
      {"a.cube", "LUT_3D_SIZE 2\n" + cubeRows, 8, "7 rows", "8 rows"},
      {"a.cube", "LUT_3D_SIZE 256\n" + cubeRows, 8, "7 rows", "16777216 rows"},
      {"a.cube", "LUT_3D_SIZE 2\n" + cube + "\n0 0 0\n", 11, "0 0 0", "the end of the file"},
      {"a.cube", "LUT_3D_SIZE 2\n0 0 0 0\n", 2, "0", "the end of the line"},
      {"a.cube", "LUT_3D_SIZE 2\n0 0\n", 2, "", "a number"},
      {"a.cube", "LUT_3D_SIZE 2\n0 0 0\nTITLE \"late\"\n", 3, "TITLE", "a number"},
      // numbers
      {"a.cube", "LUT_3D_SIZE 2\n0 0 1#\n", 2, "1#", "a number"},
      // headers
      {"a.cube", "LUT_3D_SIZE 2.0\n", 1, "2.0", "an integer"},
      {"a.cube", "LUT_3D_SIZE 1\n", 1, "1", "a number from 2 to 256"},
      {"a.cube", "LUT_3D_SIZE -2\n", 1, "-2", "a number from 2 to 256"},
      {"a.cube", "LUT_3D_SIZE 2 2\n", 1, "2", "the end of the line"},
      {"a.cube", "LUT_1D_SIZE 1000000000\n", 1, "1000000000", "a number from 2 to 1048576"},
      {"a.cube", "LUT_3D_SIZE 2\nLUT_3D_SIZE 2\n", 2, "LUT_3D_SIZE", "each keyword once"},
      {"a.cube", "LUT_2D_SIZE 2\n", 1, "LUT_2D_SIZE 2", "LUT_1D_SIZE or LUT_3D_SIZE"},
      {"a.cube", "TITLE \"\"\n0 0 0\n", 2, "0 0 0", "LUT_1D_SIZE or LUT_3D_SIZE"},
      {"a.cube", "", 1, "", "LUT_1D_SIZE or LUT_3D_SIZE"},
      {"a.cube", "DOMAIN_MIN 1 0 0\nLUT_3D_SIZE 2\n" + cube, 1, "DOMAIN_MIN 1 0 0", "a minimum below"},
      {"a.cube", "LUT_3D_INPUT_RANGE 0 2\nDOMAIN_MAX 1 1 1\nLUT_3D_SIZE 2\n" + cube, 2, "DOMAIN_MAX",
       "the same domain"},
      {"a.cube", "DOMAIN_MAX 2 1 1\nLUT_1D_SIZE 2\nLUT_3D_SIZE 2\n", 1, "DOMAIN_MAX 2 1 1",
       "0 to 1 with two tables"},
      {"a.cube", "# Truelight Cube v2.0\n", 1, "# Truelight", "keywords"},
      // bytes
      {"a.cube", std::string("LUT_3D_SIZE 2\n#\0\n", 17), 2, std::string(1, '\0'), "NUL"},
      {"a.cube", "\xFF\xFEL", 1, "UTF-16", "UTF-8"},
      // .3dl
      {"a.3dl", cube255.substr(0, 40), 5, "5 rows", "8 rows, 27 rows"},
      {"a.3dl", "Mesh 2 8\n" + cube255, 9, "8 rows", "125 rows"},
      {"a.3dl", "0 0 0\n0 0 1.0\n", 2, "1.0", "an integer"},
      {"a.3dl", "0 0\n", 1, "", "an integer"},
      {"a.3dl", "0 60 128 255\n", 1, "0 60 128 255", "evenly"},
      {"a.3dl", "0 64 128 191 255\n0 85 170 255\n", 2, "0 85 170 255", "three integers"},
      {"a.3dl", "0 0 0\n0 85 170 255\n", 2, "0 85 170 255", "three integers"},
      {"a.3dl", "<xml>\n", 1, "<xml>", ".3dl"},
      {"a.3dl", "0 0 0\n0 0 1\n0 1 0\n0 1 1\n1 0 0\n1 0 1\n1 1 0\n1 1 1\n", 8, "1 as the greatest", "128"},
      // .spi1d and .spi3d
      {"a.spi1d", spi1d + "0\n}\n", 6, "1 rows", "2 rows"},
      {"a.spi1d", spi1d + "0\n1\n2\n}\n", 7, "2", "}"},
      {"a.spi1d", "Version 2\n", 1, "2", "1"},
      {"a.spi1d", "Version 1\nLength 2\n{\n", 3, "{", "Components"},
      {"a.spi1d", "Version 1\nFrom 1 1\n", 2, "1 1", "a minimum below"},
      {"a.spi1d", "Version 1\nFormat any\nType C\n", 3, "", "{"},
      {"a.spi3d", "SPILUT 1.0\n3 3\n2 2 3\n", 3, "2 2 3", "equal"},
      {"a.spi3d", spi3d + "0 0 2 0 0 0\n" + spi3dRows, 4, "2", "a number from 0 to 1"},
      {"a.spi3d", spi3d + "0 0 0 0 0 0\n" + spi3dRows, 5, "0 0 0 0 0 0", "each position once"},
      {"a.spi3d", spi3d + spi3dRows.substr(12), 10, "7 rows", "8 rows"},
      // .csp
      {"a.csp", csp + "BEGIN METADATA\nno end\n", 4, "", "END METADATA"},
      {"a.csp", csp + "2\n0 0\n0 1\n", 4, "0 0", "rising"},
      {"a.csp", csp + "2\n0 1 2\n0 1\n", 4, "0 1 2", "2 numbers"},
      {"a.csp", csp + "1\n0\n0\n", 3, "1", "no points"},
      {"a.csp", csp + noShaper + "2 2 3\n", 8, "2 2 3", "equal"},
      {"a.csp", csp + noShaper + "2 2 2\n" + cube + "more\n", 17, "more", "the end of the file"},
      // .lut
      {"a.lut", "LUT: 2 256\n", 1, "2", "1, 3 or 4"},
      {"a.lut", "LUT: 1 65536\n", 1, "65536", "half floats are not supported"},
      {"a.lut", "LUT: 1 1024 65536f\n", 1, "65536f", "half floats are not supported"},
      {"8to16f.lut", "LUT: 1 256\n", 1, "LUT: 1 256", "half floats are not supported"},
      {"photo16.lut", "LUT: 1 2\n0\n1\n", 1, "LUT: 1 2", "a depth"},
      {"a.lut", "LUT: 1 256\n65536\n", 2, "65536", "0 to 65535"},
      {"a.lut", "LUT8\n", 1, "LUT8", "not a supported .lut"},
  };
  for (const auto& [name, text, line, found, expected] : table) {
    const auto lut = readText(text, name);
    ASSERT_FALSE(lut) << text;
    const auto& [reason, error, where] = lut.error();
    EXPECT_EQ(reason, Failure::Reason::refused);
    EXPECT_EQ(where.line, line) << text << where.description();
    EXPECT_TRUE(found.empty() ? where.found.empty() : where.found.starts_with(found))
        << text << where.description();
    EXPECT_THAT(where.expected, testing::HasSubstr(expected)) << text;
  }
  for (const auto* text : {"", "#\n", "hello\n", "1 2\n", "1.5 2 3\n"})
    EXPECT_EQ(readText(text, "a.txt").error().reason, Failure::Reason::unknownFormat) << text;
}

TEST(Reading, RefusesWhatIsNoNumberInEveryFormat) {
  // Texts before a word and after it: as the first or another one of a row, and in a header.
  const std::tuple<std::string, std::string, std::string, bool> rows[] = {
      {"a.cube", "LUT_1D_SIZE 2\n", " 0 0\n1 1 1\n", false},
      {"a.cube", "LUT_1D_SIZE 2\n0 0 0\n1 1 ", "\n", false},
      {"a.cube", "LUT_3D_SIZE 2\nDOMAIN_MIN -1 ", " -1\n" + cube, false},
      {"a.3dl", cube255, " 5 5\n", true},
      {"a.3dl", "0 0 ", "\n" + cube255.substr(6), true},
      {"a.spi1d", "Version 1\nLength 2\nComponents 1\n{\n", "\n1\n}\n", false},
      {"a.spi1d", "Version 1\nFrom ", " 1\nLength 2\nComponents 1\n{\n0\n1\n}\n", false},
      {"a.spi3d", spi3d, " 0 0 0 0 0\n" + spi3dRows.substr(12), true},
      {"a.spi3d", spi3d + "0 0 0 0 ", " 0\n" + spi3dRows.substr(12), false},
      {"a.csp", csp + "2\n-1 ", "\n0 1\n0\n0\n2 2 2\n" + cube, false},
      {"a.csp", csp + noShaper + "2 2 2\n", " 0 0\n" + cube.substr(6), false},
      {"a.lut", "LUT: 1 2 256\n", "\n255\n", true},
  };
  for (const auto& [name, before, after, isInteger] : rows) {
    EXPECT_TRUE(name == "a.3dl" || readText(before + "0" + after, name)) << before;
    for (const std::string word : {"nan", "-NaN", "inf", "+Infinity", "0x1p0", "1e400", "-1e400", "1e39",
                                   "1e-400", "1e-60", "+", "-", ".", "1,5", "+-1", "1e", "1f", "1.5.2"}) {
      const auto lut = readText(before + word + after, name);
      if (word.starts_with("1e-") && !isInteger) {
        EXPECT_TRUE(lut) << before << word;
        continue;
      }
      // A .3dl has remarks, which begin with no number.
      const bool isRemark =
          before == cube255 && (word == "0x1p0" || word == "1f" || word == "+" || word == "-");
      ASSERT_EQ(static_cast<bool>(lut), isRemark) << before << word;
      if (lut) continue;
      EXPECT_EQ(lut.error().where.line, std::ranges::count(before, '\n') + 1U) << before << word;
      EXPECT_EQ(lut.error().where.found, word) << before;
    }
  }
}

TEST(Reading, TakesOnlyRegularFilesAndLogsTheRest) {
  const TemporaryFolder folder;
  const auto good = folder.file("good.cube", "LUT_3D_SIZE 2\n" + cube);
  EXPECT_TRUE(readFile(folder.link("link.cube", good)));
  const RecordedLog log;
  const auto pipe = folder / "pipe.cube";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::vector<std::pair<std::filesystem::path, std::errc>> table{
      {folder.folder("folder.cube"), std::errc::is_a_directory},
      {pipe, std::errc::invalid_argument},
      {folder / "none.cube", std::errc::no_such_file_or_directory},
  };
  for (const auto& [path, error] : table) {
    EXPECT_EQ(readFile(path).error().error, error);
    EXPECT_EQ(describeFile(path).error().reason, Failure::Reason::cannotOpen);
  }
  std::filesystem::resize_file(folder.file("huge.cube"), std::uintmax_t{1} << 40);
  EXPECT_EQ(readFile(folder / "huge.cube").error().error, std::errc::file_too_large);
  EXPECT_THAT(log.lines(), testing::Each(testing::HasSubstr("QLC_CLUT_PTFB-Failed to open lut file ")));
  EXPECT_EQ(log.lines().size(), 7U);
}

TEST(Reading, DescribesFromTheBeginning) {
  const TemporaryFolder folder;
  const std::string comments = "#" + std::string(70'000, '-') + "\n" + std::string(300'000, '\n');
  for (const auto& [name, text] : std::vector<std::pair<std::string, std::string>>{
           {"a.cube", comments + "TITLE \"a\"\nDOMAIN_MAX 2 2 2\nLUT_3D_SIZE 2\n"},
           {"b", comments + "LUT_1D_SIZE 2\nLUT_3D_SIZE 33\n0 0"},
           {"a.spi1d", "Version 1\nFrom 0 2\nLength 1000\nComponents 1\n{\n"},
           {"a.spi3d", "SPILUT 1.0\n3 3\n65 65 65\n"},
           {"a.csp", csp + "2\n0 2\n0 1\n0\n0\n" + comments + "2 2 2\n"},
           {"a.lut", "LUT: 3 1024\n"}}) {
    const auto facts = describeFile(folder.file(name, text));
    ASSERT_TRUE(facts) << name << facts.error().description();
    EXPECT_FALSE(readFile(folder / name)) << name;
    EXPECT_EQ(facts->size1D.has_value(), facts->kind != Kind::threeD) << name;
    EXPECT_EQ(decode<Description>(encode(*facts)), *facts) << name;
  }
  EXPECT_EQ(describeFile(folder / "a.csp")->domain.max, (Rgb{2, 1, 1}));
  EXPECT_EQ(describeFile(folder / "b")->size3D, edge33);
  for (const auto* key : {"kind", "depth", "size3D", "domainMin", "domainMax"}) {
    for (const CodedValue& value :
         {CodedValue(std::int64_t{-1}), {CodedList{-1.0, 2.0}}, {CodedList{0.0, 1.0, 0.0}}}) {
      CodedRecord record;
      record.add(key, value);
      EXPECT_THROW(decode<Description>(record), DecodingError) << key;
    }
  }
  EXPECT_EQ(decode<Description>(CodedRecord()), Description());
  const auto whole = folder.file("whole.3dl", comments + cube255);
  EXPECT_EQ(*describeFile(whole), readFile(whole)->description());
  EXPECT_FALSE(describeFile(folder.file("bad.cube", "LUT_3D_SIZE 1\n" + comments)));
}

TEST(Writing, ReadsBackTheSame) {
  std::mt19937 random(21);
  std::uniform_real_distribution<float> exponents(-40, 38);
  const auto any = [&](const Rgb&) {
    Rgb color;
    for (float& value : color)
      value = std::pow(10.0F, exponents(random)) * (random() % 2 == 0 ? 1.0F : -1.0F);
    return color;
  };
  const Domain wide{{-1, -1, -1}, {8, 8, 8}};
  const Lut curves(*Table1D::sampled(100, any, wide));
  const Lut cubes(*Table3D::sampled(5, any));
  Lut both(*curves.table1D(), *Table3D::sampled(3, any, wide));
  both.header.title = "line\nbreak";
  for (const auto& [lut, format, name] : std::vector<std::tuple<Lut, Format, std::string>>{
           {curves, Format::cube, "a.cube"},
           {curves, Format::spi1d, "a.spi1d"},
           {cubes, Format::cube, "a.cube"},
           {cubes, Format::spi3d, "a.spi3d"},
           {both, Format::cube, "a.cube"},
           {Lut(*Table3D::sampled(2, any, {{-1, 0, 0}, {1, 2, 3}})), Format::cube, "a.cube"}}) {
    const auto text = textOf(lut, format);
    ASSERT_TRUE(text);
    const auto again = readText(*text, name);
    ASSERT_TRUE(again) << again.error().description();
    EXPECT_TRUE(again->table1D() ? lut.table1D() && *again->table1D() == *lut.table1D() : !lut.table1D());
    EXPECT_TRUE(again->table3D() ? lut.table3D() && *again->table3D() == *lut.table3D() : !lut.table3D());
  }
  Lut titled = curves;
  titled.header = {.title = "with \"quotes\"", .comments = "one\n\ntwo\n"};
  std::istringstream stream(*textOf(titled, Format::cube));
  EXPECT_EQ(*readStream(stream), titled);
  EXPECT_FALSE(textOf(both, Format::spi3d) || textOf(cubes, Format::spi1d) || textOf(cubes, Format::csp));
  EXPECT_FALSE(textOf(Lut(*cubes.table3D(), Curves{}), Format::cube));
}

}  // namespace
}  // namespace quillonic::lut
