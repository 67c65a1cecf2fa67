#include "connector/host/Ansi.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "connector/host/Error.h"
#include "connector/host/Utf8.h"

namespace host {

namespace {

// The characters of bytes 0x80 to 0x9F, where Windows-1252 departs from
// Latin-1. The five bytes the code page leaves undefined keep the C1 control
// of their own number, so that every byte reads back as it was written.
constexpr int32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

int32_t CharacterOfByte(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80] : byte;
}

// The byte of a character, or '?' when the code page lacks it.
char ByteOfCharacter(int32_t code_point) {
  if (code_point >= 0 && code_point <= 0xFF && (code_point < 0x80 || code_point > 0x9F)) {
    return static_cast<char>(code_point);
  }
  for (int i = 0; i < 32; ++i) {
    if (kHighControls[i] == code_point) return static_cast<char>(0x80 + i);
  }
  return '?';
}

// Raises `number` with its standard description and the file's path.
[[noreturn]] void RaiseForFile(int32_t number, const std::string& path) {
  RaiseWith(number, StandardDescription(number) + ": " + path);
}

}  // namespace

std::string ToAnsi(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  for (size_t pos = 0; pos < utf8.size();) result.push_back(ByteOfCharacter(utf8::Next(utf8, pos)));
  return result;
}

std::string FromAnsi(std::string_view ansi) {
  std::string result;
  FromAnsiInto(ansi, result);
  return result;
}

void FromAnsiInto(std::string_view ansi, std::string& utf8) {
  utf8.clear();
  utf8.reserve(ansi.size());
  size_t pos = 0;
  while (pos < ansi.size()) {
    // ASCII reads the same in both: a run of it is copied whole.
    size_t run = pos;
    while (run < ansi.size() && static_cast<unsigned char>(ansi[run]) < 0x80) ++run;
    utf8.append(ansi.data() + pos, run - pos);
    if (run == ansi.size()) break;
    utf8::Append(utf8, CharacterOfByte(static_cast<unsigned char>(ansi[run])));
    pos = run + 1;
  }
}

AnsiTextWriter::AnsiTextWriter(const std::string& path, Mode mode) : path_(path) {
  const char* how = mode == Mode::kCreateNew ? "wbx" : mode == Mode::kAppend ? "ab" : "wb";
  file_ = std::fopen(path.c_str(), how);
  if (file_ == nullptr) {
    switch (errno) {
      case EEXIST:
        RaiseForFile(err::kFileAlreadyExists, path);
      case ENOENT:
      case ENOTDIR:
        RaiseForFile(err::kPathNotFound, path);
      default:
        RaiseForFile(err::kPermissionDenied, path);
    }
  }
}

AnsiTextWriter::~AnsiTextWriter() {
  if (file_ != nullptr) std::fclose(file_);
}

void AnsiTextWriter::WriteLine(std::string_view utf8_line) {
  if (file_ == nullptr) Raise(err::kOperationNotAllowedWhenClosed);
  const std::string line = ToAnsi(utf8_line) + "\r\n";
  // A write that does not take the whole line fails at once; one that fails
  // later, when the buffer goes to the disk, fails at Close.
  if (std::fwrite(line.data(), 1, line.size(), file_) != line.size()) {
    RaiseForFile(err::kDeviceIoError, path_);
  }
}

void AnsiTextWriter::Close() {
  if (file_ == nullptr) return;
  const bool write_failed = std::ferror(file_) != 0;
  const bool close_failed = std::fclose(file_) != 0;
  file_ = nullptr;
  if (write_failed || close_failed) RaiseForFile(err::kDeviceIoError, path_);
}

AnsiLineReader::AnsiLineReader(const std::string& path) : path_(path) {
  file_ = std::fopen(path.c_str(), "rb");
  if (file_ == nullptr) {
    RaiseForFile(errno == ENOENT || errno == ENOTDIR ? err::kFileNotFound : err::kPermissionDenied,
                 path);
  }
}

AnsiLineReader::~AnsiLineReader() {
  std::fclose(file_);
  std::free(buffers_[0]);
  std::free(buffers_[1]);
}

bool AnsiLineReader::AtEndOfStream() {
  int next = std::fgetc(file_);
  if (next == EOF) return true;
  std::ungetc(next, file_);
  return false;
}

bool AnsiLineReader::ReadLine(std::string& utf8_line) {
  std::string_view line;
  if (!ReadRawLine(line)) return false;
  FromAnsiInto(line, utf8_line);
  return true;
}

bool AnsiLineReader::ReadRawLine(std::string_view& ansi_line) {
  // getline counts what it read, so a NUL byte is a character like another.
  char*& buffer = buffers_[next_];
  ssize_t got = ::getline(&buffer, &capacities_[next_], file_);
  if (got < 0) {
    if (std::ferror(file_) != 0) RaiseForFile(err::kDeviceIoError, path_);
    return false;
  }
  next_ = 1 - next_;
  size_t length = static_cast<size_t>(got);
  if (length > 0 && buffer[length - 1] == '\n') {
    --length;
    if (length > 0 && buffer[length - 1] == '\r') --length;
  }
  ansi_line = std::string_view(buffer, length);
  return true;
}

std::vector<std::string> ReadAnsiLines(const std::string& path) {
  AnsiLineReader reader(path);
  std::vector<std::string> lines;
  for (std::string line; reader.ReadLine(line);) lines.push_back(line);
  return lines;
}

}  // namespace host
