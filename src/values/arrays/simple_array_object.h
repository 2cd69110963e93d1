// What the two simple arrays share: elements of one elementary type side by side, read
// and stored by position, and moved in bulk.
//
// A class provides
//   ULONG ElementCount() const             the elements in use
//   const unsigned char* Stored() const    their bytes; null while all of them are zeros
//   unsigned char* Writable()              their bytes, with memory behind them
//   unsigned char* WritableInFull()        the same, to store all of them
//   unsigned char* Address()               where they lie, for the client
#pragma once

#include <algorithm>
#include <cstdint>

#include "halyard/values/arrays/simple_array.h"
#include "types/number_fields.h"
#include "values/arrays/element_position.h"
#include "values/arrays/numeric_array.h"
#include "values/arrays/simple_elements.h"
#include "values/elementary_memory.h"

namespace halyard {

template <class T, class... Interfaces>
class SimpleArrayObject : public NumericArray<T, Interfaces..., IElementaryMemory> {
 public:
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override {
    return this->Call("Item", [&] {
      VARIANT& result = EmptyOut(pvValue);
      const ULONG position = ElementPosition(vIndex, [&] { return Elements().ElementCount(); });
      const unsigned char* slot = StoredSlot(position);
      if (slot != nullptr && LoadNumber(slot, element_type_, result)) return;
      result = ReadElement(slot, element_type_, width_).Detach();
    });
  }

  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override {
    return this->Call("Item", [&] {
      const ULONG position = ElementPosition(vIndex, [&] { return Elements().ElementCount(); });
      Store(position, vValue);
    });
  }

  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override {
    return this->Call("Count", [&] { Out(pnCount) = static_cast<LONG>(Elements().ElementCount()); });
  }

  HRESULT STDMETHODCALLTYPE get_GetDataPointer(LONG_PTR* pnPointer) override {
    return this->Call("GetDataPointer", [&] {
      LONG_PTR& result = Out(pnPointer);
      result = reinterpret_cast<LONG_PTR>(Elements().Address());
    });
  }

  ElementaryField<const unsigned char> FieldForReading(LONG position) override {
    RequirePosition(position);
    if (width_ == 0) return {};
    const unsigned char* slot = StoredSlot(static_cast<ULONG>(position));
    return {slot != nullptr ? slot : kZeroSlot, element_type_};
  }

  ElementaryField<unsigned char> FieldForWriting(LONG position) override {
    RequirePosition(position);
    if (width_ == 0) return {};
    return {Elements().Writable() + Offset(static_cast<ULONG>(position)), element_type_};
  }

  void MoveColumn(const NumberColumn& column, ULONG elements) {
    const ULONG count = std::min(elements, Elements().ElementCount());
    if (count == 0 || width_ == 0) return;
    if (column.direction() == Direction::kRead) {
      column.ReadRun(0, {Elements().WritableInFull(), element_type_}, width_, count);
    } else if (const unsigned char* stored = Elements().Stored()) {
      column.BuildRun(0, {stored, element_type_}, width_, count);
    } else {
      column.BuildRun(0, {kZeroSlot, element_type_}, 0, count);
    }
  }

 protected:
  // Takes the type of the elements; their width follows from it.
  void SetElementType(SHORT type) noexcept {
    element_type_ = static_cast<std::uint8_t>(type);
    width_ = static_cast<std::uint8_t>(ElementarySize(element_type_));
  }

  [[nodiscard]] std::uint8_t element_type() const noexcept { return element_type_; }
  [[nodiscard]] std::uint8_t width() const noexcept { return width_; }

  // Where the element at a position begins; at the count, the bytes of all elements.
  [[nodiscard]] std::uint64_t Offset(ULONG position) const noexcept {
    return std::uint64_t{width_} * position;
  }

  // Converts the value and stores it. Raises what the conversion raises, and
  // E_INVALIDARG where the element has gone meanwhile.
  void Store(ULONG position, const VARIANT& value) {
    // An Int64 takes more than its own slot.
    if (element_type_ != kInt64 && IsNumberOf(value, element_type_)) {
      if (unsigned char* bytes = Elements().Writable())
        static_cast<void>(StoreOwnNumber(value, element_type_, bytes + Offset(position)));
      return;
    }
    const ConvertedElement converted(value, element_type_, width_);
    const ULONG count = Elements().ElementCount();
    if (position >= count) throw Error(E_INVALIDARG, "the element was removed while its value was converted");
    unsigned char* bytes = Elements().Writable();
    if (bytes != nullptr) converted.StoreAt(bytes + Offset(position), Offset(count) - Offset(position));
  }

 private:
  static constexpr unsigned char kZeroSlot[kWidestElementary] = {};

  T& Elements() noexcept { return this->Self(); }

  const unsigned char* StoredSlot(ULONG position) {
    const unsigned char* stored = Elements().Stored();
    return stored != nullptr ? stored + Offset(position) : nullptr;
  }

  void RequirePosition(LONG position) {
    ElementPosition(Variant(position).get(), [&] { return Elements().ElementCount(); });
  }

  std::uint8_t element_type_ = kInvalid;
  std::uint8_t width_ = 0;  // in bytes; 0 where elements of the type cannot be held
};

}  // namespace halyard
