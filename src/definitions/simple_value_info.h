// SimpleValueInfo: the definition of one elementary value.
#pragma once

#include <cstdint>

#include "definitions/definition_object.h"
#include "halyard/definitions/simple_value_def.h"
#include "halyard/object/variant.h"
#include "object/optional_text.h"

namespace halyard {

class SimpleValueInfo : public DefinitionObject<SimpleValueInfo, ISimpleValueInfo> {
 public:
  static constexpr char kClassName[] = "SimpleValueInfo";

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE put_Type(SHORT nType) override;
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override;
  HRESULT STDMETHODCALLTYPE put_Id(SHORT nId) override;
  HRESULT STDMETHODCALLTYPE get_Name(BSTR* psName) override;
  HRESULT STDMETHODCALLTYPE put_Name(BSTR sName) override;
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** ppResult) override;

  HRESULT STDMETHODCALLTYPE get_MinValue(VARIANT* pvMin) override;
  HRESULT STDMETHODCALLTYPE put_MinValue(VARIANT vMin) override;
  HRESULT STDMETHODCALLTYPE get_MaxValue(VARIANT* pvMax) override;
  HRESULT STDMETHODCALLTYPE put_MaxValue(VARIANT vMax) override;
  HRESULT STDMETHODCALLTYPE get_Validation(VARIANT_BOOL* pbValidation) override;
  HRESULT STDMETHODCALLTYPE put_Validation(VARIANT_BOOL bValidation) override;
  HRESULT STDMETHODCALLTYPE get_ValidationScript(BSTR* psScript) override;
  HRESULT STDMETHODCALLTYPE put_ValidationScript(BSTR sScript) override;
  HRESULT STDMETHODCALLTYPE SetDataSize(LONG nSize) override;

  const CLSID* ValueClass() noexcept override;

  SHORT TypeCode() const noexcept { return type_; }
  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  SHORT type_ = kShort;
  VARIANT_BOOL validation_ = VARIANT_FALSE;
  Variant min_value_{SHORT{0}};
  Variant max_value_{SHORT{0}};
  OptionalText script_;
  std::uint16_t data_size_ = 0;  // 0: the elementary size of the type
};

}  // namespace halyard
