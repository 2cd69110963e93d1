// The framing of a file of units, as docs/format.md describes it: what stands around the
// units and at their front.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "halyard/halyard.h"

namespace halyard::tool {

inline constexpr std::size_t kFileHeaderBytes = 8;  // signature 4, version 4
inline constexpr std::size_t kLengthBytes = 4;      // before each unit
inline constexpr std::size_t kInfoHeadBytes = 4;    // kind 2, type code 2
inline constexpr std::size_t kDataHeadBytes = 6;    // and the definition's id 2
inline constexpr std::size_t kIdOffset = 4;         // of the id, in both kinds of units

// The header that this program writes.
inline constexpr unsigned char kFileHeader[kFileHeaderBytes] = {'O', 'r', 'm', 0, 0, 0, 0x80, 0x3F};

// What is wrong with a file's header, as the end of a sentence; nothing where it is fine.
// Fewer bytes than a header has are all that the file holds.
std::optional<std::string> HeaderFault(std::span<const unsigned char> bytes);

// The first words of a unit.
struct UnitHead {
  USHORT kind = 0;
  USHORT type = 0;
  SHORT id = 0;  // of a data unit's definition; of an info unit, its own if it has one

  [[nodiscard]] bool IsInfo() const noexcept { return kind == kInfoUnit; }
  [[nodiscard]] bool IsData() const noexcept { return kind == kDataUnit; }
};

// The words in the first bytes of a unit; those that are missing read as 0.
UnitHead HeadOf(std::span<const unsigned char> unit);

// Whether values of the type refer to a definition of their own (structures, arrays,
// enumerations), and definitions of it carry an id.
bool IsComposite(USHORT type) noexcept;

// Whether a record could look like this at all: a known kind and type, and room for them.
bool IsPlausible(std::uint64_t length, const UnitHead& head) noexcept;

// "Structure", or "type 99" for a code without a name.
std::string TypeName(USHORT type);

}  // namespace halyard::tool
