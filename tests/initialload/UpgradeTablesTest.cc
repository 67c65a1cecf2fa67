// The series that a load's documents take.

#include <gtest/gtest.h>

#include "tests/initialload/SampleLoad.h"

namespace {

class UpgradeTables : public testsupport::SampleLoad {};

TEST_F(UpgradeTables, APlainLoadWithExternalSeriesMakesTheSeriesEXTOnce) {
  const std::string kSeries =
      "SELECT TransSerial || '/' || SeriesType || '/' || SeriesYear || '/' || SeriesLocked FROM "
      "Series ORDER BY TransSerial";
  auto first = Load();
  first->UpgradeTables();
  EXPECT_EQ(first->SeriesKey(), "A");  // the workstation's
  EXPECT_EQ(pos_.Rows(kSeries), "A/1/0/0");

  pos_.Exec("INSERT INTO HostContext VALUES ('ExternalSeries', 'True')");
  for (int run = 1; run <= 2; ++run) {
    auto load = Load();
    load->UpgradeTables();
    EXPECT_EQ(load->SeriesKey(), "EXT");
    // A second run writes over the series it made.
    EXPECT_EQ(pos_.Rows(kSeries), "A/1/0/0,EXT/2/0/0") << run;
    EXPECT_EQ(pos_.UI().refreshes, run);
  }
}

}  // namespace
