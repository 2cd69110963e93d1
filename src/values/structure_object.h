// What the two structure classes share: the definition with its member table, the block
// of fixed members, and the calls that look the same in both.
//
// The table is the definition's own and may change under a value; so each field is
// checked against the block that the value really has. A field beyond the block is treated
// as no member. PacketSize counts it all the same, but no buffer is long enough to read or
// write it. (An object member that came later is like a null one, see structure.h.)
#pragma once

#include "values/elementary_memory.h"
#include "values/structure_block.h"
#include "values/structure_type.h"
#include "values/value_object.h"

namespace halyard {

template <class T, class... Interfaces>
class StructureObject : public ValueObject<T, Interfaces..., IElementaryMemory> {
 public:
  static constexpr SHORT kTypeCode = kStructure;

  HRESULT STDMETHODCALLTYPE get_Name(VARIANT vIndex, BSTR* psName) override {
    return this->Call("Name", [&] {
      HandOut(psName, [&] {
        const MemberLayout* member = type_.Find(vIndex);
        return Bstr(member != nullptr ? member->name.View() : WideView());
      });
    });
  }

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override {
    return this->Call("Count", [&] { Out(pnCount) = static_cast<LONG>(type_.layout().members.size()); });
  }

  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* pvValue) override {
    return this->Call("Value", [&] { HandOut(pvValue, this->AsObject()); });
  }

  HRESULT STDMETHODCALLTYPE put_Value(VARIANT) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) override {
    return this->Call("Info", [&] { HandOut(ppInfo, [&] { return type_.Definition(); }); });
  }

  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override {
    if (pInfo == nullptr) {
      return this->Call("Info", [] { throw Error(E_INVALIDARG, "a structure needs a definition"); });
    }
    if (type_) return S_OK;
    // A definition that cannot be taken leaves the value without one, not a failed call.
    const HRESULT hr = this->Call("Info", [&] {
      return Tried([&] {
        type_.Take(pInfo);
        this->Self().Build();
      });
    });
    if (hr == S_OK) return S_OK;
    type_.Drop();
    if (FAILED(hr)) return hr;
    SetErrorInfo(0, nullptr);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override {
    return this->Call("Id", [&] { Out(pnId) = type_.Id(); });
  }

  // Numbers in fixed members, by position, take the short way; all else is up to the class.
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override {
    const MemberLayout* member = type_.FindQuickly(vIndex);
    if (member != nullptr && pvValue != nullptr && block_.ReadQuickly(*member, *pvValue)) return S_OK;
    return this->Self().GetItem(vIndex, pvValue);
  }

  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override {
    const MemberLayout* member = type_.FindQuickly(vIndex);
    if (member != nullptr && block_.WriteQuickly(*member, vValue)) return S_OK;
    return this->Self().PutItem(vIndex, vValue);
  }

  ElementaryField<const unsigned char> FieldForReading(LONG position) override {
    return FieldAt<const unsigned char>(position);
  }

  ElementaryField<unsigned char> FieldForWriting(LONG position) override {
    return FieldAt<unsigned char>(position);
  }

 protected:
  StructureType type_;
  StructureBlock block_;

 private:
  template <class Byte>
  ElementaryField<Byte> FieldAt(LONG position) {
    const MemberLayout* member = type_.layout().At(position);
    if (member == nullptr || !block_.Holds(*member)) return {};
    return {block_.Field(*member).data(), static_cast<SHORT>(member->type)};
  }
};

}  // namespace halyard
