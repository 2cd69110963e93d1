#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

constexpr unsigned kInfo = 101;
constexpr unsigned kData = 102;
constexpr unsigned kString = 1;
constexpr unsigned kLong = 8;
constexpr unsigned kShortReal = 11;
constexpr unsigned kStructure = 14;
constexpr unsigned kFirstDepth = 5;
const std::string kHalf("\0\0\0\x3F", 4);  // 0.5

void Member(UnitBytes& bytes, const std::string& name, bool can_be_null, unsigned type, unsigned size) {
  bytes.Text(name).Text("").U8(can_be_null ? 1 : 0).U16(type).U16(size).U16(type).U16(size).U16(0);
}

}  // namespace

std::string Header() { return {"Orm\0\0\0\x80\x3F", 8}; }

std::string Record(const std::string& unit) { return UnitBytes().U32(unit.size()).Raw(unit).bytes(); }

std::string StationDefinition(unsigned id, const std::string& name) {
  UnitBytes bytes;
  bytes.U16(kInfo).U16(kStructure).U16(id).Text(name).Text("").U16(3).U16(8);
  Member(bytes, "Depth", false, kLong, 4);
  Member(bytes, "Label", true, kString, 0);
  Member(bytes, "Salt", false, kShortReal, 4);
  return bytes.bytes();
}

std::string OtherDefinition(unsigned id) {
  UnitBytes bytes;
  bytes.U16(kInfo).U16(kStructure).U16(id).Text("Other").Text("").U16(1).U16(4);
  Member(bytes, "Number", false, kLong, 4);
  return bytes.bytes();
}

std::string StationValue(unsigned depth, const std::string& label, unsigned id) {
  return UnitBytes().U16(kData).U16(kStructure).U16(id).U32(depth).U8(0).Text(label).Raw(kHalf).bytes();
}

std::string StationWithoutLabel(unsigned depth, unsigned id) {
  return UnitBytes().U16(kData).U16(kStructure).U16(id).U32(depth).U8(1).Raw(kHalf).bytes();
}

std::string StationFile(unsigned values) {
  std::string file = Header() + Record(StationDefinition());
  for (unsigned i = 0; i < values; ++i)
    file += Record(StationValue(kFirstDepth + i, "n" + std::to_string(i)));
  return file;
}

}  // namespace halyard::test
