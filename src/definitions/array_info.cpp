#include "definitions/array_info.h"

#include "definitions/nested_definition.h"
#include "definitions/value_creation.h"
#include "halyard/classes.h"
#include "object/class_table.h"
#include "object/nesting.h"

namespace halyard {
namespace {

constexpr ULONG kCountTypeAndSizeBytes = 6;

SHORT TypeOf(const Ptr<IValueDefBase>& definition) {
  SHORT type = kInvalid;
  Check(definition->get_Type(&type), definition);
  return type;
}

// The class of the values: decided by element type and count.
REFCLSID ClassFor(SHORT element_type, ULONG element_count) noexcept {
  if (element_type == kString) return kStringArrayClass;
  if (element_type > kLastElementaryType) return kArrayClass;
  return element_count != 0 ? kSimpleFixedArrayClass : kSimpleArrayClass;
}

}  // namespace

HRESULT ArrayInfo::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = static_cast<LONG>(layout_.element_count); });
}

HRESULT ArrayInfo::get_DataSize(ULONG* pdwSize) {
  return Call("DataSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    const Ptr<IValueDefBase> element = ElementDefinition();
    ULONG size = 0;
    Check(element->get_DataSize(&size), element);
    result = size * layout_.element_count;
  });
}

HRESULT ArrayInfo::CalculateDataSize(ULONG* pdwSize) {
  return Call("CalculateDataSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    const Ptr<IValueDefBase> element = ElementDefinition();
    ULONG size = 0;
    Check(element->CalculateDataSize(&size), element);
    layout_.element_type = TypeOf(element);
    // An element counts 16 bits of its size, as in every file written so far.
    result = static_cast<std::uint16_t>(size) * layout_.element_count;
  });
}

HRESULT ArrayInfo::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    const Ptr<IValueDefBase> element = ElementDefinition();
    ULONG size = 0;
    Check(element->get_PacketSize(&size), element);
    result = identity_.PacketSize() + kCountTypeAndSizeBytes + size;
  });
}

HRESULT ArrayInfo::CreateDataObject(IValueBase** ppResult) {
  return Call("CreateDataObject", [&] {
    HandOut(ppResult, [&] {
      const SHORT element_type = TypeOf(ElementDefinition());
      return CreateValueOf(this, ClassFor(element_type, layout_.element_count));
    });
  });
}

const CLSID* ArrayInfo::ValueClass() noexcept {
  SHORT element_type = kInvalid;
  if (layout_.value_type.inside == nullptr) return nullptr;
  if (FAILED(layout_.value_type.object->get_Type(&element_type))) return nullptr;
  return &ClassFor(element_type, layout_.element_count);
}

HRESULT ArrayInfo::ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                  VARIANT_BOOL* pbResult) {
  return Call("ReadFromBuffer", [&] {
    VARIANT_BOOL& done = Out(pbResult);
    done = VARIANT_FALSE;
    ReadCursor cursor(pBuffer, dwBufferSize);
    if (!Decode(cursor)) return;
    Out(pdwBytesRead) = cursor.position();
    done = VARIANT_TRUE;
  });
}

HRESULT ArrayInfo::WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                 VARIANT_BOOL* pbResult) {
  return Call("WriteToBuffer", [&] {
    VARIANT_BOOL& done = Out(pbResult);
    done = VARIANT_FALSE;
    WriteCursor cursor(pBuffer, dwBufferSize);
    if (!Encode(cursor)) return;
    Out(pdwBytesWritten) = cursor.position();
    done = VARIANT_TRUE;
  });
}

HRESULT ArrayInfo::get_DataType(SHORT* pnType) {
  return Call("DataType", [&] { Out(pnType) = TypeOf(ElementDefinition()); });
}

HRESULT ArrayInfo::put_DataType(SHORT nType) {
  return Call("DataType", [&] {
    if (nType > kLastElementaryType) return;
    if (!layout_.value_type.object)
      layout_.value_type = HeldDefinition(ConstructAs<IValueDefBase>(kSimpleValueInfoClass));
    const Ptr<IValueDefBase> element = ElementDefinition();
    Check(element->put_Type(nType), element);
  });
}

HRESULT ArrayInfo::get_ValueType(IValueDefBase** ppDef) {
  return Call("ValueType", [&] { HandOut(ppDef, Ptr(layout_.value_type.object)); });
}

HRESULT ArrayInfo::put_ValueType(IValueDefBase* pDef) {
  return Call("ValueType", [&] { layout_.value_type = HeldDefinition(QueryFor<IValueDefBase>(pDef)); });
}

HRESULT ArrayInfo::get_ElementCount(LONG* pnCount) {
  return Call("ElementCount", [&] { Out(pnCount) = static_cast<LONG>(layout_.element_count); });
}

HRESULT ArrayInfo::put_ElementCount(LONG nCount) {
  layout_.element_count = static_cast<ULONG>(nCount);
  return S_OK;
}

HRESULT ArrayInfo::get_DataTypeString(BSTR* psType) {
  return Call("DataTypeString",
              [&] { HandOut(psType, [&] { return TypeCodeNameText(TypeOf(ElementDefinition())); }); });
}

Ptr<IValueDefBase> ArrayInfo::ElementDefinition() const {
  return Require(layout_.value_type.object, "the array definition has no element definition");
}

bool ArrayInfo::Decode(ReadCursor& cursor) {
  const ReadingLevel level;
  std::uint16_t count = 0;
  std::uint16_t type = 0;
  std::uint16_t size = 0;  // follows from the element definition; not looked at
  if (level.TooDeep() || !identity_.Decode(cursor) || !cursor.Take(count)) return false;
  layout_.element_count = count;
  if (!cursor.Take(type) || !cursor.Take(size)) return false;
  Ptr<IValueDefBase> definition = DefinitionForReading(type, layout_.value_type.object);
  layout_.value_type = HeldDefinition(definition);
  return DecodeDefinition(*Require(definition, "the type of the elements has no definition class"), cursor);
}

bool ArrayInfo::Encode(WriteCursor& cursor) const {
  if (!identity_.Encode(cursor) || !cursor.Put(static_cast<std::uint16_t>(layout_.element_count)))
    return false;
  const Ptr<IValueDefBase> element = ElementDefinition();
  if (!cursor.Put(TypeOf(element))) return false;
  ULONG size = 0;
  Check(element->get_DataSize(&size), element);
  return cursor.Put(static_cast<std::uint16_t>(size)) && EncodeDefinition(*element, cursor);
}

}  // namespace halyard
