#include "tools/halyard/framing.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>

#include "tools/halyard/little_endian.h"

namespace halyard::tool {
namespace {

constexpr std::array<const char*, 18> kTypeNames = {
    "Invalid", "String", "FixedString", "ByteArray", "Char",       "Byte",
    "Short",   "Word",   "Long",        "DWord",     "Int64",      "ShortReal",
    "Real",    "Date",   "Structure",   "Array",     "Collection", "Enumeration"};

constexpr float kVersion = 1.0F;

// Letter case does not count in the signature.
bool IsSignature(std::span<const unsigned char> bytes) {
  return (bytes[0] | 0x20) == 'o' && (bytes[1] | 0x20) == 'r' && (bytes[2] | 0x20) == 'm' && bytes[3] == 0;
}

}  // namespace

std::optional<std::string> HeaderFault(std::span<const unsigned char> bytes) {
  if (bytes.empty()) return "it is empty";
  const std::array<unsigned char, 4> signature = {'O', 'r', 'm', 0};
  const std::size_t shared = std::min(bytes.size(), signature.size());
  const bool starts_right =
      bytes.size() >= 4
          ? IsSignature(bytes)
          : std::equal(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(shared), signature.begin());
  if (!starts_right) return "it does not begin with the signature of a file of units";
  if (bytes.size() < kFileHeaderBytes)
    return fmt::format("its header has {} of {} bytes", bytes.size(), kFileHeaderBytes);
  const float version = std::bit_cast<float>(LittleEndian<std::uint32_t>(bytes.subspan(4)));
  if (version != kVersion) return fmt::format("its format version is {}, not 1.0", version);
  return std::nullopt;
}

UnitHead HeadOf(std::span<const unsigned char> unit) {
  UnitHead head;
  if (unit.size() >= 2) head.kind = LittleEndian<USHORT>(unit);
  if (unit.size() >= 4) head.type = LittleEndian<USHORT>(unit.subspan(2));
  if (unit.size() >= kDataHeadBytes && (head.IsData() || IsComposite(head.type))) {
    head.id = LittleEndian<SHORT>(unit.subspan(kIdOffset));
  }
  return head;
}

bool IsComposite(USHORT type) noexcept {
  return type == kStructure || type == kArray || type == kEnumeration;
}

bool IsPlausible(std::uint64_t length, const UnitHead& head) noexcept {
  if (head.type >= kTypeNames.size()) return false;
  return (head.IsInfo() && length > kInfoHeadBytes) || (head.IsData() && length >= kDataHeadBytes);
}

std::string TypeName(USHORT type) {
  return type < kTypeNames.size() ? kTypeNames[type] : fmt::format("type {}", type);
}

}  // namespace halyard::tool
