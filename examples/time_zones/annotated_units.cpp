#include "time_zones/annotated_units.h"

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "time_zones/hex_notes.h"

namespace time_zones {
namespace {

// Type codes that this file uses, and their names by code.
enum Code : std::uint32_t { kText = 1, kShortRealNumber = 11, kRealNumber = 12, kRecord = 14 };
constexpr std::array<const char*, 18> kTypeNames = {
    "Invalid", "String", "FixedString", "ByteArray", "Char",       "Byte",
    "Short",   "Word",   "Long",        "DWord",     "Int64",      "ShortReal",
    "Real",    "Date",   "Structure",   "Array",     "Collection", "Enumeration"};

// What a reader keeps of a definition in order to read its values.
struct Definition {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  std::string name;
  bool can_be_null = false;
  std::vector<Definition> members;
};

std::uint32_t TypeCode(HexNotes& notes) {
  const std::uint32_t code = notes.Peek(2);
  const bool known = code < kTypeNames.size();
  return notes.Number(2, "type", std::to_string(code) + (known ? std::string(", ") + kTypeNames[code] : ""));
}

void TakeSimple(HexNotes& notes) {
  TypeCode(notes);
  notes.Number(2, "size");
  if (notes.Number(2, "range and script:", notes.Peek(2) == 0 ? "none" : "some") != 0) {
    throw std::runtime_error("a definition with a range is more than this example reads");
  }
}

Definition TakeStructure(HexNotes& notes);

Definition TakeMember(HexNotes& notes) {
  const std::string name = notes.Text("member name");
  const HexNotes::Indented indented(notes);
  notes.Text("caption");
  const bool can_be_null = notes.Number(1, "can be null:", notes.Peek(1) == 0 ? "no" : "yes") != 0;
  const std::uint32_t type = TypeCode(notes);
  const std::uint32_t size = notes.Number(2, "size");
  Definition member;
  if (type == kRecord) {
    member = TakeStructure(notes);
  } else {
    TakeSimple(notes);
  }
  member.type = type;
  member.size = size;
  member.name = name;
  member.can_be_null = can_be_null;
  return member;
}

Definition TakeStructure(HexNotes& notes) {
  const HexNotes::Indented indented(notes);
  Definition structure;
  structure.type = kRecord;
  notes.Number(2, "id");
  structure.name = notes.Text("name");
  notes.Text("caption");
  const std::uint32_t count = notes.Number(2, "number of members");
  notes.Number(2, "size");
  for (std::uint32_t i = 0; i < count; ++i) structure.members.push_back(TakeMember(notes));
  return structure;
}

void TakeValue(HexNotes& notes, const Definition& definition) {
  const bool is_fixed = definition.size != 0 && definition.type < kRecord;
  if (definition.can_be_null && !is_fixed) {
    const bool is_null = notes.Peek(1) != 0;
    notes.Number(1, definition.name, is_null ? "is null" : "is there");
    if (is_null) return;
  }
  if (definition.type == kRecord) {
    const HexNotes::Indented indented(notes);
    for (const Definition& member : definition.members) TakeValue(notes, member);
  } else if (definition.type == kText) {
    notes.Text(definition.name);
  } else if (definition.type == kShortRealNumber || definition.type == kRealNumber) {
    notes.Real(definition.size, definition.name);
  } else {
    notes.Number(definition.size, definition.name);
  }
}

// The framing that all units share; throws where the unit is of another kind.
void TakeFraming(HexNotes& notes, std::uint32_t kind, const std::string& meaning) {
  notes.Number(4, "length of the unit");
  if (notes.Number(2, "kind", std::to_string(notes.Peek(2)) + ", " + meaning) != kind) {
    throw std::runtime_error("the file does not begin with a definition and a value");
  }
  if (TypeCode(notes) != kRecord) throw std::runtime_error("the unit is no structure");
}

std::vector<unsigned char> BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot open " + path.string());
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

void ShowFirstUnits(const std::filesystem::path& path, std::ostream& out) {
  constexpr std::uint32_t kInfo = 101;
  constexpr std::uint32_t kData = 102;
  const std::vector<unsigned char> bytes = BytesOf(path);
  HexNotes notes(bytes, out);
  notes.Heading("File header");
  notes.Number(4, "signature", "\"Orm\" and a zero");
  notes.Real(4, "version");
  notes.Heading("First record: a definition");
  TakeFraming(notes, kInfo, "info unit");
  const Definition definition = TakeStructure(notes);
  notes.Heading("Second record: a value");
  TakeFraming(notes, kData, "data unit");
  notes.Number(2, "id of the definition");
  TakeValue(notes, definition);
}

}  // namespace time_zones
