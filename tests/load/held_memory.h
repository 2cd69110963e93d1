// What the process holds of the machine.
#pragma once

#include <cstddef>

namespace halyard::test {

// Bytes of memory that the process has in use now.
std::size_t HeldMemory();

// Bytes that the process has allocated and not freed.
std::size_t AllocatedMemory();

// Open file descriptors.
std::size_t OpenDescriptors();

}  // namespace halyard::test
