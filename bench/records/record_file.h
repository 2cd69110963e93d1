// W1: a million small records.
#pragma once

#include "records/sounding.h"
#include "support/file_actions.h"

namespace bench {

using RecordFile = RecordWork<SoundingSums>;
using RecordFiles = RecordWorkload<SoundingSums>;

inline constexpr RecordFiles kRecords = {"W1", 1000000, TrueSums};

}  // namespace bench
