// The count of living objects, which the library tells its client where it is no component
// that the system unloads.
#include "halyard/object/live_objects.h"

#include "object/module_lock.h"

namespace halyard {

LONG LiveObjects() noexcept { return ModuleLockCount(); }

}  // namespace halyard
