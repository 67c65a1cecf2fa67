#include "exchange/import/PassReading.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Variant.h"
#include "exchange/import/ImportRun.h"

namespace lumaro {
namespace {

constexpr int32_t kProgressOfTotal = 4140039;

// Whether the line's first field is the tag, without splitting it.
bool HasTag(const std::string& line, const std::string& tag) {
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
  while (reader_.ReadLine(line_)) {
    ++line_number_;
    if (!HasTag(line_, tag_)) continue;
    record_ = SplitRecord(line_);
    record_line_number_ = line_number_;
    return true;
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
