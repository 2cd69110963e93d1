#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/support/own_types.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

// What a definition writes, another one reads whole and writes again, byte for byte; or
// not at all, where the type code that leads a nested definition is not its own.
void CheckNextGeneration(const CLSID& clsid, const Ptr<IValueDefBase>& definition) {
  const auto first = Encoded(definition);
  if (!first) return;
  ULONG size = 0;
  Hold(SUCCEEDED(definition->get_PacketSize(&size)) && size >= first->size(),
       "PacketSize of a definition is enough for it");
  const auto copy = CreateObject<IValueDefBase>(clsid);
  const auto taken = ReadFrom(copy, *first);
  if (!taken || !HasOwnTypes(definition)) return;
  Hold(taken == first->size(), "a definition reads all of what one wrote");
  Hold(Encoded(copy) == first, "a definition that was written and read writes the same");
}

}  // namespace

void DefinitionTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  Input input(bytes);
  const CLSID& clsid = DefinitionClass(input.Byte());
  const auto definition = CreateObject<IValueDefBase>(clsid);
  const bool read = ReadFrom(definition, input.Rest()).has_value();
  ULONG size = 0;
  static_cast<void>(definition->CalculateDataSize(&size));
  if (read) CheckNextGeneration(clsid, definition);
  LookAt(definition);
  // A value lays out all members that its definition announced, so one of a definition
  // that was cut short costs what the largest definition does.
  if (!read) return;
  Ptr<IValueBase> value;
  static_cast<void>(definition->CreateDataObject(value.Out()));
}

}  // namespace halyard::fuzz
