// A definition of somebody else, of type Long until a test says otherwise.
#pragma once

#include "halyard/definitions/structure_def.h"
#include "halyard/object/bstr.h"
#include "halyard/types/type_codes.h"
#include "tests/support/foreign.h"

namespace halyard::test {

template <class I>
class ForeignDefinitionOf : public Foreign<I> {
 public:
  Answer<SHORT> type{kLong};
  Answer<SHORT> id{};
  Answer<ULONG> data_size{4};
  Answer<ULONG> calculated_size{4};
  Answer<ULONG> packet_size{0};
  ObjectAnswer<IValueBase> created;
  BufferAnswer read;
  BufferAnswer write;
  WideString name;
  HRESULT name_status = S_OK;

  HRESULT STDMETHODCALLTYPE get_Count(LONG* out) override { return Answer<LONG>{}.To(out); }
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* out) override { return type.To(out); }
  HRESULT STDMETHODCALLTYPE put_Type(SHORT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* out) override { return id.To(out); }
  HRESULT STDMETHODCALLTYPE put_Id(SHORT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE get_Name(BSTR* out) override {
    *out = FAILED(name_status) ? nullptr : Bstr(name).Detach();
    return name_status;
  }
  HRESULT STDMETHODCALLTYPE put_Name(BSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* out) override { return data_size.To(out); }
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* out) override { return calculated_size.To(out); }
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* out) override { return packet_size.To(out); }
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** out) override { return created.To(out); }
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char*, ULONG, ULONG* count,
                                           VARIANT_BOOL* result) override {
    return read.To(count, result);
  }
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char*, ULONG, ULONG* count,
                                          VARIANT_BOOL* result) override {
    return write.To(count, result);
  }
  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR*) override { return E_NOTIMPL; }
};

using ForeignDefinition = ForeignDefinitionOf<IValueDefBase>;

// A structure definition that is not the library's own.
class ForeignStructureDefinition : public ForeignDefinitionOf<IStructureDef> {
 public:
  HRESULT STDMETHODCALLTYPE get_MemberCount(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_MemberName(LONG, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_MemberName(LONG, BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Members(VARIANT, IValueDefBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Members(VARIANT, IValueDefBase*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddMember(BSTR, IDispatch*, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddSimpleMember(BSTR, SHORT, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddSimpleMemberSized(BSTR, SHORT, SHORT, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE MemberIndex(BSTR, LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE MemberInfo(LONG, SHORT*, LONG*, ULONG*, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_CanBeNull(VARIANT, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_CanBeNull(VARIANT, VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddSimpleArrayMember(BSTR, SHORT, LONG, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
};

}  // namespace halyard::test
