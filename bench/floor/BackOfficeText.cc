#include "bench/floor/BackOfficeText.h"

#include <strings.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

// Windows-1252's 0x80 to 0x9F; 0 where the code page has no character.
constexpr char16_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

bool AllDigits(std::string_view text) {
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return !text.empty();
}

int Number(std::string_view digits) { return std::atoi(std::string(digits).c_str()); }

}  // namespace

LineReader::LineReader(const std::string& path) : file_(std::fopen(path.c_str(), "rb")) {
  if (file_ == nullptr) throw std::runtime_error("cannot read " + path + ": " + strerror(errno));
}

LineReader::~LineReader() {
  std::free(buffer_);
  std::fclose(file_);
}

bool LineReader::Next(std::string_view& line) {
  ssize_t size = getline(&buffer_, &capacity_, file_);
  if (size < 0) return false;
  while (size > 0 && (buffer_[size - 1] == '\n' || buffer_[size - 1] == '\r')) --size;
  line = std::string_view(buffer_, static_cast<size_t>(size));
  return true;
}

LineWriter::LineWriter(const std::string& path) : file_(std::fopen(path.c_str(), "wb")) {
  if (file_ == nullptr) throw std::runtime_error("cannot write " + path + ": " + strerror(errno));
}

LineWriter::~LineWriter() { std::fclose(file_); }

void LineWriter::Write(std::string_view line) {
  if (std::fwrite(line.data(), 1, line.size(), file_) != line.size() ||
      std::fputs("\r\n", file_) == EOF) {
    throw std::runtime_error(std::string("cannot write a line: ") + strerror(errno));
  }
  ++lines_;
}

void Fields::Split(std::string_view line) {
  fields_.clear();
  size_t start = 0;
  for (size_t found; (found = line.find('^', start)) != std::string_view::npos; start = found + 1) {
    fields_.push_back(line.substr(start, found - start));
  }
  fields_.push_back(line.substr(start));
}

std::string Utf8FromWindows1252(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 8);
  for (char byte : text) {
    auto c = static_cast<unsigned char>(byte);
    if (c >= 0x80 && c < 0xA0) {
      char16_t mapped = kHighControls[c - 0x80];
      AppendUtf8(out, mapped != 0 ? mapped : c);
    } else {
      AppendUtf8(out, c);
    }
  }
  return out;
}

std::string Windows1252FromUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
      out += static_cast<char>(c);
      continue;
    }
    // Two-byte sequences from U+00A0 to U+00FF only.
    if ((c == 0xC2 || c == 0xC3) && i + 1 < text.size()) {
      unsigned code = ((c & 0x1F) << 6) | (static_cast<unsigned char>(text[i + 1]) & 0x3F);
      if (code >= 0xA0) {
        out += static_cast<char>(code);
        ++i;
        continue;
      }
    }
    throw std::runtime_error("no Windows-1252 character for the text " + std::string(text));
  }
  return out;
}

std::string_view Trim(std::string_view text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view LeftCharacters(std::string_view text, size_t count) {
  size_t i = 0;
  for (size_t characters = 0; i < text.size(); ++i) {
    // A character starts at every byte that is no continuation byte.
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80 && characters++ == count) break;
  }
  return text.substr(0, i);
}

double CommaNumber(std::string_view text) {
  std::string copy(Trim(text));
  for (char& c : copy) {
    if (c == ',') c = '.';
  }
  char* end = nullptr;
  double value = std::strtod(copy.c_str(), &end);
  if (copy.empty() || *end != '\0') {
    throw std::runtime_error("not a number: '" + std::string(text) + "'");
  }
  return value;
}

bool Truth(std::string_view text) {
  std::string_view trimmed = Trim(text);
  auto is = [&](std::string_view word) {
    return trimmed.size() == word.size() &&
           strncasecmp(trimmed.data(), word.data(), word.size()) == 0;
  };
  if (is("true")) return true;
  if (is("false")) return false;
  return CommaNumber(trimmed) != 0;
}

std::optional<std::string> StoredDate(std::string_view text) {
  if (text.size() != 10 || text[2] != '-' || text[5] != '-') return std::nullopt;
  std::string_view day = text.substr(0, 2), month = text.substr(3, 2), year = text.substr(6, 4);
  if (!AllDigits(day) || !AllDigits(month) || !AllDigits(year)) return std::nullopt;
  int d = Number(day), m = Number(month), y = Number(year);
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  if (m < 1 || m > 12 || d < 1 || d > kDays[m - 1] + (m == 2 && leap ? 1 : 0)) return std::nullopt;
  return std::string(year) + "-" + std::string(month) + "-" + std::string(day) + " 00:00:00";
}

double RoundMoney(double value) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.15g", value * 10000);
  return std::round(std::strtod(digits, nullptr)) / 10000;
}

Clock Clock::Parse(std::string_view now) {
  if (now.size() != 19 || now[10] != ' ') {
    throw std::runtime_error("a clock is \"YYYY-MM-DD HH:MM:SS\", not '" + std::string(now) + "'");
  }
  return {std::string(now.substr(0, 10)) + " 00:00:00",
          "1899-12-30 " + std::string(now.substr(11))};
}

}  // namespace bench
