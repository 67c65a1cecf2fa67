#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "connector/host/Ansi.h"
#include "connector/host/Text.h"
#include "tests/host/RaisedNumber.h"

namespace host {
namespace {

TEST(AnsiCodePage, CharactersToBytes) {
  struct Case {
    std::string utf8, ansi;
  };
  const Case cases[] = {
      {"abc 123\r\n", "abc 123\r\n"},
      {"€", "\x80"},
      {"ç", "\xE7"},
      {"Conceição", "Concei\xE7\xE3o"},
      {"‚ƒ„…†‡ˆ‰Š‹Œ", "\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C"},
      {"Ž‘’“”•–—˜™š›œžŸ", "\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"},
      {"\u00A0ÿ", "\xA0\xFF"},
      {"中文", "??"},
      {"a😀b", "a?b"},
      {"\u0080", "?"},  // a C1 control whose byte holds "€"
      {"\u0081", "\x81"},
      {"x\xFFy", "x?y"},  // no UTF-8
  };
  for (const Case& c : cases) EXPECT_EQ(ToAnsi(c.utf8), c.ansi) << c.utf8;
}

TEST(AnsiCodePage, EveryByteReadsBackAsWritten) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string ansi(1, static_cast<char>(byte));
    const std::string utf8 = FromAnsi(ansi);
    EXPECT_EQ(Len(utf8), 1u) << byte;
    EXPECT_EQ(ToAnsi(utf8), ansi) << byte;
  }
  EXPECT_EQ(FromAnsi("\x80\xE7\x9F"), "€çŸ");
  EXPECT_EQ(FromAnsi("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
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

  void WriteBytes(const std::string& name, const std::string& bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
  }

  std::filesystem::path folder_;
};

TEST_F(AnsiFiles, WriterEndsEveryLineWithCrLf) {
  AnsiTextWriter writer(PathOf("out.txt"), /*create_new=*/true);
  writer.WriteLine("Olá €;1,5");
  writer.WriteLine("");
  writer.WriteLine("中");
  writer.Close();
  writer.Close();  // a second Close does nothing
  EXPECT_EQ(BytesOf("out.txt"), "Ol\xE1 \x80;1,5\r\n\r\n?\r\n");
  EXPECT_EQ(ReadAnsiLines(PathOf("out.txt")), (std::vector<std::string>{"Olá €;1,5", "", "?"}));
}

TEST_F(AnsiFiles, WriterReplacesOrRefusesAnExistingFile) {
  WriteBytes("old.txt", "old content that is longer\r\n");
  {
    AnsiTextWriter writer(PathOf("old.txt"), /*create_new=*/false);
    writer.WriteLine("new");
  }  // the destructor closes and keeps what was written
  EXPECT_EQ(BytesOf("old.txt"), "new\r\n");
  EXPECT_EQ(RaisedNumber([&] { AnsiTextWriter(PathOf("old.txt"), true); }),
            err::kFileAlreadyExists);
  EXPECT_EQ(BytesOf("old.txt"), "new\r\n");
}

TEST_F(AnsiFiles, OpenFailuresRaiseTheirNumbers) {
  std::filesystem::create_directory(folder_ / "sub");
  struct Case {
    std::string path;
    bool create_new;
    int32_t number;
  };
  const Case cases[] = {
      {PathOf("missing/out.txt"), false, err::kPathNotFound},
      {PathOf("missing/out.txt"), true, err::kPathNotFound},
      {PathOf("sub"), false, err::kPermissionDenied},  // a folder cannot be written as a file
  };
  for (const Case& c : cases) {
    try {
      AnsiTextWriter writer(c.path, c.create_new);
      ADD_FAILURE() << "opened " << c.path;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), c.number) << c.path;
      EXPECT_NE(error.Description().find(c.path), std::string::npos) << error.Description();
    }
  }
  EXPECT_EQ(RaisedNumber([&] { ReadAnsiLines(PathOf("absent.txt")); }), err::kFileNotFound);
}

TEST_F(AnsiFiles, ReaderSplitsOnLfAndCrLf) {
  struct Case {
    std::string bytes;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\n", {"a"}},
      {"a\n", {"a"}},
      {"a\r\nb", {"a", "b"}},
      {"a\nb\r\n", {"a", "b"}},
      {"a\r\n\r\n", {"a", ""}},
      {"\r\n", {""}},
      {"a\rb\r\n", {"a\rb"}},  // a CR alone is no line end
      {"\xE7\x80\r\n", {"ç€"}},
  };
  for (const Case& c : cases) {
    WriteBytes("in.txt", c.bytes);
    EXPECT_EQ(ReadAnsiLines(PathOf("in.txt")), c.lines) << testing::PrintToString(c.bytes);
  }
}

}  // namespace
}  // namespace host
