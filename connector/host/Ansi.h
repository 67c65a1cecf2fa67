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

// A text file written in the ANSI code page, every line ended with CR LF,
// as the file system's TextStream does when opened "as ASCII".
class AnsiTextWriter {
 public:
  // Opens for writing. `create_new` fails with 58 when the file exists.
  // Raises 76 "Path not found" when the folder is missing, 70 on refusal.
  AnsiTextWriter(const std::string& path, bool create_new);
  ~AnsiTextWriter();
  AnsiTextWriter(const AnsiTextWriter&) = delete;
  AnsiTextWriter& operator=(const AnsiTextWriter&) = delete;

  void WriteLine(std::string_view utf8_line);
  void Close();  // flushes; raises when the write failed

 private:
  std::string path_;
  std::FILE* file_ = nullptr;
};

// Reads an ANSI text file's lines as UTF-8: up to CR LF or LF; a last line
// without its end still counts. Raises 53 when the file is missing.
std::vector<std::string> ReadAnsiLines(const std::string& path);

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ANSI_H_
