#ifndef LUMARO_FUZZ_FUZZ_HOST_H_
#define LUMARO_FUZZ_FUZZ_HOST_H_

// What the fuzz targets that need a host share: a scratch folder, a
// stand-alone host over a new POS database in it, with fakes for the person
// (message boxes answered at once, without a word) and for the host's
// notifier (draws nothing, hands out the host's system settings).
//
// A fuzz target makes one FuzzHost for the whole process: a new POS database
// costs far more than an input.

#include <memory>
#include <string>

#include "connector/host/IConnectorEvents.h"
#include "connector/host/UIManager.h"
#include "standalone/PortugueseCatalogue.h"
#include "standalone/StandaloneHost.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace fuzzsupport {

// A new empty folder under the system's temporary folder, removed with its
// contents when the object goes, or at the latest when the process exits
// normally (the targets keep their host for the life of the process and
// never destroy it; a process that crashes leaves the folder behind).
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

// Stands in for the person: every message box is answered at once (No to a
// question, OK otherwise) and no form opens.
class SilentUI : public host::UIManager {
 public:
  const host::MessageCatalogue& Messages() const override { return catalogue_; }
  int MsgBox(std::string_view text, int style, std::string_view title = "") override;
  bool ShowForm(std::string_view form_name) override;

 private:
  standalone::PortugueseCatalogue catalogue_;
};

// Stands in for the host's notifier: shows nothing, and hands out the system
// settings of the host's context, as the lumaro program's notifier does.
class QuietNotifier : public host::IConnectorEvents {
 public:
  explicit QuietNotifier(standalone::StandaloneHost& host) : host_(host) {}
  void Progress(int32_t, int32_t, std::string_view) override {}
  void Detail(std::string_view) override {}
  void ShowMessage(std::string_view, int, int& result) override;
  std::shared_ptr<host::SystemSettings> SystemSettings() override;

 private:
  standalone::StandaloneHost& host_;
};

// A stand-alone host over a new POS database "vendara.db" in its own scratch
// folder (which is also the host's work folder, where the installation's
// key files are made), with Portuguese regional settings and the clock fixed
// at 14-03-2026 10:00:00, so that a finding reads the same on every run.
class FuzzHost {
 public:
  FuzzHost();
  ~FuzzHost();
  FuzzHost(const FuzzHost&) = delete;
  FuzzHost& operator=(const FuzzHost&) = delete;

  standalone::StandaloneHost& Host() { return *host_; }
  // The host's database, which is always a SQLite file here.
  standalone::SqliteDatabase& Db() {
    return static_cast<standalone::SqliteDatabase&>(host_->Database());
  }
  const ScratchFolder& Folder() const { return folder_; }

  // Rolls back every open transaction level; true when one was open.
  bool RollBackAll();

 private:
  ScratchFolder folder_;
  std::unique_ptr<standalone::StandaloneHost> host_;
};

}  // namespace fuzzsupport

#endif  // LUMARO_FUZZ_FUZZ_HOST_H_
