// Error: a failed status as a C++ exception, with the description that the failing
// object left, if it left one. Used inside the library and by C++ clients; exceptions
// never cross an interface.
#pragma once

#include <string>
#include <utility>

#include "halyard/object/ptr.h"

namespace halyard {

class Error {
 public:
  // `reason` says in plain words what went wrong, as the end of a sentence
  // ("the member has no definition"); empty for the general words of the code.
  explicit Error(HRESULT code, std::string reason = {}) : code_(code), reason_(std::move(reason)) {}

  // The failure of a call on another object that described it in `info`.
  Error(HRESULT code, Ptr<IErrorInfo> info) : code_(code), info_(std::move(info)) {}

  // The failed status.
  [[nodiscard]] HRESULT code() const noexcept { return code_; }

  // What went wrong, as it was given, narrow text; empty for the general words of the code
  // and for the failure of another object, whose words are in info().
  [[nodiscard]] const std::string& reason() const noexcept { return reason_; }

  // The error object of the failing call; empty when it left none.
  [[nodiscard]] const Ptr<IErrorInfo>& info() const noexcept { return info_; }

 private:
  HRESULT code_;
  std::string reason_;
  Ptr<IErrorInfo> info_;
};

// Raises Error for a failed status of a platform call.
inline void Check(HRESULT hr) {
  if (FAILED(hr)) throw Error(hr);
}

// Raises Error for a failed status of a call on interface I of `object`, with the error
// object that it left if it supports error information for I.
template <class I>
void Check(HRESULT hr, I* object) {
  if (SUCCEEDED(hr)) return;
  Ptr<IErrorInfo> info;
  const Ptr<ISupportErrorInfo> support = Ptr<I>(object).template As<ISupportErrorInfo>();
  // What an object without support leaves behind may be the words of an earlier failure.
  if (support && support->InterfaceSupportsErrorInfo(IidOf<I>) == S_OK) {
    if (GetErrorInfo(0, info.Out()) != S_OK) info.Reset();
  }
  throw Error(hr, std::move(info));
}

template <class I>
void Check(HRESULT hr, const Ptr<I>& object) {
  Check(hr, object.get());
}

// Raises E_POINTER, with the reason, where an object is required and there is none.
template <class I>
const Ptr<I>& Require(const Ptr<I>& object, const char* reason) {
  if (!object) throw Error(E_POINTER, reason);
  return object;
}

// Asks `object` for interface I: empty for a null object or one without the interface;
// any other failure is raised.
template <class I>
[[nodiscard]] Ptr<I> QueryFor(IUnknown* object) {
  Ptr<I> result;
  if (object == nullptr) return result;
  const HRESULT hr = object->QueryInterface(IidOf<I>, result.OutVoid());
  if (FAILED(hr)) {
    static_cast<void>(result.Detach());
    if (hr != E_NOINTERFACE) Check(hr, object);
  }
  return result;
}

}  // namespace halyard
