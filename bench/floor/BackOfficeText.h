#ifndef LUMARO_BENCH_FLOOR_BACK_OFFICE_TEXT_H_
#define LUMARO_BENCH_FLOOR_BACK_OFFICE_TEXT_H_

// The text forms the benchmark's programs share: the back office's files
// (Windows-1252, CR LF, "^"-separated, dates DD-MM-YYYY, numbers with a
// decimal comma) and the stored forms of the POS database (UTF-8, dates
// "YYYY-MM-DD HH:MM:SS", a time of day on 30-12-1899, money to 4 decimals).

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

// Reads a file a line at a time, without its line end (CR LF or LF).
class LineReader {
 public:
  explicit LineReader(const std::string& path);
  ~LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  // False at the end of the file; `line` stays valid until the next call.
  bool Next(std::string_view& line);

 private:
  std::FILE* file_;
  char* buffer_ = nullptr;
  size_t capacity_ = 0;
};

// Writes lines ending with CR LF.
class LineWriter {
 public:
  explicit LineWriter(const std::string& path);
  ~LineWriter();
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  void Write(std::string_view line);
  long Lines() const { return lines_; }

 private:
  std::FILE* file_;
  long lines_ = 0;
};

// The fields of a record: position 0 is its tag. A position past the end
// reads as empty text.
class Fields {
 public:
  void Split(std::string_view line);
  std::string_view operator[](size_t position) const {
    return position < fields_.size() ? fields_[position] : std::string_view();
  }

 private:
  std::vector<std::string_view> fields_;
};

// Text conversions between the file's code page and the database's UTF-8.
// The writer takes only characters that Windows-1252 has at the same code
// point as Unicode (ASCII and U+00A0 to U+00FF); it throws on any other.
std::string Utf8FromWindows1252(std::string_view text);
std::string Windows1252FromUtf8(std::string_view text);

std::string_view Trim(std::string_view text);
// The first `count` characters of UTF-8 text.
std::string_view LeftCharacters(std::string_view text, size_t count);

// "12,5" -> 12.5; throws on text that is no number.
double CommaNumber(std::string_view text);
// A truth value: True/False in any case, or a number (0 is false).
bool Truth(std::string_view text);
// "DD-MM-YYYY" -> "YYYY-MM-DD 00:00:00"; nothing when the text is no such
// date.
std::optional<std::string> StoredDate(std::string_view text);

// The money rounding of the POS's tax calculator: to 4 decimals, half away
// from zero, after cutting the product to 15 significant digits.
double RoundMoney(double value);

// The clock of a run, given as the lumaro program takes it
// ("YYYY-MM-DD HH:MM:SS"), in the stored forms of a date alone and of a time
// alone.
struct Clock {
  std::string today;        // "YYYY-MM-DD 00:00:00"
  std::string time_of_day;  // "1899-12-30 HH:MM:SS"
  static Clock Parse(std::string_view now);
};

}  // namespace bench

#endif  // LUMARO_BENCH_FLOOR_BACK_OFFICE_TEXT_H_
