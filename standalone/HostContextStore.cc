#include "standalone/HostContextStore.h"

#include <sys/stat.h>

#include <functional>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "standalone/ReplaceRow.h"

namespace standalone {
namespace {

constexpr char kSource[] = "HostContext";

// A check of a value; returns an empty text when the value is good, else
// what the key takes.
using Check = std::function<std::string(const std::string& value)>;

struct KeyDefinition {
  const char* key;
  const char* fixed_default;  // nullptr: computed
  Check check;
};

std::string AnyText(const std::string&) { return ""; }

std::string ExistingFolder(const std::string& value) {
  struct stat info;
  if (value.empty() || ::stat(value.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
    return "an existing folder";
  }
  return "";
}

std::string NonEmpty(const std::string& value) { return value.empty() ? "a non-empty text" : ""; }

std::string WholeNumber(const std::string& value) {
  const std::string expected = "a whole number from 0 to 9999";
  if (value.empty() || value.size() > 4) return expected;
  for (char c : value) {
    if (c < '0' || c > '9') return expected;
  }
  return "";
}

std::string TruthValue(const std::string& value) {
  try {
    host::CBool(host::Variant(value));
    return "";
  } catch (const host::Error&) {
    return "True or False";
  }
}

std::string Separator(const std::string& value) {
  if (host::Len(value) != 1 || (value[0] >= '0' && value[0] <= '9')) {
    return "one character that is not a digit";
  }
  return "";
}

std::string DatePattern(const std::string& value) {
  std::string upper = host::UCase(value);
  if (upper.find('D') == std::string::npos || upper.find('M') == std::string::npos ||
      upper.find('Y') == std::string::npos)
    return "a date pattern with d, m and y, such as dd-mm-yyyy";
  return "";
}

std::string TimePattern(const std::string& value) {
  if (host::UCase(value).find('H') == std::string::npos) {
    return "a time pattern with h, such as hh:mm:ss";
  }
  return "";
}

const std::vector<KeyDefinition>& Definitions() {
  static const std::vector<KeyDefinition> kDefinitions = {
      {"CompanyNumber", "1", AnyText},         {"WorkFolder", nullptr, ExistingFolder},
      {"ItemImageFolder", nullptr, NonEmpty},  {"TerminalCount", "1", WholeNumber},
      {"ExternalSeries", "False", TruthValue}, {"DecimalSeparator", ",", Separator},
      {"GroupSeparator", ".", Separator},      {"ShortDate", "dd-mm-yyyy", DatePattern},
      {"LongTime", "hh:mm:ss", TimePattern},
  };
  return kDefinitions;
}

const KeyDefinition& Definition(std::string_view key) {
  for (const KeyDefinition& definition : Definitions()) {
    if (host::EqualsNoCase(definition.key, key)) return definition;
  }
  std::string known;
  for (const KeyDefinition& definition : Definitions()) {
    known += known.empty() ? "" : ", ";
    known += definition.key;
  }
  host::RaiseWith(host::err::kInvalidProcedureCall,
                  "Unknown host key '" + std::string(key) + "' (known keys: " + known + ")",
                  kSource);
}

}  // namespace

HostContextStore::HostContextStore(host::DatabaseService& database, std::string default_work_folder)
    : database_(database), default_work_folder_(std::move(default_work_folder)) {}

std::string HostContextStore::DefaultOf(std::string_view key) const {
  const KeyDefinition& definition = Definition(key);
  if (definition.fixed_default != nullptr) return definition.fixed_default;
  if (std::string_view(definition.key) == "WorkFolder") return default_work_folder_;
  return Get("WorkFolder") + "/Imagens";  // ItemImageFolder
}

std::string HostContextStore::Get(std::string_view key) const {
  const KeyDefinition& definition = Definition(key);
  auto rs = database_.OpenRecordset(
      std::string("SELECT ContextValue FROM HostContext WHERE ContextKey='") + definition.key +
      "'");
  if (rs->Eof()) return DefaultOf(definition.key);
  return host::FieldConverter::ToText(rs->Fields(0));
}

std::vector<HostContextStore::Entry> HostContextStore::All() const {
  std::vector<Entry> entries;
  for (const KeyDefinition& definition : Definitions()) {
    entries.push_back({definition.key, Get(definition.key)});
  }
  return entries;
}

void HostContextStore::Set(std::string_view key, std::string_view value) {
  const KeyDefinition& definition = Definition(key);
  std::string text(value);
  std::string expected = definition.check(text);
  if (!expected.empty()) {
    host::RaiseWith(host::err::kInvalidProcedureCall,
                    "Invalid value '" + text + "' for " + definition.key + ": expected " + expected,
                    kSource);
  }
  std::string name = definition.key;
  if (name == "DecimalSeparator" || name == "GroupSeparator") {
    std::string other = Get(name == "DecimalSeparator" ? "GroupSeparator" : "DecimalSeparator");
    if (other == text) {
      host::RaiseWith(host::err::kInvalidProcedureCall,
                      "The decimal and group separators must differ", kSource);
    }
  }
  ReplaceRow(database_, "HostContext", {{"ContextKey", host::SqlValue::Text(name)}},
             {{"ContextValue", host::SqlValue::Text(text)}});
}

host::RegionalSettings HostContextStore::Regional() const {
  host::RegionalSettings settings = host::RegionalSettings::Portuguese();
  settings.decimal_separator = Get("DecimalSeparator");
  settings.group_separator = Get("GroupSeparator");
  settings.short_date = Get("ShortDate");
  settings.long_time = Get("LongTime");
  return settings;
}

int32_t HostContextStore::TerminalCount() const {
  return static_cast<int32_t>(host::Val(Get("TerminalCount")));
}

bool HostContextStore::ExternalSeries() const {
  return host::CBool(host::Variant(Get("ExternalSeries")));
}

}  // namespace standalone
