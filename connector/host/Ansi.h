#ifndef LUMARO_CONNECTOR_HOST_ANSI_H_
#define LUMARO_CONNECTOR_HOST_ANSI_H_

// The "ANSI" code page of the exchange files: Windows-1252.

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// UTF-8 to Windows-1252; a character outside the code page becomes "?".
std::string ToAnsi(std::string_view utf8);
// Windows-1252 to UTF-8. The five bytes that the code page leaves undefined
// map to the C1 controls of the same number.
std::string FromAnsi(std::string_view ansi);
// The same into `utf8`, whose room is reused: for a reader of line after line.
void FromAnsiInto(std::string_view ansi, std::string& utf8);

// A text file written in the ANSI code page, every line ended with CR LF,
// as the file system's TextStream does when opened "as ASCII".
class AnsiTextWriter {
 public:
  enum class Mode {
    kCreate,     // a new file, or the old one emptied
    kCreateNew,  // a new file; raises 58 when the file exists
    kAppend,     // lines added at the end; the file made when missing
  };
  // Opens for writing. Raises 76 "Path not found" when the folder is
  // missing, 70 on refusal.
  AnsiTextWriter(const std::string& path, Mode mode);
  ~AnsiTextWriter();
  AnsiTextWriter(const AnsiTextWriter&) = delete;
  AnsiTextWriter& operator=(const AnsiTextWriter&) = delete;

  // Raises 57 when the line cannot be written whole.
  void WriteLine(std::string_view utf8_line);
  void Close();  // flushes; raises when the write failed

 private:
  std::string path_;
  std::FILE* file_ = nullptr;
};

// Reads an ANSI text file line by line, as UTF-8: a line ends at CR LF or
// LF; a last line without its end still counts. Holds one line at a time.
class AnsiLineReader {
 public:
  // Raises 53 when the file is missing, 70 when it cannot be read.
  explicit AnsiLineReader(const std::string& path);
  ~AnsiLineReader();
  AnsiLineReader(const AnsiLineReader&) = delete;
  AnsiLineReader& operator=(const AnsiLineReader&) = delete;

  bool AtEndOfStream();
  // The next line into `utf8_line`; false at the end of the stream. Raises
  // 57 when the file cannot be read on.
  bool ReadLine(std::string& utf8_line);
  // The next line's bytes as they stand in the file (Windows-1252), without
  // its line end; valid until the read after the next one, so that a caller
  // may keep the line before without copying it. What ReadLine converts: a
  // reader that needs only some lines converts only those.
  bool ReadRawLine(std::string_view& ansi_line);

 private:
  std::string path_;
  std::FILE* file_ = nullptr;
  // getline's, each grown to the longest line it held; lines take turns.
  char* buffers_[2] = {nullptr, nullptr};
  size_t capacities_[2] = {0, 0};
  int next_ = 0;  // the buffer of the next line
};

// Every line of an ANSI text file, as AnsiLineReader reads them.
std::vector<std::string> ReadAnsiLines(const std::string& path);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ANSI_H_
