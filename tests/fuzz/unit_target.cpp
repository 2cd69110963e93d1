#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/support/sizes.h"
#include "tests/fuzz/support/soundness.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

void LookAtUnit(const Ptr<IUnit>& unit) {
  Ptr<IValueBase> value;
  static_cast<void>(unit->get_Value(value.Out()));
  if (value) LookAt(value);
  Ptr<IValueDefBase> definition;
  static_cast<void>(unit->get_Info(definition.Out()));
  if (definition) LookAt(definition);
}

Ptr<IValueDefBase> InfoOf(const Ptr<IUnit>& unit) {
  Ptr<IValueDefBase> definition;
  Check(unit->get_Info(definition.Out()));
  return definition;
}

// Whether something in what was read may forbid that it is written.
bool MayRefuse(const Ptr<IUnit>& unit) {
  if (const auto definition = InfoOf(unit)) return !BoundsFit(definition);
  Ptr<IValueBase> value;
  Ptr<IValueDefBase> definition;
  Check(unit->get_Value(value.Out()));
  Check(value->get_Info(definition.Out()));
  return HasDates(definition);
}

void Read(const Bytes& bytes, const Ptr<IOrmSession>& session) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  Check(unit->put_Session(session.get()));
  const bool read = ReadFrom(unit, bytes).has_value();
  LookAtUnit(unit);
  if (!read) return;
  const auto first = Encoded(unit);
  Hold(first || MayRefuse(unit), "a unit that was read can be written");
  if (!first) return;
  HoldSize(unit, first->size());
  if (InfoOf(unit) && !HasOwnTypes(InfoOf(unit))) return;
  const auto next = CreateObject<IUnit>(kUnitClass);
  Check(next->put_Session(session.get()));
  Hold(ReadFrom(next, *first) == first->size(), "a unit reads all of what one wrote");
  Hold(Encoded(next) == first, "a unit that was written and read writes the same");
}

}  // namespace

void UnitTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const Bytes unit(bytes.begin(), bytes.end());
  Read(unit, nullptr);
  Read(unit, FilledSession());
}

}  // namespace halyard::fuzz
