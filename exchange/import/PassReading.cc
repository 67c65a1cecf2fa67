#include "exchange/import/PassReading.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Variant.h"
#include "exchange/import/ImportRun.h"

namespace lumaro {
namespace {

constexpr int32_t kProgressOfTotal = 4140039;

// Whether the line's first field is the tag, without splitting it.
// Tags are ASCII, which Windows-1252 and UTF-8 write alike: the test holds
// for a line's bytes before they are converted.
bool HasTag(std::string_view line, const std::string& tag) {
  return line.compare(0, tag.size(), tag) == 0 &&
         (line.size() == tag.size() || line[tag.size()] == '^');
}

}  // namespace

PassReading::PassReading(ImportRun& run, const std::string& path, std::string_view tag,
                         std::string_view title, int32_t total)
    : run_(run), reader_(path), tag_(tag), total_(total) {
  if (run_.notifier_) run_.notifier_->Detail(title);
}

bool PassReading::Next() {
  // Only the pass's own lines are converted; the last line of another tag
  // is kept as it stands, since at the end it is the line in hand.
  std::string_view raw;
  while (reader_.ReadRawLine(raw)) {
    ++line_number_;
    if (!HasTag(raw, tag_)) {
      last_other_line_ = raw;
      last_line_is_other_ = true;
      continue;
    }
    last_line_is_other_ = false;
    host::FromAnsiInto(raw, line_);
    SplitRecordInto(line_, record_);
    record_line_number_ = line_number_;
    return true;
  }
  if (last_line_is_other_) {
    host::FromAnsiInto(last_other_line_, line_);
    last_line_is_other_ = false;
  }
  return false;
}

void PassReading::CountAndReport() {
  ++count_;
  if (!run_.notifier_) return;
  std::string text = ModConnectorLumaro::Host().UIManager().Messages().Format(
      kProgressOfTotal, {host::Variant(count_), host::Variant(total_)});
  run_.notifier_->Progress(count_, total_, text);
}

}  // namespace lumaro
