#include "values/enumeration.h"

#include "definitions/enumeration_number.h"
#include "halyard/classes.h"

namespace halyard {
namespace {

bool HasNoElements(const Ptr<IEnumerationDef>& definition) {
  LONG count = 0;
  return SUCCEEDED(definition->get_ElementCount(&count)) && count == 0;
}

// The number that a new value has: that of the first element, 0 where there is none.
LONG FirstNumber(const Ptr<IEnumerationDef>& definition) {
  LONG value = 0;
  const HRESULT hr = definition->get_ElementValue(0, &value);
  if (SUCCEEDED(hr)) return value;
  if (!HasNoElements(definition)) Check(hr, definition);
  SetErrorInfo(0, nullptr);  // that there is none is no failure here
  return 0;
}

}  // namespace

HRESULT Enumeration::get_Item(VARIANT, VARIANT* pvValue) { return get_Value(pvValue); }

HRESULT Enumeration::put_Item(VARIANT, VARIANT) { return S_OK; }

HRESULT Enumeration::get_Name(VARIANT, BSTR* psName) {
  return Call("Name", [&] { HandOut(psName, [&] { return NewEmptyText(); }); });
}

HRESULT Enumeration::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = 0; });
}

HRESULT Enumeration::get_At(VARIANT, IValueBase** ppValue) {
  return Call("At", [&] { HandOut(ppValue, Ptr<IValueBase>(this)); });
}

HRESULT Enumeration::get_Value(VARIANT* pvValue) {
  return Call("Value", [&] { HandOut(pvValue, Variant(value_)); });
}

HRESULT Enumeration::put_Value(VARIANT vValue) {
  return Call("Value",
              [&] { value_ = vValue.vt == VT_I4 ? vValue.lVal : Variant::Converted(vValue, VT_I4)->lVal; });
}

HRESULT Enumeration::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<Enumeration> copy = NewObject<Enumeration>();
    copy->value_ = value_;
    copy->definition_ = definition_;
    HandOut(ppCopy, Ptr<IValueBase>(copy));
  });
}

HRESULT Enumeration::get_Info(IValueDefBase** ppInfo) {
  return Call("Info", [&] { HandOut(ppInfo, [&] { return QueryFor<IValueDefBase>(Definition().get()); }); });
}

HRESULT Enumeration::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    if (definition_) return;
    definition_ = QueryFor<IEnumerationDef>(pInfo);
    value_ = FirstNumber(Definition());
  });
}

HRESULT Enumeration::get_Id(SHORT* pnId) {
  return Call("Id", [&] {
    SHORT& id = Out(pnId);
    const Ptr<IEnumerationDef> definition = Definition();
    Check(definition->get_Id(&id), definition);
  });
}

HRESULT Enumeration::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] { Out(pdwSize) = ElementarySize(DataType()); });
}

bool Enumeration::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || !(value_class == kEnumerationClass)) return false;
  if (static_cast<IValueDefBase*>(definition_.get()) != definition) return false;
  ResetFrame();
  value_ = FirstNumber(definition_);
  return true;
}

// Number types without an encoding have a size all the same, but cannot travel.
bool Enumeration::Decode(ReadCursor& cursor) {
  const SHORT type = DataType();
  return EnumerationNumberWidth(type) != 0 && TakeEnumerationNumber(cursor, type, value_);
}

bool Enumeration::Encode(WriteCursor& cursor) const {
  const SHORT type = DataType();
  return EnumerationNumberWidth(type) != 0 && PutEnumerationNumber(cursor, type, value_);
}

Ptr<IEnumerationDef> Enumeration::Definition() const {
  return Require(definition_, "the enumeration value has no definition");
}

SHORT Enumeration::DataType() const {
  const Ptr<IEnumerationDef> definition = Definition();
  SHORT type = kInvalid;
  Check(definition->get_DataType(&type), definition);
  return type;
}

}  // namespace halyard
