#ifndef LUMARO_TESTS_SUPPORT_TEST_HOST_H_
#define LUMARO_TESTS_SUPPORT_TEST_HOST_H_

// What the tests share: a temporary folder, a stand-alone host over a fresh
// POS database in it, and fakes that stand in for the person (message box
// answers) and for the host's notifier (records what it got).

#include <memory>
#include <string>
#include <vector>

#include "connector/host/IConnectorEvents.h"
#include "connector/host/UIManager.h"
#include "standalone/PortugueseCatalogue.h"
#include "standalone/StandaloneHost.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace testsupport {

// A new empty folder under the system's temporary folder, removed with its
// contents at the end.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

// Stands in for the person: records each message box and answers questions
// with `answer` (Yes by default).
class RecordingUI : public host::UIManager {
 public:
  struct Box {
    std::string text;
    int style;
    std::string title;
  };
  const host::MessageCatalogue& Messages() const override { return catalogue_; }
  int MsgBox(std::string_view text, int style, std::string_view title = "") override;
  bool ShowForm(std::string_view form_name) override;
  void Refresh() override { ++refreshes; }

  std::vector<Box> boxes;
  int refreshes = 0;
  std::vector<std::string> forms;
  int answer = host::msgbox::kYes;

 private:
  standalone::PortugueseCatalogue catalogue_;
};

// Stands in for the host's notifier: records what it got.
class RecordingNotifier : public host::IConnectorEvents {
 public:
  struct Step {
    int32_t current;
    int32_t total;
    std::string text;
  };
  void Progress(int32_t current, int32_t total, std::string_view text) override;
  void Detail(std::string_view text) override { details.emplace_back(text); }
  void ShowMessage(std::string_view text, int style, int& result) override;
  std::shared_ptr<host::SystemSettings> SystemSettings() override { return settings; }

  std::vector<Step> progress;
  std::vector<std::string> details;
  std::vector<std::string> messages;
  std::shared_ptr<host::SystemSettings> settings;
};

// A stand-alone host over a new POS database "vendara.db" in its own
// temporary folder (which is also the host's work folder).
class TestHost {
 public:
  explicit TestHost(int workstation_id = 1);
  ~TestHost();

  standalone::StandaloneHost& Host() { return *host_; }
  // The host's database, which is always a SQLite file here.
  standalone::SqliteDatabase& Db() {
    return static_cast<standalone::SqliteDatabase&>(host_->Database());
  }
  RecordingUI& UI() { return *ui_; }
  const TempFolder& Folder() const { return folder_; }
  // Runs SQLite statements as they stand.
  void Exec(const std::string& sql) { Db().ExecuteScript(sql); }
  // The first column of the first row of a query, as text ("" when none).
  std::string Scalar(const std::string& sql);
  // The first column of every row of a query, as text, joined with ",".
  std::string Rows(const std::string& sql);

 private:
  TempFolder folder_;
  RecordingUI* ui_;
  std::unique_ptr<standalone::StandaloneHost> host_;
};

// The first column of every row of a query on `db`, as text, joined with ",".
std::string Rows(host::DatabaseService& db, const std::string& sql);

// The bytes of a file; fails the test when it cannot be read.
std::string ReadBytes(const std::string& path);
bool FileExists(const std::string& path);

}  // namespace testsupport

#endif  // LUMARO_TESTS_SUPPORT_TEST_HOST_H_
