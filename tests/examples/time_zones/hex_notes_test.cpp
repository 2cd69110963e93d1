// The annotated bytes: offsets, lines that go on, and fields that are not there.
#include "time_zones/hex_notes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <vector>

namespace time_zones {
namespace {

TEST(HexNotes, PrintsOffsetBytesAndMeaning) {
  const std::vector<unsigned char> bytes = {0x10, 0x01, 0x00, 0x00, 0x00, 0x3F};
  std::ostringstream out;
  HexNotes notes(bytes, out);
  EXPECT_EQ(notes.Number(2, "count"), 0x110U);
  notes.Real(4, "depth");
  EXPECT_EQ(notes.position(), bytes.size());
  EXPECT_EQ(out.str(),
            "  0000  10 01                               count 272\n"
            "  0002  00 00 00 3F                         depth 0.5\n");
}

TEST(HexNotes, ContinuesLongFieldsOnFurtherLines) {
  std::vector<unsigned char> bytes = {14, 0};
  bytes.insert(bytes.end(), 14, 'x');
  std::ostringstream out;
  HexNotes notes(bytes, out);
  EXPECT_EQ(notes.Text("name"), std::string(14, 'x'));
  EXPECT_EQ(out.str(),
            "  0000  0E 00                               name has 14 characters\n"
            "  0002  78 78 78 78 78 78 78 78 78 78 78 78 name \"xxxxxxxxxxxxxx\"\n"
            "  000E  78 78\n");
}

TEST(HexNotes, EndsWhereTheBytesEnd) {
  const std::vector<unsigned char> bytes = {5, 0, 'a'};
  std::ostringstream out;
  HexNotes notes(bytes, out);
  EXPECT_THROW(notes.Text("name"), std::runtime_error);
  EXPECT_THROW(notes.Number(2, "count"), std::runtime_error);
}

}  // namespace
}  // namespace time_zones
