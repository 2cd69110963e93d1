// Units as objects of the library: definitions go into a session, values are made by
// them. Every unit is judged, and nothing is decoded that could not be whole.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "tools/halyard/definition_scan.h"
#include "tools/halyard/definition_view.h"
#include "tools/halyard/framing.h"

namespace halyard::tool {

enum class Verdict {
  kWhole,       // a definition or a value is there
  kUnresolved,  // a value whose definition was not met, or of a type that is never resolved
  kUnknown,     // a unit of a kind that nobody knows
  kBroken,      // cut short or otherwise impossible
};

// What became of a unit.
struct DecodedUnit {
  UnitHead head;
  Verdict verdict = Verdict::kBroken;
  std::string what;          // why it is not whole, as the end of a sentence
  std::size_t offset = 0;    // of the fault in the unit
  std::size_t used = 0;      // bytes of the unit that carry something, where it is whole
  DefinitionPtr definition;  // the one announced, or the one of the value
  Ptr<IValueBase> value;     // of a whole data unit
};

// Type code and id, by which a value finds its definition.
using DefinitionKey = std::pair<USHORT, SHORT>;

class UnitDecoder {
 public:
  UnitDecoder();

  // Decodes one unit. The value of the last call is released by the next one.
  DecodedUnit Decode(std::span<const unsigned char> unit);

  // As Decode, for info units only: the value of a data unit is not made.
  DecodedUnit DecodeInfo(std::span<const unsigned char> unit);

  // The bytes that the unit decoded last announces for itself when it is written.
  [[nodiscard]] ULONG PacketSize() const;

  // The definition that values of that key have now; null where none was met.
  [[nodiscard]] DefinitionPtr Find(const DefinitionKey& key) const;

 private:
  // A definition that was met. Each has a session of its own: one for all would be
  // searched from its beginning for every value.
  struct Known {
    DefinitionPtr view;
    ValueCost cost;
    Ptr<IOrmSession> session;
  };

  void TakeInfo(std::span<const unsigned char> unit, DecodedUnit& result);
  void TakeData(std::span<const unsigned char> unit, DecodedUnit& result);

  Ptr<IUnit> unit_;
  std::map<DefinitionKey, Known> known_;
};

}  // namespace halyard::tool
