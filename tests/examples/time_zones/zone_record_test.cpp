// The comparison of a record with its row: it finds a difference in each member.
#include "time_zones/zone_record.h"

#include <gtest/gtest.h>

#include "time_zones/client.h"

namespace time_zones {
namespace {

ZoneRow SomeRow() {
  ZoneRow row;
  row.number = 7;
  row.name = "Europe/Zurich";
  row.countries = "CH,DE,LI";
  row.country_count = 3;
  row.latitude = 47.5;
  row.longitude = 8.5;
  row.comment = "Busingen";
  return row;
}

std::vector<std::string> DifferencesOf(void (*change)(ZoneRow&)) {
  ZoneRow changed = SomeRow();
  change(changed);
  return DifferencesFrom(MakeRecord(DefineZone(), SomeRow()), changed);
}

using Differences = std::vector<std::string>;

TEST(ZoneRecord, AgreesWithItsOwnRow) {
  EXPECT_EQ(DifferencesOf([](ZoneRow&) {}), Differences{});
}

TEST(ZoneRecord, DiffersInEachMember) {
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.number = 8; }),
            Differences{"the member Row is '7' in the file and '8' in the table"});
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.name = "Europe/Vaduz"; }),
            Differences{"the member Name is 'Europe/Zurich' in the file and 'Europe/Vaduz' in the table"});
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.countries = "CH"; }),
            Differences{"the member Countries is 'CH,DE,LI' in the file and 'CH' in the table"});
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.country_count = 4; }),
            Differences{"the member CountryCount is '3' in the file and '4' in the table"});
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.latitude = 47.25; }),
            Differences{"the member Latitude is '47.5000' in the file and '47.2500' in the table"});
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.longitude = -8.5; }),
            (Differences{"the member Longitude is '8.5000' in the file and '-8.5000' in the table",
                         "the member SolarOffset is '0.57' in the file and '-0.57' in the table"}));
  EXPECT_EQ(DifferencesOf([](ZoneRow& row) { row.comment = std::nullopt; }),
            Differences{"the member Comment is 'Busingen' in the file and '-' in the table"});
}

TEST(ZoneRecord, TellsAnEmptyCommentFromNone) {
  ZoneRow with = SomeRow();
  with.comment = "";
  ZoneRow without = SomeRow();
  without.comment = std::nullopt;
  EXPECT_EQ(DifferencesFrom(MakeRecord(DefineZone(), with), without).size(), 1U);
  EXPECT_EQ(DifferencesFrom(MakeRecord(DefineZone(), without), with).size(), 1U);
}

TEST(ClientTexts, KeepEveryByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(FromLibrary(ToLibrary(bytes)), bytes);
}

}  // namespace
}  // namespace time_zones
