// The reader of the time-zone table: what it takes from a line, and what it says about
// lines that it cannot take.
#include "time_zones/zone_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace time_zones {
namespace {

class ZoneTable : public testing::Test {
 protected:
  ZoneTable() : path_(std::filesystem::path(testing::TempDir()) / "halyard_zone_table.tab") {}
  ~ZoneTable() override {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  std::vector<ZoneRow> Rows(const std::string& text) {
    std::ofstream(path_, std::ios::binary) << text;
    return ReadZoneTable(path_);
  }

  // What is said about a table, behind the file's name.
  std::string Fault(const std::string& text) {
    try {
      Rows(text);
    } catch (const std::runtime_error& fault) {
      const std::string what = fault.what();
      return what.substr(what.find(".tab") + 4);
    }
    return "no fault";
  }

 private:
  std::filesystem::path path_;
};

TEST_F(ZoneTable, TakesColumnsAndPassesOverRemarks) {
  const auto rows =
      Rows("# remark\nAE,OM,RE\t+2518+05518\tAsia/Dubai\tCrozet\nAD\t+4230+00131\tEurope/Andorra\n");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].number, 1);
  EXPECT_EQ(rows[0].countries, "AE,OM,RE");
  EXPECT_EQ(rows[0].country_count, 3);
  EXPECT_DOUBLE_EQ(rows[0].latitude, 25.3);
  EXPECT_DOUBLE_EQ(rows[0].longitude, 55.3);
  EXPECT_EQ(rows[0].name, "Asia/Dubai");
  EXPECT_EQ(rows[0].comment, "Crozet");
  EXPECT_EQ(rows[1].number, 2);
  EXPECT_EQ(rows[1].comment, std::nullopt);
}

TEST_F(ZoneTable, TakesSecondsAndSigns) {
  const auto rows = Rows("AQ\t-720041-0023206\tAntarctica/Troll\n");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_DOUBLE_EQ(rows[0].latitude, -(72 + 41 / 3600.0));
  EXPECT_DOUBLE_EQ(rows[0].longitude, -(2 + 32 / 60.0 + 6 / 3600.0));
}

TEST_F(ZoneTable, SaysWhichLineIsMalformedAndHow) {
  EXPECT_EQ(Fault("#\nAD\t+4230+00131\n"), ", line 2: there are 2 columns instead of three or four");
  EXPECT_EQ(Fault("AD\t+4230+00131\tA\tb\tc\n"), ", line 1: there are 5 columns instead of three or four");
  EXPECT_EQ(Fault("AD\t+4230+00131\t\n"), ", line 1: the zone has no name");
  for (const std::string codes : {"", "ad", "AND", "AD,", "AD;AE"}) {
    EXPECT_EQ(Fault(codes + "\t+4230+00131\tA/B\n"),
              ", line 1: the country codes '" + codes + "' are not two capitals each, with commas between");
  }
}

TEST_F(ZoneTable, RefusesCoordinatesThatAreNoPlace) {
  for (const std::string text :
       {"", "+4230", "4230+00131", "+4230+0131", "+42300+00131", "+4260+00131", "+9001+00131", "+4230+18001",
        "+423060+0013100", "+42a0+00131", "+4230 +00131"}) {
    EXPECT_EQ(Fault("AD\t" + text + "\tA/B\n"),
              ", line 1: the coordinates '" + text + "' are not of the form +DDMM+DDDMM or +DDMMSS+DDDMMSS");
  }
}

TEST_F(ZoneTable, RefusesATableWithoutRows) { EXPECT_EQ(Fault("# nothing\n"), " has no row"); }

TEST_F(ZoneTable, NamesAFileThatIsNotThere) {
  EXPECT_THROW(ReadZoneTable("there/is/no/such.tab"), std::runtime_error);
}

}  // namespace
}  // namespace time_zones
