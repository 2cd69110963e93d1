// An array value of soundings, as the workloads W3 and W6 and the measure of memory need
// it, and the bytes that it is read from.
#pragma once

#include <cstdint>
#include <vector>

#include "records/sounding.h"
#include "support/client.h"

namespace bench {

// The definition of an array of any number of soundings.
halyard::Ptr<halyard::IArrayDef> DefineSoundingArray();

// The encoding of an array of the first `count` soundings: the count and the blocks.
std::vector<unsigned char> EncodedSoundings(std::int32_t count);

// Such an array, read from its bytes.
halyard::Ptr<halyard::IArray> ReadSoundingArray(std::int32_t count);

// Such an array, put together element by element: each is made, filled and added.
halyard::Ptr<halyard::IArray> BuildSoundingArray(std::int32_t count);

}  // namespace bench
