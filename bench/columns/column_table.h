// ColumnTable: what a participant of W3 does. It holds soundings in its memory and moves
// one member of all of them to or from a plain block of numbers.
#pragma once

#include <cstdint>
#include <memory>

#include "records/sounding.h"
#include "support/action.h"

namespace bench {

class ColumnTable {
 public:
  virtual ~ColumnTable() = default;

  // Holds the first `count` soundings from now on. Called once.
  virtual void Fill(std::int32_t count) = 0;

  // Moves a member of all soundings; the blocks hold as many numbers.
  virtual void DepthToReals(double* numbers) = 0;
  virtual void XToReals(double* numbers) = 0;
  virtual void FlagsToLongs(std::int32_t* numbers) = 0;
  virtual void RealsToDepth(const double* numbers) = 0;
};

using ColumnTableMaker = std::unique_ptr<ColumnTable> (*)();

// Adds the four transfers of W3 for a table of a million and for one of a thousand.
void AddColumns(Actions& actions, const char* participant, ColumnTableMaker make);

}  // namespace bench
