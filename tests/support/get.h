// Reads a property or the result of a method into something that owns it and that a
// test can compare: numbers as they are, strings as plain text, variants and interfaces
// in their owners. Every out argument starts from garbage, so that a call that answers
// success without writing it is found out.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>

#include "halyard/object/ptr.h"
#include "tests/support/variants.h"

namespace halyard::test {

// The byte that fills an out argument before the call.
inline constexpr int kGarbageByte = 0xCD;

template <class T>
T Garbage() {
  T value;
  std::memset(static_cast<void*>(&value), kGarbageByte, sizeof value);
  return value;
}

// Takes over a raw out value.
template <class T>
auto Own(T value) {
  if constexpr (std::is_same_v<T, BSTR>) {
    return Plain(Bstr::Adopt(value).get());
  } else if constexpr (std::is_same_v<T, VARIANT>) {
    Variant owner;
    *owner.Out() = value;
    return owner;
  } else if constexpr (std::is_pointer_v<T>) {
    return Ptr<std::remove_pointer_t<T>>::Adopt(value);
  } else {
    return value;
  }
}

// The out value of a call that must succeed.
template <class T, class Call>
auto Result(Call&& call) {
  T value = Garbage<T>();
  const HRESULT status = call(&value);
  EXPECT_EQ(status, S_OK);
  return Own(status == S_OK ? value : T{});
}

// Get(definition, &IValueDefBase::get_Type)
template <class Object, class I, class T>
auto Get(const Ptr<Object>& object, HRESULT (STDMETHODCALLTYPE I::*method)(T*)) {
  return Result<T>([&](T* out) { return (object.get()->*method)(out); });
}

// Get(value, &IValueBase::get_Item, index)
template <class Object, class I, class A, class T>
auto Get(const Ptr<Object>& object, HRESULT (STDMETHODCALLTYPE I::*method)(A, T*),
         std::type_identity_t<A> argument) {
  return Result<T>([&](T* out) { return (object.get()->*method)(argument, out); });
}

template <class Object, class I, class T>
auto Get(const Ptr<Object>& object, HRESULT (STDMETHODCALLTYPE I::*method)(VARIANT, T*),
         const Variant& argument) {
  return Result<T>([&](T* out) { return (object.get()->*method)(argument.get(), out); });
}

}  // namespace halyard::test
