// A definition that another object holds, with its inner side: what the definitions of
// this library tell one another and the values beyond the public interface.
#pragma once

#include <utility>

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"

namespace halyard {

// Answered by the definitions of this library only, and only inside it.
struct IInsideDefinition : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x5B99EDB0, 0xA20D, 0x43C5, {0xB9, 0xA5, 0xD9, 0xF6, 0x8D, 0x95, 0x82, 0x7A}};

  // The public interface of the same object; null where the object is part of another one,
  // which may answer for it.
  virtual IValueDefBase* Itself() noexcept = 0;

  // The class of the value that CreateDataObject would make now; null where only the call
  // itself can tell, because it asks a foreign definition.
  virtual const CLSID* ValueClass() noexcept = 0;
};

// The inner side of a definition, not counted: it lives as long as the definition. Null
// for the definitions of others and for parts of others.
inline IInsideDefinition* InsideOf(IValueDefBase* definition) noexcept {
  IInsideDefinition* inside = nullptr;
  if (definition == nullptr) return nullptr;
  if (FAILED(definition->QueryInterface(IidOf<IInsideDefinition>, reinterpret_cast<void**>(&inside))))
    return nullptr;
  inside->Release();
  return inside->Itself() == definition ? inside : nullptr;
}

// A definition of this library that somebody else holds.
struct KnownDefinition {
  IValueDefBase* object = nullptr;
  IInsideDefinition* inside = nullptr;
};

struct HeldDefinition {
  HeldDefinition() noexcept = default;
  explicit HeldDefinition(Ptr<IValueDefBase> definition) noexcept
      : object(std::move(definition)), inside(InsideOf(object.get())) {}

  explicit HeldDefinition(const KnownDefinition& known) noexcept
      : object(known.object), inside(known.inside) {}

  HeldDefinition(const HeldDefinition&) = default;
  HeldDefinition(HeldDefinition&& other) noexcept
      : object(std::move(other.object)), inside(std::exchange(other.inside, nullptr)) {}

  // What was held ends when both sides are replaced: its end may run a client's code.
  HeldDefinition& operator=(HeldDefinition other) noexcept {
    std::swap(object, other.object);
    std::swap(inside, other.inside);
    return *this;
  }

  // The same for whoever uses it while it is held; no inner side for a foreign one.
  [[nodiscard]] KnownDefinition Known() const noexcept { return {object.get(), inside}; }

  Ptr<IValueDefBase> object;
  IInsideDefinition* inside = nullptr;
};

}  // namespace halyard
