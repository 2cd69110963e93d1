#include "definitions/nested_definition.h"

#include "halyard/classes.h"
#include "halyard/types/type_codes.h"
#include "object/activation.h"
#include "object/buffer_calls.h"
#include "object/nesting.h"
#include "platform/message.h"

namespace halyard {
namespace {

constexpr char kInvalidTypeText[] = "Invalid type";
constexpr char kInvalidTypeCaption[] = "No caption";

// The class of the definitions of a type; null for an unknown code.
const CLSID* DefinitionClass(std::uint16_t type) noexcept {
  switch (type) {
    case kStructure:
      return &kStructureInfoClass;
    case kArray:
      return &kArrayInfoClass;
    case kEnumeration:
      return &kEnumerationInfoClass;
    default:
      return type <= kCollection ? &kSimpleValueInfoClass : nullptr;
  }
}

}  // namespace

Ptr<IValueDefBase> DefinitionForReading(std::uint16_t type, Ptr<IValueDefBase> current) {
  const CLSID* clsid = DefinitionClass(type);
  if (clsid == nullptr) {
    ShowMessage(kInvalidTypeText, kInvalidTypeCaption);
    return current;
  }
  current.Reset();
  Ptr<IValueDefBase> fresh = ActivateAs<IValueDefBase>(*clsid);
  if (fresh && clsid == &kSimpleValueInfoClass) Check(fresh->put_Type(static_cast<SHORT>(type)), fresh);
  return fresh;
}

bool DecodeDefinition(IValueDefBase& definition, ReadCursor& cursor) {
  BufferOutcome outcome;
  // The interface does not say const, but a reader only reads.
  auto* bytes = const_cast<unsigned char*>(cursor.rest().data());
  Check(definition.ReadFromBuffer(bytes, cursor.room(), &outcome.count, &outcome.done), &definition);
  return outcome.Accepted(cursor.room()) && cursor.Skip(outcome.count);
}

bool EncodeDefinition(IValueDefBase& definition, WriteCursor& cursor) {
  const WalkingLevel level;
  BufferOutcome outcome;
  Check(definition.WriteToBuffer(cursor.rest().data(), cursor.room(), &outcome.count, &outcome.done),
        &definition);
  return outcome.Accepted(cursor.room()) && cursor.Skip(outcome.count);
}

}  // namespace halyard
