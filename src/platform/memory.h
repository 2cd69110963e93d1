// What the system is told about memory, so that it can prepare it well.
#pragma once

#include <cstddef>

namespace halyard {

// Says that these fresh bytes will be filled as a whole, soon. A system that hands out
// memory in pages may take large ones then. Nothing else comes of it.
void ExpectToFill(void* memory, std::size_t size) noexcept;

}  // namespace halyard
