// The module lock count: one for each living object and each lock of a class factory.
// The only counter that threads share.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

void LockModule() noexcept;
void UnlockModule() noexcept;

// 0 when the module may be unloaded.
LONG ModuleLockCount() noexcept;

// Holds one lock while it lives; every object has one.
class ModuleLock {
 public:
  ModuleLock() noexcept { LockModule(); }
  ~ModuleLock() { UnlockModule(); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace halyard
