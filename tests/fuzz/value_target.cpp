#include <algorithm>

#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/support/sizes.h"
#include "tests/fuzz/support/soundness.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

// Simple values do not look at the size of their buffer, by contract; whatever holds one
// does. So a simple definition becomes the member of a structure.
Ptr<IValueDefBase> Held(const Ptr<IValueDefBase>& definition) {
  const auto simple = definition.As<ISimpleValueDef>();
  if (!simple) return definition;
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddMember(Bstr(OLESTR("Only")).get(), definition.get(), &added));
  return structure;
}

Ptr<IValueBase> NewValue(const Ptr<IValueDefBase>& definition) {
  Ptr<IValueBase> value;
  static_cast<void>(definition->CreateDataObject(value.Out()));
  return value;
}

// Whether the value is a block of bytes, which are its encoding, or a number.
bool KeepsBytes(const Ptr<IValueBase>& value) {
  return value.As<ISimpleArray>() || value.As<ISimpleFixedArray>() || value.As<ISimpleFixedStructure>() ||
         value.As<IEnumeration>();
}

// What a value writes, another one of its definition reads and writes again.
void CheckNextGeneration(const Ptr<IValueDefBase>& definition, const Ptr<IValueBase>& value,
                         InputBytes source) {
  const auto first = Encoded(value);
  Hold(first || HasDates(definition), "a value that was read can be written");
  if (!first) return;
  HoldSize(value, first->size());
  if (KeepsBytes(value))
    Hold(std::ranges::equal(*first, source), "a value of fixed width writes the bytes that it read");
  const auto next = NewValue(definition);
  Hold(ReadFrom(next, *first) == first->size(), "a value reads all of what one wrote");
  Hold(Encoded(next) == first, "a value that was written and read writes the same");
  Ptr<IValueBase> copy;
  if (SUCCEEDED(value->Copy(copy.Out())) && copy)
    Hold(Encoded(copy) == first, "a copy writes what its model writes");
}

}  // namespace

void ValueTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  Input input(bytes);
  const auto read_definition = CreateObject<IValueDefBase>(DefinitionClass(input.Byte()));
  if (!ReadFrom(read_definition, input.Take(input.Word()))) return;
  const auto definition = Held(read_definition);
  ULONG size = 0;
  static_cast<void>(definition->CalculateDataSize(&size));
  const auto value = NewValue(definition);
  if (!value) return;
  const Bytes source = input.Rest();
  const auto taken = ReadFrom(value, source);
  LookAt(value);
  if (taken) CheckNextGeneration(definition, value, InputBytes(source).first(*taken));
}

}  // namespace halyard::fuzz
