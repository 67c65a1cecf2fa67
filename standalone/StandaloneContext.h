#ifndef LUMARO_STANDALONE_STANDALONE_CONTEXT_H_
#define LUMARO_STANDALONE_STANDALONE_CONTEXT_H_

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/SystemContext.h"
#include "standalone/HostContextStore.h"
#include "standalone/SodiumSecurity.h"

namespace standalone {

// The document types of the POS database (table Documents), read at the
// first Item after it was made or forgotten.
class DocumentTable : public host::DocumentCatalogue {
 public:
  explicit DocumentTable(host::DatabaseService& db) : db_(db) {}
  const host::DocumentDefinition& Item(std::string_view trans_document) override;
  // Drops what was read (and the definitions Item gave).
  void Forget() { documents_.reset(); }

 private:
  host::DatabaseService& db_;
  std::optional<std::map<std::string, host::DocumentDefinition, std::less<>>> documents_;
};

class StandaloneWorkstation : public host::CurrentWorkstation {
 public:
  StandaloneWorkstation(host::DatabaseService& db, int32_t workstation_id)
      : db_(db), id_(workstation_id), documents_(db) {}
  int32_t WorkstationID() const override { return id_; }
  std::string SeriesKey() const override;
  host::DocumentCatalogue& Documents() override { return documents_; }
  // The series key is read at every call; the documents are read again.
  void Refresh() override { documents_.Forget(); }

 private:
  host::DatabaseService& db_;
  int32_t id_;
  DocumentTable documents_;
};

// The SystemContext of the stand-alone host: the host context of the POS
// database, its ConfSystem row as SystemSettings, its default currency, and
// the workstation, user and session the host runs as.
class StandaloneContext : public host::SystemContext {
 public:
  StandaloneContext(host::DatabaseService& db, HostContextStore& store, int32_t workstation_id,
                    int32_t user_id, int32_t session_id);

  std::shared_ptr<host::SystemSettings> Settings() override;
  void SetSettings(std::shared_ptr<host::SystemSettings> settings) override;
  const host::Currency& Defaults() override;
  std::string WorkFolder() const override { return store_.Get("WorkFolder"); }
  std::string CompanyNumber() const override { return store_.Get("CompanyNumber"); }
  host::Crypto& Crypto() override;
  host::CurrentWorkstation& CurrentWorkstation() override { return workstation_; }
  int32_t CurrentUser() const override { return user_id_; }
  // The name of the current user, read from AppUsers until it is set.
  std::string CurrentUserName() const override;
  void SetCurrentUser(int32_t id, std::string name) override {
    user_id_ = id;
    user_name_ = std::move(name);
  }
  int32_t CurrentSession() const override { return session_id_; }
  int32_t TerminalCount() const override { return store_.TerminalCount(); }
  bool ExternalSeries() const override { return store_.ExternalSeries(); }
  std::string ItemImageFolder() const override { return store_.Get("ItemImageFolder"); }

  // Reads the SystemSettings of a key from ConfSystem, and the special
  // configurations from ConfSpecial; empty when there is no such row.
  std::shared_ptr<host::SystemSettings> LoadSettings(int32_t key) override;

 private:
  host::DatabaseService& db_;
  HostContextStore& store_;
  StandaloneWorkstation workstation_;
  int32_t user_id_;
  std::optional<std::string> user_name_;
  int32_t session_id_;
  std::shared_ptr<host::SystemSettings> settings_;
  std::optional<host::Currency> default_currency_;
  std::unique_ptr<SodiumCrypto> crypto_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_STANDALONE_CONTEXT_H_
