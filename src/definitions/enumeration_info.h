// EnumerationInfo: the definition of an enumeration, an ordered list of named numbers.
#pragma once

#include "definitions/composite_definition.h"
#include "halyard/definitions/enumeration_def.h"
#include "object/optional_text.h"
#include "object/sparse_list.h"

namespace halyard {

class EnumerationInfo : public CompositeDefinition<EnumerationInfo, IEnumerationInfo> {
 public:
  static constexpr char kClassName[] = "EnumerationInfo";
  static constexpr SHORT kTypeCode = kEnumeration;

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** ppResult) override;

  HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_ElementName(LONG nIndex, BSTR* psName) override;
  HRESULT STDMETHODCALLTYPE put_ElementName(LONG nIndex, BSTR sName) override;
  HRESULT STDMETHODCALLTYPE get_ElementValue(LONG nIndex, LONG* pnValue) override;
  HRESULT STDMETHODCALLTYPE put_ElementValue(LONG nIndex, LONG nValue) override;
  HRESULT STDMETHODCALLTYPE get_DataType(SHORT* pnType) override;
  HRESULT STDMETHODCALLTYPE put_DataType(SHORT nType) override;
  HRESULT STDMETHODCALLTYPE AddMember(BSTR sName, LONG nValue, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE Remove(LONG nIndex) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR* psType) override;

  const CLSID* ValueClass() noexcept override;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

 private:
  struct Element {
    LONG value = 0;
    OptionalText name;
  };

  // The position that a client's index means; raises E_INVALIDARG outside the list.
  std::uint32_t PositionOf(LONG index) const;

  // The element at a position: number 0 and no name where a broken encoding announced
  // it and nobody gave it any yet.
  const Element& ElementAt(std::uint32_t position) const noexcept;

  [[nodiscard]] bool DecodeElement(ReadCursor& cursor, Element& element) const;
  [[nodiscard]] bool EncodeElement(WriteCursor& cursor, const Element& element) const;

  SparseList<Element> elements_;
  SHORT data_type_ = kChar;  // a reader takes any code, put_DataType only three
};

}  // namespace halyard
