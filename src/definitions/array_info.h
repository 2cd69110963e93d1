// ArrayInfo: the definition of an array, an element definition and a count.
#pragma once

#include "definitions/array_layout.h"
#include "definitions/composite_definition.h"
#include "halyard/definitions/array_def.h"

namespace halyard {

class ArrayInfo : public CompositeDefinition<ArrayInfo, IArrayDef, IArrayLayoutSource> {
 public:
  static constexpr char kClassName[] = "ArrayInfo";
  static constexpr SHORT kTypeCode = kArray;

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** ppResult) override;

  // These two ask for a result only: a null buffer is an empty one, and the count is
  // needed on success.
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                           VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override;

  HRESULT STDMETHODCALLTYPE get_DataType(SHORT* pnType) override;
  HRESULT STDMETHODCALLTYPE put_DataType(SHORT nType) override;
  HRESULT STDMETHODCALLTYPE get_ValueType(IValueDefBase** ppDef) override;
  HRESULT STDMETHODCALLTYPE put_ValueType(IValueDefBase* pDef) override;
  HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE put_ElementCount(LONG nCount) override;
  HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR* psType) override;

  const CLSID* ValueClass() noexcept override;
  const ArrayLayout& Layout() override { return layout_; }

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

 private:
  // The element definition, held; raises E_POINTER without one.
  Ptr<IValueDefBase> ElementDefinition() const;

  ArrayLayout layout_;
};

}  // namespace halyard
