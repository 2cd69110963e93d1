#include "tests/tools/support/hostile_files.h"

#include "tests/tools/support/unit_bytes.h"

namespace halyard::test {
namespace {

constexpr unsigned kInfo = 101;
constexpr unsigned kData = 102;
constexpr unsigned kLong = 8;
constexpr unsigned kStructure = 14;
constexpr unsigned kArray = 15;
constexpr unsigned kMost = 65535;
constexpr std::uint64_t kHuge = 0xFFFFFFF0;

// A definition of an array with the id 1 whose element definition is given.
std::string ArrayOf(const std::string& element, unsigned type, unsigned count) {
  return UnitBytes().U16(1).Text("").Text("").U16(count).U16(type).U16(0).Raw(element).bytes();
}

std::string Definition(const std::string& body) {
  return UnitBytes().U16(kInfo).U16(kArray).Raw(body).bytes();
}

std::string ArrayValue(const std::string& body) {
  return UnitBytes().U16(kData).U16(kArray).U16(1).Raw(body).bytes();
}

std::string LongElement() { return UnitBytes().U16(kLong).U16(4).U16(0).bytes(); }

std::string EmptyStructure() { return UnitBytes().U16(0).Text("").Text("").U16(0).U16(0).bytes(); }

std::string Nested(int depth) {
  std::string body;
  for (int i = 0; i < depth; ++i) body += UnitBytes().U16(1).U16(0).U16(0).U16(2).U16(kArray).U16(0).bytes();
  return Definition(body);
}

std::string CountOfMembers() {
  return UnitBytes().U16(kInfo).U16(kStructure).U16(1).Text("").Text("").U16(kMost).U16(0).bytes();
}

// A value whose text announces more than stands behind it.
std::string LongText() {
  return UnitBytes().U16(kData).U16(kStructure).U16(3).U32(1).U8(0).U16(kMost).bytes();
}

std::string WithValue(const std::string& definition, const std::string& value) {
  return Header() + Record(definition) + Record(value);
}

}  // namespace

const std::vector<HostileFile>& HostileFiles() {
  static const std::vector<HostileFile> files = {
      {"length", Header() + UnitBytes().U32(kHuge).U16(kInfo).U16(kStructure).bytes()},
      {"members", Header() + Record(CountOfMembers())},
      {"nesting", Header() + Record(Nested(10000))},
      {"elements",
       WithValue(Definition(ArrayOf(LongElement(), kLong, 0)),
                 ArrayValue(UnitBytes().U32(kHuge).U32(1).bytes())),
       true},
      {"multiplied",
       WithValue(Definition(ArrayOf(ArrayOf(EmptyStructure(), kStructure, kMost), kArray, kMost)),
                 ArrayValue("")),
       true},
      {"nothing",
       WithValue(Definition(ArrayOf(EmptyStructure(), kStructure, 0)),
                 ArrayValue(UnitBytes().U32(kHuge).bytes())),
       true},
      {"text", StationFile(0) + Record(LongText()), true},
  };
  return files;
}

}  // namespace halyard::test
