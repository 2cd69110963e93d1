#include "tests/support/live_objects.h"

#include "halyard/object/live_objects.h"

namespace halyard::test {

#ifdef _WIN32

// The component tells by its answer to the question whether it may be unloaded.
bool NoObjectsAreAlive() {
  const HMODULE component = GetModuleHandleA("halyard.dll");
  if (component == nullptr) return true;
  using Question = HRESULT(WINAPI*)();
  const auto can_unload =
      reinterpret_cast<Question>(reinterpret_cast<void*>(GetProcAddress(component, "DllCanUnloadNow")));
  return can_unload != nullptr && can_unload() == S_OK;
}

#else

bool NoObjectsAreAlive() { return LiveObjects() == 0; }

#endif

}  // namespace halyard::test
