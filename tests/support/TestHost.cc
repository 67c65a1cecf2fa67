#include "tests/support/TestHost.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "connector/host/FieldConverter.h"
#include "connector/host/Regional.h"

namespace testsupport {

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "lumaro-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, ignored);
  std::filesystem::remove_all(path_, ignored);
}

int RecordingUI::MsgBox(std::string_view text, int style, std::string_view title) {
  boxes.push_back({std::string(text), style, std::string(title)});
  return (style & 0x7) == host::msgbox::kYesNo ? answer : host::msgbox::kOk;
}

bool RecordingUI::ShowForm(std::string_view form_name) {
  forms.emplace_back(form_name);
  return false;
}

void RecordingNotifier::Progress(int32_t current, int32_t total, std::string_view text) {
  progress.push_back({current, total, std::string(text)});
}

void RecordingNotifier::ShowMessage(std::string_view text, int, int& result) {
  messages.emplace_back(text);
  result = host::msgbox::kOk;
}

TestHost::TestHost(int workstation_id) {
  host::SetCurrentRegional(host::RegionalSettings::Portuguese());
  auto ui = std::make_unique<RecordingUI>();
  ui_ = ui.get();
  host_ = std::make_unique<standalone::StandaloneHost>(
      standalone::OpenPosDatabase(folder_.File("vendara.db")), std::move(ui),
      standalone::Identity{workstation_id, 1, 1});
}

TestHost::~TestHost() {
  host_.reset();
  host::SetClockOverride(std::nullopt);
  host::SetCurrentRegional(host::RegionalSettings::Portuguese());
}

std::string TestHost::Scalar(const std::string& sql) {
  auto rs = Db().OpenRecordset(sql);
  if (rs->Eof()) return "";
  return host::FieldConverter::ToText(rs->Fields(0));
}

std::string TestHost::Rows(const std::string& sql) { return testsupport::Rows(Db(), sql); }

std::string Rows(host::DatabaseService& db, const std::string& sql) {
  std::string rows;
  for (auto rs = db.OpenRecordset(sql); !rs->Eof(); rs->MoveNext()) {
    rows += (rows.empty() ? "" : ",") + host::FieldConverter::ToText(rs->Fields(0));
  }
  return rows;
}

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.good()) << "cannot read " << path;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

bool FileExists(const std::string& path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0;
}

}  // namespace testsupport
