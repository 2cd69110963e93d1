// What the two structure classes share: the definition with its member table, the block
// of fixed members, and the look-up and conversion of members.
//
// The table is the definition's own and may change under a value; so each field is
// checked against the block that the value really has. What does not fit is treated as
// no member, and the encoding of such a value as too short.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "definitions/structure_layout.h"
#include "halyard/definitions/structure_def.h"
#include "types/elementary.h"
#include "values/value_object.h"

namespace halyard {

// The fixed members of one structure value as raw bytes.
class StructureBlock {
 public:
  // A block of zeros. Behind it lie spare bytes, because an Int64 is stored in 8 bytes
  // although it counts 4.
  void Allocate(std::uint16_t size) {
    bytes_.assign(size + kWidestElementary, 0);
    size_ = size;
  }

  [[nodiscard]] std::uint16_t size() const noexcept { return size_; }
  [[nodiscard]] std::span<unsigned char> bytes() noexcept { return {bytes_.data(), size_}; }

  // The field of a fixed member; empty where the block does not hold it.
  [[nodiscard]] std::span<unsigned char> Field(const MemberLayout& member) noexcept {
    if (member.size == 0 || member.offset + std::size_t{member.size} > size_) return {};
    return bytes().subspan(member.offset, member.size);
  }

  // The content of a field; the empty text for types that have no conversion. The text
  // of a full FixedString goes on into the fields behind it.
  Variant Read(const MemberLayout& member);

  // Stores the value, converted, in a field; raises what the conversion raises.
  void Write(const MemberLayout& member, const VARIANT& value);

 private:
  std::vector<unsigned char> bytes_;
  std::uint16_t size_ = 0;
};

// The definition that a structure value holds, if it has taken one.
class StructureType {
 public:
  // Takes a structure definition of this library; raises E_INVALIDARG for any other
  // object and what its answers raise.
  void Take(IValueDefBase* definition);
  void Drop() noexcept;

  [[nodiscard]] explicit operator bool() const noexcept { return static_cast<bool>(definition_); }
  [[nodiscard]] const StructureLayout& layout() const;

  // The definition with a reference, and its id. Both raise E_POINTER without one.
  [[nodiscard]] Ptr<IValueDefBase> Definition() const;
  [[nodiscard]] SHORT Id() const;

  // The member that a client's index means, null for none: a name, or a position.
  // Raises what the conversion of the index raises.
  [[nodiscard]] const MemberLayout* Find(const VARIANT& index) const;

 private:
  Ptr<IStructureDef> definition_;
  Ptr<IStructureLayoutSource> source_;
};

template <class T, class... Interfaces>
class StructureObject : public ValueObject<T, Interfaces...> {
 public:
  static constexpr SHORT kTypeCode = kStructure;

  HRESULT STDMETHODCALLTYPE get_Name(VARIANT vIndex, BSTR* psName) override {
    return this->Call("Name", [&] {
      BSTR& name = Out(psName);
      const MemberLayout* member = type_.Find(vIndex);
      name = Bstr(member != nullptr ? member->name.View() : WideView()).Detach();
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
    return this->Call("Info", [&] {
      Out(ppInfo) = nullptr;
      *ppInfo = type_.Definition().Detach();
    });
  }

  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override {
    if (pInfo == nullptr) {
      return this->Call("Info", [] { throw Error(E_INVALIDARG, "a structure needs a definition"); });
    }
    if (type_) return S_OK;
    // A definition that cannot be taken leaves the value without one, not a failed call.
    const HRESULT hr = this->Call("Info", [&] {
      type_.Take(pInfo);
      this->Self().Build();
    });
    if (FAILED(hr)) {
      SetErrorInfo(0, nullptr);
      type_.Drop();
    }
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override {
    return this->Call("Id", [&] { Out(pnId) = type_.Id(); });
  }

 protected:
  StructureType type_;
  StructureBlock block_;
};

}  // namespace halyard
