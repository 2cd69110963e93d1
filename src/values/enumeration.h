// Enumeration: one whole number of an enumeration definition.
#pragma once

#include "halyard/definitions/enumeration_def.h"
#include "halyard/values/enumeration.h"
#include "values/value_object.h"

namespace halyard {

class Enumeration : public ValueObject<Enumeration, IEnumeration> {
 public:
  static constexpr char kClassName[] = "Enumeration";
  static constexpr SHORT kTypeCode = kEnumeration;
  static constexpr ValueTraits kTraits{.stands_alone = false, .keeps_to_itself = false, .writes_at_once = true};

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override;
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE get_Name(VARIANT vIndex, BSTR* psName) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_At(VARIANT vIndex, IValueBase** ppValue) override;
  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* pvValue) override;
  HRESULT STDMETHODCALLTYPE put_Value(VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  HRESULT DefaultValue(VARIANT* result) noexcept { return get_Value(result); }

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

 private:
  // The definition, held; raises E_POINTER without one.
  Ptr<IEnumerationDef> Definition() const;

  // The definition's number type, asked anew each time.
  SHORT DataType() const;

  LONG value_ = 0;
  Ptr<IEnumerationDef> definition_;
};

}  // namespace halyard
