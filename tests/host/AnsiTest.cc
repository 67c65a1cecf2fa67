#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "connector/host/Ansi.h"
#include "connector/host/Text.h"
#include "tests/host/HostTestTools.h"

namespace host {
namespace {

TEST(AnsiCodePage, CharactersToBytesAndBack) {
  const std::pair<std::string, std::string> cases[] = {
      {"Conceição €", "Concei\xE7\xE3o \x80"},
      {"‚ƒŠŒŽ‘’“”•–—˜™šœžŸ",
       "\x82\x83\x8A\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9C\x9E\x9F"},
      {"a😀b中", "a?b?"},
      {"\u0080", "?"},    // a C1 control whose byte holds "€"
      {"x\xFFy", "x?y"},  // no UTF-8
  };
  for (const auto& [utf8, ansi] : cases) EXPECT_EQ(ToAnsi(utf8), ansi) << utf8;
  for (int byte = 0; byte < 256; ++byte) {
    const std::string ansi(1, static_cast<char>(byte));
    EXPECT_EQ(Len(FromAnsi(ansi)), 1u) << byte;
    EXPECT_EQ(ToAnsi(FromAnsi(ansi)), ansi) << byte;
  }
  EXPECT_EQ(FromAnsi("\x80\xE7\x9F\x81"), "€çŸ\u0081");
  // Runs of ASCII between the others, and a string reused for a shorter line.
  std::string reused = "a line longer than the next";
  FromAnsiInto("Ma\xE7\xE3 n.\xBA 5", reused);
  EXPECT_EQ(reused, "Maçã n.º 5");
}

// A fresh folder under the system's temporary folder, removed afterwards.
class AnsiFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "ansi-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  std::string PathOf(const std::string& name) const { return (folder_ / name).string(); }
  std::string BytesOf(const std::string& name) const {
    std::ifstream in(PathOf(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  std::filesystem::path folder_;
};

TEST_F(AnsiFiles, WriterEndsEveryLineWithCrLfAndReplacesOrRefusesAFile) {
  std::ofstream(PathOf("out.txt")) << "old content that is longer\r\n";
  {
    AnsiTextWriter writer(PathOf("out.txt"), AnsiTextWriter::Mode::kCreate);
    writer.WriteLine("Olá €;1,5");
    writer.WriteLine("");
    writer.WriteLine("中");
  }  // the destructor closes and keeps what was written
  EXPECT_EQ(BytesOf("out.txt"), "Ol\xE1 \x80;1,5\r\n\r\n?\r\n");
  EXPECT_EQ(
      RaisedNumber([&] { AnsiTextWriter(PathOf("out.txt"), AnsiTextWriter::Mode::kCreateNew); }),
      err::kFileAlreadyExists);
  EXPECT_EQ(BytesOf("out.txt"), "Ol\xE1 \x80;1,5\r\n\r\n?\r\n");

  const Error error = RaisedError(
      [&] { AnsiTextWriter(PathOf("missing/out.txt"), AnsiTextWriter::Mode::kCreateNew); });
  EXPECT_EQ(error.Number(), err::kPathNotFound);
  EXPECT_NE(error.Description().find(PathOf("missing/out.txt")), std::string::npos);
  EXPECT_EQ(RaisedNumber([&] { AnsiTextWriter(folder_.string(), AnsiTextWriter::Mode::kCreate); }),
            err::kPermissionDenied);  // a folder cannot be written as a file
  EXPECT_EQ(RaisedNumber([&] { ReadAnsiLines(PathOf("absent.txt")); }), err::kFileNotFound);
}

TEST_F(AnsiFiles, ReaderSplitsOnLfAndCrLf) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {"a", {"a"}},  // a last line without its end still counts
      {"a\nb\r\n", {"a", "b"}},
      {"a\r\n\r\n", {"a", ""}},
      {"a\rb\r\n", {"a\rb"}},  // a CR alone is no line end
      {"\xE7\x80\r\n", {"ç€"}},
  };
  for (const auto& [bytes, lines] : cases) {
    std::ofstream(PathOf("in.txt"), std::ios::binary) << bytes;
    EXPECT_EQ(ReadAnsiLines(PathOf("in.txt")), lines) << testing::PrintToString(bytes);
  }
}

TEST_F(AnsiFiles, ARawLineOutlivesTheNextRead) {
  std::ofstream(PathOf("in.txt"), std::ios::binary) << "first line\r\nsecond, a longer line\r\nthird";
  AnsiLineReader reader(PathOf("in.txt"));
  std::string_view before, line;
  ASSERT_TRUE(reader.ReadRawLine(before));
  std::string before_text = "first line";
  for (const char* next : {"second, a longer line", "third"}) {
    ASSERT_TRUE(reader.ReadRawLine(line));
    EXPECT_EQ(line, next);
    EXPECT_EQ(before, before_text);  // the line before, still as it was read
    before = line;
    before_text = next;
  }
  EXPECT_FALSE(reader.ReadRawLine(line));
  EXPECT_EQ(before, "third");  // the last line, kept through the end of the file
}

}  // namespace
}  // namespace host
