// The run-time conventions' conversions of text, as the import reads the
// fields of a file and the settings read their attributes: numbers with ","
// and ".", Val, CDbl, CInt, CLng, CBool, IsDate and CDate, a date and a
// number written back as text, and the Windows-1252 conversions.
//
// A host::Error is a valid outcome of a conversion that may fail. Beyond
// crashes, the target checks what the conventions promise:
//  - Val never fails;
//  - CInt and CLng round alike: a text CInt takes, CLng takes to the same
//    number;
//  - IsDate says whether CDate takes the text;
//  - a number written as text (15 significant digits) and read back writes
//    the same text, and a date written as text reads back as the same date;
//  - a number taken as a date's serial, as CDate takes a number, writes as a
//    date or fails with an error;
//  - FromAnsi then ToAnsi gives every byte back.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "connector/host/Ansi.h"
#include "connector/host/Conversions.h"
#include "connector/host/Date.h"
#include "connector/host/Error.h"
#include "connector/host/Regional.h"
#include "connector/host/Variant.h"

namespace {

using host::Variant;

[[noreturn]] void Broken(const char* promise, std::string_view text) {
  std::fprintf(stderr, "conversions break their promise: %s\n  text: \"%.*s\"\n", promise,
               static_cast<int>(text.size()), text.data());
  std::abort();
}

template <typename Convert>
auto Try(Convert convert) -> std::optional<decltype(convert())> {
  try {
    return convert();
  } catch (const host::Error&) {
    return std::nullopt;
  }
}

// A number written as text reads back as a number that writes the same text.
void CheckNumberText(double value, std::string_view input) {
  const std::optional<std::string> text = Try([&] { return host::NumberText(value); });
  if (!text) return;  // too large to write
  const std::optional<double> back = Try([&] { return host::ParseNumber(*text, ","); });
  if (!back) Broken("a number written as text reads back", input);
  if (host::NumberText(*back) != *text)
    Broken("a number written as text reads back the same", input);
  const std::optional<double> regional = Try([&] { return host::CDbl(Variant(*text)); });
  if (!regional || *regional != *back) Broken("CDbl reads what CStr writes", input);
}

// A date written as text (the regional short date and long time) reads back
// as the same date, to the second.
void CheckDateText(host::Date date, std::string_view input) {
  const std::string text = host::DateText(date);
  const std::string full = host::FormatDate(date, "dd-mm-yyyy hh:nn:ss");
  const std::string iso = host::FormatDate(date, "yyyy-mm-dd hh:nn:ss");
  if (host::DatePart(date).serial == 0) return;  // a time alone reads as day 0 anyway
  for (const std::string& written : {text, full, iso}) {
    if (!host::IsDate(Variant(written))) Broken("a date written as text is a date", input);
    const host::Date back = host::CDate(Variant(written));
    if (host::FormatDate(back, "yyyymmddhhnnss") != host::FormatDate(date, "yyyymmddhhnnss")) {
      Broken("a date written as text reads back as the same date", input);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  host::SetCurrentRegional(host::RegionalSettings::Portuguese());
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);

  // Windows-1252: every byte is a character and comes back as it was.
  const std::string text = host::FromAnsi(bytes);
  if (host::ToAnsi(text) != bytes) Broken("FromAnsi then ToAnsi gives the bytes back", bytes);
  // Any bytes, valid UTF-8 or not, go to Windows-1252 without a fault.
  (void)host::ToAnsi(bytes);

  // The conversions read the text as the import does, once it has come
  // through FromAnsi, and as the settings do, as it stands.
  for (const std::string_view input : {std::string_view(text), bytes}) {
    const Variant value(input);
    for (const char* separator : {",", "."}) {
      if (auto number = Try([&] { return host::ParseNumber(input, separator); })) {
        CheckNumberText(*number, input);
      }
    }
    double val;
    try {
      val = host::Val(input);
    } catch (const host::Error&) {
      Broken("Val never fails", input);
    }
    CheckNumberText(val, input);

    const std::optional<double> number = Try([&] { return host::CDbl(value); });
    const std::optional<int16_t> integer = Try([&] { return host::CInt(value); });
    const std::optional<int32_t> long_integer = Try([&] { return host::CLng(value); });
    if (integer && (!long_integer || *long_integer != *integer)) {
      Broken("CLng takes what CInt takes, to the same number", input);
    }
    if (long_integer && !number) Broken("CLng takes only what CDbl takes", input);
    (void)Try([&] { return host::CBool(value); });

    const bool is_date = host::IsDate(value);
    const std::optional<host::Date> date = Try([&] { return host::CDate(value); });
    if (is_date != date.has_value()) Broken("IsDate says whether CDate takes the text", input);
    if (date) CheckDateText(*date, input);

    // A number is a date's serial, as CDate takes it: it writes as a date,
    // or fails with an error when it is none.
    if (number) {
      if (auto serial = Try([&] { return host::CDate(Variant(*number)); })) {
        (void)Try([&] { return host::DateText(*serial); });
        (void)Try([&] { return host::FormatDate(*serial, "YYYYMMDD"); });
      }
    }
  }
  return 0;
}
