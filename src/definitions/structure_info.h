// StructureInfo: the definition of a record. Its members are kept in a StructureLayout;
// structure_encoding.cpp holds its encoding, structure_calculation.cpp works the layout out.
#pragma once

#include <optional>

#include "definitions/composite_definition.h"
#include "definitions/structure_layout.h"
#include "halyard/definitions/structure_def.h"

namespace halyard {

class StructureInfo : public CompositeDefinition<StructureInfo, IStructureInfo, IStructureLayoutSource> {
 public:
  static constexpr char kClassName[] = "StructureInfo";
  static constexpr SHORT kTypeCode = kStructure;

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** ppResult) override;

  HRESULT STDMETHODCALLTYPE get_MemberCount(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE get_MemberName(LONG nIndex, BSTR* psName) override;
  HRESULT STDMETHODCALLTYPE put_MemberName(LONG nIndex, BSTR sName) override;
  HRESULT STDMETHODCALLTYPE get_Members(VARIANT vIndex, IValueDefBase** ppDef) override;
  HRESULT STDMETHODCALLTYPE put_Members(VARIANT vIndex, IValueDefBase* pDef) override;
  HRESULT STDMETHODCALLTYPE AddMember(BSTR sName, IDispatch* pValueType, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE AddSimpleMember(BSTR sName, SHORT DataType, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE AddSimpleMemberSized(BSTR sName, SHORT DataType, SHORT DataSize,
                                                 VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE MemberIndex(BSTR sName, LONG* pnIndex) override;
  HRESULT STDMETHODCALLTYPE MemberInfo(LONG nIndex, SHORT* pDataType, LONG* pOffset, ULONG* pDataSize,
                                       VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE get_CanBeNull(VARIANT vIndex, VARIANT_BOOL* pbCanBeNull) override;
  HRESULT STDMETHODCALLTYPE put_CanBeNull(VARIANT vIndex, VARIANT_BOOL bCanBeNull) override;
  HRESULT STDMETHODCALLTYPE AddSimpleArrayMember(BSTR sName, SHORT DataType, LONG nElemCount,
                                                 VARIANT_BOOL* pbResult) override;

  StructureLayout& Layout() override { return layout_; }
  const CLSID* ValueClass() noexcept override;
  IValueDefBase* Outside() noexcept override { return static_cast<IStructureInfo*>(this); }

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  // The member at a position, to look at; raises E_INVALIDARG outside the table.
  [[nodiscard]] const MemberLayout& MemberAt(LONG position) const;

  // The position that a client's index means: none for an unknown name; raises
  // E_INVALIDARG for a position outside the table and what a conversion raises.
  [[nodiscard]] std::optional<LONG> FindMember(const VARIANT& index) const;

  // The member that a client's index means, to change; null for an unknown name.
  MemberLayout* FindForChange(const VARIANT& index);

  void Append(BSTR name, Ptr<IValueDefBase> definition);

  void CalculateLayout();

  [[nodiscard]] bool DecodeMember(ReadCursor& cursor, std::size_t position);

  // The member at a position, which the table grows to hold.
  MemberLayout& Reached(std::size_t position);

  // Takes the members from position `count` on out of the table.
  void CutMembers(std::size_t count);

  StructureLayout& Whole() { return layout_.Whole(); }

  StructureLayout layout_;
};

}  // namespace halyard
