// Collection: the value of type code 16. It is declared like the other values but holds
// no data: it has a type, and every other call is E_NOTIMPL.
#pragma once

#include "halyard/values/collection.h"
#include "object/object.h"
#include "types/type_names.h"

namespace halyard {

class Collection : public Object<Collection, ICollectionImpl> {
 public:
  static constexpr char kClassName[] = "Collection";

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT, VARIANT* pvValue) override { return NoUse("Item", pvValue); }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT, VARIANT) override { return NoUse("Item"); }
  HRESULT STDMETHODCALLTYPE get_Name(VARIANT, BSTR* psName) override { return NoUse("Name", psName); }
  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override { return NoUse("Count", pnCount); }
  HRESULT STDMETHODCALLTYPE Add(VARIANT) override { return NoUse("Add"); }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return NoUse("Remove"); }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return NoUse("RemoveAll"); }
  HRESULT STDMETHODCALLTYPE get_At(VARIANT, IValueBase** ppValue) override { return NoUse("At", ppValue); }
  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* pvValue) override { return NoUse("Value", pvValue); }
  HRESULT STDMETHODCALLTYPE put_Value(VARIANT) override { return NoUse("Value"); }
  HRESULT STDMETHODCALLTYPE Copy(IValueBase**) override { return NoUse("Copy"); }
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) override { return NoUse("Info", ppInfo); }
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase*) override { return NoUse("Info"); }
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override { return NoUse("Id", pnId); }
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char*, ULONG, ULONG* pdwBytesRead,
                                           VARIANT_BOOL* pbResult) override {
    return NoUse("ReadFromBuffer", pdwBytesRead, pbResult);
  }
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char*, ULONG, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override {
    return NoUse("WriteToBuffer", pdwBytesWritten, pbResult);
  }

  HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) override {
    return Call("Type", [&] { Out(pnType) = kCollection; });
  }

  // Not implemented either, but the size reads 0.
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override {
    return Call("PacketSize", [&] {
      Out(pdwSize) = 0;
      throw Error(E_NOTIMPL);
    });
  }

  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) override {
    return Call("TypeString", [&] { HandOut(psType, [&] { return TypeCodeNameText(kCollection); }); });
  }

 private:
  // E_POINTER where one of the out arguments is null, E_NOTIMPL with all of them left
  // alone otherwise.
  template <class... Places>
  HRESULT NoUse(const char* operation, Places*... places) noexcept {
    return Call(operation, [&] {
      static_cast<void>((static_cast<void>(Out(places)), ...));
      throw Error(E_NOTIMPL);
    });
  }
};

}  // namespace halyard
