#include "definitions/nested_definition.h"

#include "halyard/classes.h"
#include "halyard/types/type_codes.h"
#include "object/activation.h"
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

void RequireCountInside(std::uint32_t count, std::uint32_t room) {
  if (count > room) throw Error(E_UNEXPECTED, "a definition reports more bytes than there are");
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
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  // The interface does not say const, but a reader only reads.
  auto* bytes = const_cast<unsigned char*>(cursor.rest().data());
  Check(definition.ReadFromBuffer(bytes, cursor.room(), &count, &done), &definition);
  if (done == VARIANT_FALSE) return false;
  RequireCountInside(count, cursor.room());
  return cursor.Skip(count);
}

bool EncodeDefinition(IValueDefBase& definition, WriteCursor& cursor) {
  const WalkingLevel level;
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(definition.WriteToBuffer(cursor.rest().data(), cursor.room(), &count, &done), &definition);
  if (done == VARIANT_FALSE) return false;
  RequireCountInside(count, cursor.room());
  return cursor.Skip(count);
}

}  // namespace halyard
