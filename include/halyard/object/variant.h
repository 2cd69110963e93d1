// Variant: the owner of one automation value.
#pragma once

#include "halyard/object/bstr.h"
#include "halyard/object/error.h"
#include "halyard/object/number_variant.h"
#include "halyard/object/ptr.h"

namespace halyard {

class Variant {
 public:
  // VT_EMPTY.
  Variant() noexcept : value_{} {}

  // Scalars of the obvious types: VT_I2, VT_I4, VT_UI1, VT_R4, VT_R8.
  explicit Variant(SHORT value) noexcept : value_(NumberVariant(value)) {}
  explicit Variant(LONG value) noexcept : value_(NumberVariant(value)) {}
  explicit Variant(BYTE value) noexcept : value_(NumberVariant(value)) {}
  explicit Variant(float value) noexcept : value_(NumberVariant(value)) {}
  explicit Variant(double value) noexcept : value_(NumberVariant(value)) {}

  // VT_BSTR with a copy of the text. Throws std::bad_alloc when memory is out.
  explicit Variant(WideView text) : Variant() {
    Bstr copy(text);
    Tag(VT_BSTR).bstrVal = copy.Detach();
  }
  explicit Variant(const OLECHAR* text) : Variant(WideView(text)) {}

  // VT_DISPATCH, sharing the object (which may be none).
  explicit Variant(IDispatch* object) noexcept : Variant() {
    Tag(VT_DISPATCH).pdispVal = Ptr<IDispatch>(object).Detach();
  }

  // VT_DATE of days since 30 December 1899.
  static Variant FromDate(DATE days) noexcept {
    Variant result;
    result.Tag(VT_DATE).date = days;
    return result;
  }
  // VT_NULL.
  static Variant Null() noexcept {
    Variant result;
    result.Tag(VT_NULL);
    return result;
  }
  // VT_BOOL.
  static Variant FromBool(bool value) noexcept {
    Variant result;
    result.Tag(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
  }

  // An independent copy of somebody's value; a failing copy is raised, and E_INVALIDARG for
  // a reference that leads nowhere.
  static Variant CopyOf(const VARIANT& value) {
    Variant result;
    if (OwnsNothing(value.vt)) {
      result.value_ = value;
      return result;
    }
    RequireTarget(value);
    Check(VariantCopy(&result.value_, Source(value)));
    return result;
  }

  // As CopyOf, but a reference (VT_BYREF) gives the value that it points at: for values
  // that are kept longer than the call that brought them. E_INVALIDARG for a reference that
  // leads nowhere.
  static Variant Followed(const VARIANT& value) {
    RequireTarget(value);
    Variant result;
    Check(VariantCopyInd(&result.value_, Source(value)));
    return result;
  }

  Variant(Variant&& other) noexcept : value_(other.Detach()) {}
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { Clear(); }

  // The type of `value` converted, in a new variant; a failing conversion is raised, and
  // E_INVALIDARG for a reference that leads nowhere.
  static Variant Converted(const VARIANT& value, VARTYPE type) {
    RequireTarget(value);
    Variant result;
    Check(VariantChangeType(&result.value_, Source(value), 0, type));
    return result;
  }

  // Whether `value` is a reference to no place, or to a variant that is one. Not every
  // platform looks at that before it follows a reference.
  static bool LeadsNowhere(const VARIANT& value) noexcept {
    if ((value.vt & VT_BYREF) == 0) return false;
    if (value.byref == nullptr) return true;
    const bool is_variant = value.vt == (VT_BYREF | VT_VARIANT);
    return is_variant && (value.pvarVal->vt & VT_BYREF) != 0 && value.pvarVal->byref == nullptr;
  }

  // The value, still owned here; it may be read and, with care for ownership, changed.
  [[nodiscard]] const VARIANT& get() const noexcept { return value_; }
  [[nodiscard]] VARIANT& get() noexcept { return value_; }
  const VARIANT* operator->() const noexcept { return &value_; }
  [[nodiscard]] VARTYPE type() const noexcept { return value_.vt; }

  // The place for an out argument; what was held is cleared first.
  [[nodiscard]] VARIANT* Out() noexcept {
    Clear();
    value_ = VARIANT{};
    return &value_;
  }

  // Hands the value to the caller, who must clear it; this one is empty then.
  [[nodiscard]] VARIANT Detach() noexcept {
    const VARIANT result = value_;
    value_ = VARIANT{};
    return result;
  }

 private:
  // True for the usual numbers; others may own something that must be freed.
  static bool OwnsNothing(VARTYPE type) noexcept {
    return type <= VT_DATE || type == VT_BOOL || type == VT_UI1;
  }

  static void RequireTarget(const VARIANT& value) {
    if (LeadsNowhere(value)) throw Error(E_INVALIDARG, "the argument is a reference that leads nowhere");
  }

  void Clear() noexcept {
    if (!OwnsNothing(value_.vt)) VariantClear(&value_);
  }

  // Some declarations of the platform's functions forget that they only read.
  static VARIANT* Source(const VARIANT& value) noexcept { return const_cast<VARIANT*>(&value); }

  VARIANT& Tag(VARTYPE type) noexcept {
    value_.vt = type;
    return value_;
  }

  VARIANT value_;
};

}  // namespace halyard
