// SimpleValue: one elementary datum.
#pragma once

#include <cstdint>

#include "halyard/values/simple_value.h"
#include "values/simple_content.h"
#include "values/value_object.h"

namespace halyard {

class SimpleValue : public ValueObject<SimpleValue, IValueBase, ISimpleValue> {
 public:
  static constexpr char kClassName[] = "SimpleValue";
  static constexpr ValueTraits kTraits{.stands_alone = true, .keeps_to_itself = true, .writes_at_once = false};

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

  // These two do not look at the size of the buffer but for a String.
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                           VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override;

  // Of a value inside another one the buffer is known to its end.
  bool DecodeInside(ReadCursor& cursor) override;
  bool EncodeInside(WriteCursor& cursor) override;

  SHORT TypeCode() const noexcept { return type_; }
  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  HRESULT DefaultValue(VARIANT* result) noexcept { return get_Value(result); }

  // The text of a String behind its length.
  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  // Takes type and size from a definition; raises what its answers raise.
  void TakeDefinition(IValueDefBase* definition);
  void ResetValue();

  // Becomes the value as that variant type, or stays what it is where the value does not
  // convert. Throws std::bad_alloc.
  void PutConverted(VARIANT& value, VARTYPE type);

  SimpleContent content_;  // its variant type is what Value (put) converts to
  SHORT type_ = kInvalid;
  std::uint16_t data_size_ = 0;  // 0: the elementary size of the type
};

}  // namespace halyard
