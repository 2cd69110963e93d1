#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/support/own_types.h"
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

// False where the unit holds a definition that its own type codes do not tell.
bool HasOwnDefinition(const Ptr<IUnit>& unit) {
  Ptr<IValueDefBase> definition;
  Check(unit->get_Info(definition.Out()));
  return !definition || HasOwnTypes(definition);
}

void Read(const Bytes& bytes, const Ptr<IOrmSession>& session) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  Check(unit->put_Session(session.get()));
  const bool read = ReadFrom(unit, bytes).has_value();
  LookAtUnit(unit);
  if (!read) return;
  const auto first = Encoded(unit);
  if (!first || !HasOwnDefinition(unit)) return;
  const auto next = CreateObject<IUnit>(kUnitClass);
  Check(next->put_Session(session.get()));
  if (ReadFrom(next, *first))
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
