// The error boundary: inside the library failures are exceptions, at an interface they
// are status codes with an error object. Every body of a public interface method that can
// fail runs in Guarded. A catch elsewhere puts something right and lets the failure go on,
// or makes it the result that a contract promises.
#pragma once

#include <type_traits>
#include <utility>

#include "halyard/object/error.h"

namespace halyard {

// Turns the exception in flight into its status, leaving an error object for the
// caller: that of the failing object where it supplied one, else one that says which
// class and operation failed and why. Only for use in a catch block.
HRESULT ReportFailure(const char* class_name, const char* operation) noexcept;

// As ReportFailure, but the failure goes on as an Error with that error object: what
// Check would raise for a call on an object of that class.
[[noreturn]] void ReraiseAsOf(const char* class_name, const char* operation);

// Runs the body of an interface method. The body answers a status or, returning
// nothing, S_OK; whatever it throws becomes the status of ReportFailure.
template <class Body>
HRESULT Guarded(const char* class_name, const char* operation, Body&& body) noexcept {
  try {
    if constexpr (std::is_void_v<decltype(body())>) {
      std::forward<Body>(body)();
      return S_OK;
    } else {
      return std::forward<Body>(body)();
    }
  } catch (...) {
    return ReportFailure(class_name, operation);
  }
}

// Runs a body whose failures the contract of its method swallows: S_FALSE where it raised
// an Error, else S_OK. Only the lack of the library's own memory goes on.
template <class Body>
HRESULT Tried(Body&& body) {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (const Error&) {
    return S_FALSE;
  }
}

// The place that a required out argument points at; raises E_POINTER for null.
template <class T>
T& Out(T* place) {
  if (place == nullptr) throw Error(E_POINTER, "an out argument is a null pointer");
  return *place;
}

// A truth as the automation boolean of a result.
inline VARIANT_BOOL ToResult(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// The same, emptied, which is what a caller finds when the call fails.
template <class T>
T& EmptyOut(T* place) {
  return Out(place) = T{};
}

// Hands to the caller, through a required out argument, what an owner holds: `source` is
// the owner, or a function that makes it. The place is checked and emptied first, so that
// nothing is lost where there is none and a caller finds nothing where making fails.
template <class T, class Source>
void HandOut(T* place, Source source) {
  T& out = EmptyOut(place);
  if constexpr (std::is_invocable_v<Source>) {
    out = source().Detach();
  } else {
    out = source.Detach();
  }
}

}  // namespace halyard
