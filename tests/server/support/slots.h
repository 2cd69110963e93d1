// The slots of an interface as its C++ header declares them: their order, their
// argument types and the dispatch ids that belong to them.
#pragma once

#include <bit>
#include <span>
#include <string>
#include <vector>

#include "halyard/halyard.h"

namespace halyard::test {

// An argument type as a type library describes it: a plain type, or one behind one or
// two pointers.
struct ArgumentType {
  VARTYPE type;
  int pointers = 0;
  IID interface_id{};  // of VT_USERDEFINED

  friend bool operator==(const ArgumentType&, const ArgumentType&) = default;
};

std::string Describe(const ArgumentType& type);

// What the C++ type T is in a type library. A SHORT stands for VT_BOOL as well: the
// platform's VARIANT_BOOL is the same type.
template <class T>
struct ArgumentTypeOf;

template <VARTYPE kType>
struct PlainArgument {
  static constexpr ArgumentType kValue = {kType};
};

template <>
struct ArgumentTypeOf<SHORT> : PlainArgument<VT_I2> {};
template <>
struct ArgumentTypeOf<USHORT> : PlainArgument<VT_UI2> {};
template <>
struct ArgumentTypeOf<LONG> : PlainArgument<VT_I4> {};
template <>
struct ArgumentTypeOf<ULONG> : PlainArgument<VT_UI4> {};
template <>
struct ArgumentTypeOf<LONGLONG> : PlainArgument<VT_I8> {};
template <>
struct ArgumentTypeOf<BSTR> : PlainArgument<VT_BSTR> {};
template <>
struct ArgumentTypeOf<VARIANT> : PlainArgument<VT_VARIANT> {};
template <>
struct ArgumentTypeOf<unsigned char> : PlainArgument<VT_UI1> {};
template <>
struct ArgumentTypeOf<IDispatch*> : PlainArgument<VT_DISPATCH> {};

template <class T>
struct ArgumentTypeOf<T*> {
  static constexpr ArgumentType Value() {
    if constexpr (requires { T::kIid; }) {
      return {VT_USERDEFINED, 1, T::kIid};
    } else {
      ArgumentType type = ArgumentTypeOf<T>::kValue;
      ++type.pointers;
      return type;
    }
  }
  static constexpr ArgumentType kValue = Value();
};

// One slot.
struct Slot {
  const OLECHAR* name;
  INVOKEKIND kind;
  DISPID id;
  std::size_t vtable_offset;  // in bytes
  std::vector<ArgumentType> arguments;
};

// The place of a virtual function in its vtable, in bytes, by the representation that
// the compiler gives a pointer to it.
template <class Method>
std::size_t VtableOffset(Method method) {
  struct Representation {
    std::size_t offset_plus_one;
    std::ptrdiff_t adjustment;
  };
  static_assert(sizeof(Method) == sizeof(Representation));
  return std::bit_cast<Representation>(method).offset_plus_one - 1;
}

template <class I, class... Arguments>
Slot SlotOf(const OLECHAR* name, INVOKEKIND kind, DISPID id,
            HRESULT (STDMETHODCALLTYPE I::*method)(Arguments...)) {
  return {name, kind, id, VtableOffset(method), {ArgumentTypeOf<Arguments>::kValue...}};
}

// An interface with the slots that it adds to its base.
struct InterfaceSlots {
  const OLECHAR* name;
  IID iid;
  IID base;
  std::vector<Slot> slots;
};

// All interfaces of the headers.
const std::vector<InterfaceSlots>& HeaderInterfaces();

}  // namespace halyard::test
