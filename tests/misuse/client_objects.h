// A definition and a value that a client wrote.
#pragma once

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/variant.h"
#include "halyard/values/value_base.h"
#include "tests/misuse/mischief.h"

namespace halyard::test {

// What definitions and values have in common.
template <class Interface>
class ClientDescription : public ClientObject<Interface> {
 public:
  using ClientObject<Interface>::ClientObject;

  HRESULT STDMETHODCALLTYPE get_Count(LONG* out) override {
    return this->Pass([&](Interface& inner, const Mischief&) { return inner.get_Count(out); });
  }
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* out) override {
    return this->Pass([&](Interface& inner, const Mischief&) { return inner.get_Type(out); });
  }
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* out) override { return this->PassId(out); }
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* out) override {
    return this->PassSize(out, [&](Interface& inner) { return inner.get_PacketSize(out); });
  }
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* bytes, ULONG size, ULONG* count,
                                           VARIANT_BOOL* result) override {
    return this->PassBytes(
        count, [&](Interface& inner) { return inner.ReadFromBuffer(bytes, size, count, result); });
  }
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* bytes, ULONG size, ULONG* count,
                                          VARIANT_BOOL* result) override {
    return this->PassBytes(count,
                           [&](Interface& inner) { return inner.WriteToBuffer(bytes, size, count, result); });
  }
  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* out) override {
    return this->Pass([&](Interface& inner, const Mischief&) { return inner.get_TypeString(out); });
  }
};

class ClientValue : public ClientDescription<IValueBase> {
 public:
  using ClientDescription::ClientDescription;

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT index, VARIANT* out) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.get_Item(index, out); });
  }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT index, VARIANT value) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.put_Item(index, value); });
  }
  HRESULT STDMETHODCALLTYPE get_Name(VARIANT index, BSTR* out) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.get_Name(index, out); });
  }
  HRESULT STDMETHODCALLTYPE Add(VARIANT value) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.Add(value); });
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT index) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.Remove(index); });
  }
  HRESULT STDMETHODCALLTYPE RemoveAll() override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.RemoveAll(); });
  }
  HRESULT STDMETHODCALLTYPE get_At(VARIANT index, IValueBase** out) override {
    return PassMade(out, [&](IValueBase& inner) { return inner.get_At(index, out); });
  }
  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* out) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.get_Value(out); });
  }
  HRESULT STDMETHODCALLTYPE put_Value(VARIANT value) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.put_Value(value); });
  }
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** out) override {
    return PassMade(out, [&](IValueBase& inner) { return inner.Copy(out); });
  }
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** out) override {
    return PassMade(out, [&](IValueBase& inner) { return inner.get_Info(out); });
  }
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* definition) override {
    return Pass([&](IValueBase& inner, const Mischief&) { return inner.put_Info(definition); });
  }
};

// The values that it makes are the client's, too, and do the same mischief.
class ClientDefinition : public ClientDescription<IValueDefBase> {
 public:
  using ClientDescription::ClientDescription;

  HRESULT STDMETHODCALLTYPE put_Type(SHORT type) override {
    return Pass([&](IValueDefBase& inner, const Mischief&) { return inner.put_Type(type); });
  }
  HRESULT STDMETHODCALLTYPE put_Id(SHORT id) override {
    return Pass([&](IValueDefBase& inner, const Mischief&) { return inner.put_Id(id); });
  }
  HRESULT STDMETHODCALLTYPE get_Name(BSTR* out) override {
    return Pass([&](IValueDefBase& inner, const Mischief&) { return inner.get_Name(out); });
  }
  HRESULT STDMETHODCALLTYPE put_Name(BSTR name) override {
    return Pass([&](IValueDefBase& inner, const Mischief&) { return inner.put_Name(name); });
  }
  HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* out) override {
    return PassSize(out, [&](IValueDefBase& inner) { return inner.get_DataSize(out); });
  }
  HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* out) override {
    return PassSize(out, [&](IValueDefBase& inner) { return inner.CalculateDataSize(out); });
  }
  HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** out) override {
    const auto mischief = shared_mischief();
    return PassMade(out, [&](IValueDefBase& inner) {
      Ptr<IValueBase> made;
      const HRESULT hr = inner.CreateDataObject(made.Out());
      if (SUCCEEDED(hr)) *out = Ptr<IValueBase>(new ClientValue(made, mischief)).Detach();
      return hr;
    });
  }
};

}  // namespace halyard::test
