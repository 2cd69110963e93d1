#include "types/type_names.h"

#include <string_view>

#include "halyard/object/variant.h"
#include "object/widened.h"
#include "platform/text.h"

namespace halyard {
namespace {

struct TypeRow {
  SHORT code;
  const char* name;
  std::uint16_t size;
};

constexpr TypeRow kTypes[] = {
    {kInvalid, "Invalid", 0},
    {kString, "String", 0},
    {kFixedString, "FixedString", 0},
    {kByteArray, "ByteArray", 0},
    {kChar, "Char", 1},
    {kByte, "Byte", 1},
    {kShort, "Short", 2},
    {kWord, "Word", 2},
    {kLong, "Long", 4},
    {kDWord, "DWord", 4},
    {kInt64, "Int64", 4},
    {kShortReal, "ShortReal", 4},
    {kReal, "Real", 8},
    {kDate, "Date", 8},
    {kStructure, "Structure", 0},
    {kArray, "Array", 0},
    {kCollection, "Collection", 0},
    {kEnumeration, "Enumeration", 0},
};
constexpr SHORT kTypeCount = sizeof kTypes / sizeof kTypes[0];
constexpr const char* kUnknownName = "Unknown";

// A code is the position of its row.
constexpr bool RowsStandInOrder() {
  for (SHORT i = 0; i < kTypeCount; ++i) {
    if (kTypes[i].code != i) return false;
  }
  return true;
}
static_assert(RowsStandInOrder());

const TypeRow* FindType(SHORT code) noexcept {
  return code >= 0 && code < kTypeCount ? &kTypes[code] : nullptr;
}

SHORT TypeCodeFromName(std::string_view name) noexcept {
  for (const TypeRow& row : kTypes) {
    if (EqualIgnoringCase(name, std::string_view(row.name))) return row.code;
  }
  return kInvalid;
}

}  // namespace

const char* TypeCodeName(SHORT code) noexcept {
  const TypeRow* row = FindType(code);
  return row != nullptr ? row->name : kUnknownName;
}

Bstr TypeCodeNameText(SHORT code) { return Widened(TypeCodeName(code)); }

SHORT TypeCodeFromVariant(const VARIANT& type) {
  if (type.vt == VT_BSTR) return TypeCodeFromName(NarrowToZero(ViewOf(type.bstrVal)));
  if (type.vt == VT_I2) return type.iVal;
  if (type.vt == VT_I4 && type.lVal == static_cast<SHORT>(type.lVal)) return static_cast<SHORT>(type.lVal);
  return Variant::Converted(type, VT_I2)->iVal;
}

std::uint16_t ElementarySize(SHORT code) noexcept {
  const TypeRow* row = FindType(code);
  return row != nullptr ? row->size : std::uint16_t{0};
}

}  // namespace halyard
