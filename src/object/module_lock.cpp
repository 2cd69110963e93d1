#include "object/module_lock.h"

#include <atomic>

namespace halyard {
namespace {

std::atomic<LONG> g_locks{0};

}  // namespace

void LockModule() noexcept { ++g_locks; }

void UnlockModule() noexcept { --g_locks; }

LONG ModuleLockCount() noexcept { return g_locks; }

}  // namespace halyard
