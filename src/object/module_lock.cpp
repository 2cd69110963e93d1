#include "object/module_lock.h"

#include <atomic>

#include "halyard/object/live_objects.h"

namespace halyard {
namespace {

std::atomic<LONG> g_locks{0};

}  // namespace

void LockModule() noexcept { ++g_locks; }

void UnlockModule() noexcept { --g_locks; }

LONG ModuleLockCount() noexcept { return g_locks; }

#ifndef _WIN32
LONG LiveObjects() noexcept { return ModuleLockCount(); }
#endif

}  // namespace halyard
