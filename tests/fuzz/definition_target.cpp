#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/objects.h"
#include "tests/fuzz/support/sizes.h"
#include "tests/fuzz/support/soundness.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

// The id, the name and the caption that lead the encoding of a composite definition, each
// text behind its 16-bit length.
Bytes IdentityOf(Input encoding) {
  Bytes identity;
  const auto take = [&](std::size_t count) {
    const Bytes part = encoding.Take(count);
    identity.insert(identity.end(), part.begin(), part.end());
    return part;
  };
  take(sizeof(SHORT));
  for (int text = 0; text < 2; ++text) {
    const Bytes length = take(sizeof(std::uint16_t));
    take(Input(length).Word());
  }
  return identity;
}

// A definition that was read can be written, unless a range of it forbids. It writes its
// identity as it read it; the rest may differ, since sizes are calculated and what was passed
// over is written as zeros.
std::optional<Bytes> CheckEncoding(const Ptr<IValueDefBase>& definition, InputBytes source) {
  auto encoding = Encoded(definition);
  Hold(encoding.has_value() == BoundsFit(definition), "a definition that was read can be written");
  if (!encoding) return encoding;
  HoldSize(definition, encoding->size());
  if (!definition.As<ISimpleValueDef>())
    Hold(IdentityOf(Input(*encoding)) == IdentityOf(Input(source)),
         "a definition writes the id, name and caption that it read");
  return encoding;
}

// What a definition writes, another one reads whole and writes again, byte for byte.
void CheckNextGeneration(const CLSID& clsid, const Bytes& first) {
  const auto copy = CreateObject<IValueDefBase>(clsid);
  Hold(ReadFrom(copy, first) == first.size(), "a definition reads all of what one wrote");
  Hold(Encoded(copy) == first, "a definition that was written and read writes the same");
}

}  // namespace

void DefinitionTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  Input input(bytes);
  const CLSID& clsid = DefinitionClass(input.Byte());
  const auto definition = CreateObject<IValueDefBase>(clsid);
  const Bytes source = input.Rest();
  const bool read = ReadFrom(definition, source).has_value();
  ULONG size = 0;
  static_cast<void>(definition->CalculateDataSize(&size));
  if (read) {
    const auto encoding = CheckEncoding(definition, source);
    if (encoding && HasOwnTypes(definition)) CheckNextGeneration(clsid, *encoding);
  }
  LookAt(definition);
  // A value lays out all members that its definition announced, so one of a definition
  // that was cut short costs what the largest definition does.
  if (!read) return;
  Ptr<IValueBase> value;
  static_cast<void>(definition->CreateDataObject(value.Out()));
}

}  // namespace halyard::fuzz
