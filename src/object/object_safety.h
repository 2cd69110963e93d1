// The scripting-safety options of one object: which of the two promises, safe for an
// untrusted caller and safe for untrusted data, a host has asked for.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

class SafetyOptions {
 public:
  // Both promises are supported.
  static constexpr DWORD kSupported = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

  [[nodiscard]] DWORD current() const noexcept { return current_; }

  // Drops the options in `enabled` and combines what stays with `mask`. E_FAIL, with
  // nothing changed, for a mask with options that are not supported.
  HRESULT Set(DWORD mask, DWORD enabled) noexcept {
    if ((mask & ~kSupported) != 0) return E_FAIL;
    current_ = (current_ & ~enabled) | mask;
    return S_OK;
  }

 private:
  DWORD current_ = 0;
};

}  // namespace halyard
