#include "app/ImportAccount.h"

#include <cctype>

#include "app/Paths.h"

namespace app {

const std::vector<std::string>& ImportAccount::TagOrder() {
  static const std::vector<std::string> order = {"VN", "CL", "FA", "AR", "AP", "AB", "AL", "AG"};
  return order;
}

void ImportAccount::FolderMissing(std::string_view folder) {
  folder_missing_ = true;
  missing_folder_ = AbsolutePath(folder);
}

void ImportAccount::FileSkipped(std::string_view file_name, std::string_view reason) {
  // The folder holds the export files and the error files too: of the files
  // passed over by their names, only the near misses ("itpv...") are told.
  std::string start(file_name.substr(0, 4));
  for (char& c : start) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  if (start != "ITPV") return;
  files_.push_back({std::string(file_name), std::string(reason), false, {}});
}

void ImportAccount::FileStarted(std::string_view file_name) {
  files_.push_back({std::string(file_name), "", false, {}});
}

void ImportAccount::Record(std::string_view tag, int64_t line, Outcome outcome,
                           std::string_view description) {
  if (files_.empty()) return;
  TagCounts& counts = files_.back().tags[std::string(tag)];
  switch (outcome) {
    case Outcome::kAdded:
      ++counts.added;
      break;
    case Outcome::kUpdated:
      ++counts.updated;
      break;
    case Outcome::kRefused:
      counts.refused.emplace_back(line, std::string(description));
      break;
  }
}

void ImportAccount::FileEnded(std::string_view, bool committed) {
  if (files_.empty()) return;
  files_.back().committed = committed;
}

std::string ImportAccount::FileNotImported() const {
  for (const File& file : files_) {
    if (file.skipped.empty() && !file.committed) return file.name;
  }
  return "";
}

std::vector<std::string> ImportAccount::Stops() const {
  std::vector<std::string> stops;
  if (folder_missing_) {
    stops.push_back((missing_folder_.empty()
                         ? std::string("the settings name no exchange folder")
                         : "the exchange folder " + missing_folder_ + " does not exist") +
                    "; no file was imported");
  }
  std::string undone = FileNotImported();
  if (!undone.empty()) {
    stops.push_back("the import of " + undone +
                    " was undone; it and the files after it wait for the next run");
  }
  return stops;
}

void ImportAccount::Print(std::ostream& out, bool dry_run) const {
  if (files_.empty()) out << "no import file to read\n";
  for (const File& file : files_) {
    out << file.name << ": ";
    if (!file.skipped.empty()) {
      out << "passed over, " << file.skipped << '\n';
      continue;
    }
    if (!file.committed) {
      out << "not imported: its changes are undone\n";
    } else {
      out << (dry_run ? "would be imported" : "imported") << '\n';
    }
    for (const std::string& tag : TagOrder()) {
      auto found = file.tags.find(tag);
      if (found == file.tags.end()) continue;
      const TagCounts& counts = found->second;
      out << "  " << tag << ": " << counts.added << " added, " << counts.updated << " updated, "
          << counts.refused.size() << " refused\n";
      for (const auto& [line, reason] : counts.refused) {
        out << "    line " << line << ": " << reason << '\n';
      }
    }
  }
}

}  // namespace app
