// Memory on Windows, which needs no advice.
#include "platform/memory.h"

namespace halyard {

void ExpectToFill(void*, std::size_t) noexcept {}

}  // namespace halyard
