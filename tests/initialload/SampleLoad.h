#ifndef LUMARO_TESTS_INITIALLOAD_SAMPLE_LOAD_H_
#define LUMARO_TESTS_INITIALLOAD_SAMPLE_LOAD_H_

// A POS database and the sample back office (examples/backoffice) beside it,
// with the connector attached to the POS's host and a run dictionary, at
// 23-11-2026 09:30: for the load's steps run one by one.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/support/TestHost.h"

namespace testsupport {

using lumaro::ModConnectorLumaro;
using standalone::SqliteDatabase;

const std::string kSampleBackOffice =
    std::string(LUMARO_SOURCE_DIR) + "/examples/backoffice/backoffice.sql";

class SampleLoad : public testing::Test {
 protected:
  SampleLoad() {
    host::SetClockOverride(host::MakeDate(2026, 11, 23, 9, 30, 0));
    ModConnectorLumaro::AttachHost(&pos_.Host());
    ModConnectorLumaro::NewRunDictionary();
    SqliteDatabase::Open(BackOfficeFile(), SqliteDatabase::OpenMode::kCreateIfMissing)
        ->ExecuteScript(ReadBytes(kSampleBackOffice));
  }
  ~SampleLoad() override {
    ModConnectorLumaro::DropRunDictionary();
    ModConnectorLumaro::DetachHost(&pos_.Host());
    host::SetClockOverride(std::nullopt);
  }

  std::string BackOfficeFile() const { return pos_.Folder().File("EMP012026Lumaro.db"); }
  void ChangeBackOffice(const std::string& sql) {
    SqliteDatabase::Open(BackOfficeFile(), SqliteDatabase::OpenMode::kExisting)->ExecuteScript(sql);
  }
  // The POS in `region`, its settings read anew.
  void PosInRegion(const std::string& region) {
    pos_.Exec("UPDATE ConfSystem SET TaxRegionID = '" + region + "'");
    pos_.Host().Context().SetSettings(pos_.Host().Context().LoadSettings(1));
  }
  // The load's tables object over the back office, read-only as the load
  // has it.
  std::unique_ptr<lumaro::BSOUpgBrevantaLumaroTables> Load() {
    auto load = std::make_unique<lumaro::BSOUpgBrevantaLumaroTables>();
    load->SetSourceDatabase(
        SqliteDatabase::Open(BackOfficeFile(), SqliteDatabase::OpenMode::kReadOnly));
    return load;
  }
  // The IVA rates of a region, by class 1 to 4.
  std::string Rates(const std::string& region) {
    return pos_.Rows("SELECT TaxRate FROM TaxTable WHERE TaxGroupID = 'IVA' AND TaxRegionID = '" +
                     region + "' ORDER BY TaxSequenceID");
  }
  std::string MigrationLog() {
    std::string path = pos_.Folder().File("Migration.log");
    return FileExists(path) ? ReadBytes(path) : "";
  }

  TestHost pos_;
};

}  // namespace testsupport

#endif  // LUMARO_TESTS_INITIALLOAD_SAMPLE_LOAD_H_
