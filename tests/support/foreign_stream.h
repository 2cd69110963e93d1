// A session and a unit of somebody else.
#pragma once

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/variant.h"
#include "halyard/stream/orm_session.h"
#include "halyard/stream/unit.h"
#include "tests/support/foreign.h"

namespace halyard::test {

class ForeignSession : public Foreign<IOrmSession> {
 public:
  ObjectAnswer<IValueDefBase> found;
  HRESULT add_status = S_OK;

  // What the last GetTypeFromId asked for.
  VARTYPE asked_tag = VT_EMPTY;
  LONG asked_type = 0;
  SHORT asked_id = 0;

  HRESULT STDMETHODCALLTYPE GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** out) override {
    asked_tag = vtType.vt;
    asked_type = vtType.lVal;
    asked_id = wId;
    return found.To(out);
  }
  HRESULT STDMETHODCALLTYPE AddType(IValueDefBase*, VARIANT_BOOL* result) override {
    *result = VARIANT_FALSE;
    return add_status;
  }
  HRESULT STDMETHODCALLTYPE GetStructureByName(BSTR, IStructureDef**) override { return E_NOTIMPL; }
};

class ForeignUnit : public Foreign<IUnit> {
 public:
  Answer<ULONG> packet_size{0};
  BufferAnswer write;
  HRESULT put_value_status = S_OK;
  HRESULT put_info_status = S_OK;
  HRESULT put_session_status = S_OK;

  HRESULT STDMETHODCALLTYPE get_IsDataUnit(VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_IsInfoUnit(VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Type(SHORT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Value(IValueBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Value(IValueBase*) override { return put_value_status; }
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase*) override { return put_info_status; }
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* out) override { return packet_size.To(out); }
  HRESULT STDMETHODCALLTYPE get_Session(IOrmSession**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Session(IOrmSession*) override { return put_session_status; }
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char*, ULONG, ULONG*, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char*, ULONG, ULONG* count,
                                          VARIANT_BOOL* result) override {
    return write.To(count, result);
  }
};

}  // namespace halyard::test
