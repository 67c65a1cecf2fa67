#include "fuzz/FuzzHost.h"

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "connector/host/Date.h"
#include "connector/host/Regional.h"

namespace fuzzsupport {
namespace {

// The scratch folders still there, removed when the process exits.
std::vector<std::string>& FoldersLeft() {
  static auto* folders = new std::vector<std::string>();
  return *folders;
}

void RemoveFoldersLeft() {
  std::error_code ignored;
  for (const std::string& path : FoldersLeft()) std::filesystem::remove_all(path, ignored);
}

}  // namespace

ScratchFolder::ScratchFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "lumaro-fuzz-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
  static const bool registered = std::atexit(RemoveFoldersLeft) == 0;
  (void)registered;
  FoldersLeft().push_back(path_);
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

int SilentUI::MsgBox(std::string_view, int style, std::string_view) {
  return (style & 0x7) == host::msgbox::kYesNo ? host::msgbox::kNo : host::msgbox::kOk;
}

bool SilentUI::ShowForm(std::string_view) { return false; }

void QuietNotifier::ShowMessage(std::string_view, int, int& result) { result = host::msgbox::kOk; }

std::shared_ptr<host::SystemSettings> QuietNotifier::SystemSettings() {
  return host_.Context().Settings();
}

FuzzHost::FuzzHost() {
  host::SetCurrentRegional(host::RegionalSettings::Portuguese());
  host::SetClockOverride(host::MakeDate(2026, 3, 14, 10, 0, 0));
  host_ = std::make_unique<standalone::StandaloneHost>(
      standalone::OpenPosDatabase(folder_.File("vendara.db")), std::make_unique<SilentUI>(),
      standalone::Identity{1, 1, 1});
}

FuzzHost::~FuzzHost() {
  host_.reset();
  host::SetClockOverride(std::nullopt);
}

bool FuzzHost::RollBackAll() {
  standalone::SqliteDatabase& db = Db();
  bool was_open = db.InTransaction();
  while (db.InTransaction()) db.RollbackTrans();
  return was_open;
}

}  // namespace fuzzsupport
