// Looks through the bytes of a definition before the library sees them: whether they are
// whole, of known types and not nested too deep, and what a value would cost in memory.
//
// The library survives all of this by itself; the scan says where and what, keeps its
// message about unknown types from being shown, and finds definitions whose values would
// take more memory than any record of theirs backs.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "halyard/halyard.h"

namespace halyard::tool {

// What values of a definition take.
struct ValueCost {
  double fresh = 0;         // bytes of memory that a new value takes, roughly
  double least = 0;         // bytes that its shortest encoding has
  double per_byte = 0;      // further memory for each byte of an encoding
  bool is_endless = false;  // elements without bytes: nothing backs their count
};

struct DefinitionScan {
  std::optional<std::string> fault;  // the end of a sentence, where something is wrong
  std::size_t offset = 0;            // of the fault in the bytes, or of what follows the definition
  ValueCost cost;
};

// Scans the definition of that type code at the front of the bytes.
DefinitionScan ScanDefinition(std::span<const unsigned char> bytes, USHORT type);

// Why a value of the definition is not made from an encoding of that many bytes: the end
// of a sentence, or nothing.
std::optional<std::string> CostFault(const ValueCost& cost, std::uint64_t bytes);

}  // namespace halyard::tool
