// Scratch files: where participants write and read, in a folder of this process that is
// removed at its end.
#pragma once

#include <string>

namespace bench {

// The path of a file of that name in the process's own folder. The folder lies below
// HALYARD_BENCH_FOLDER or, where that is not set, in /dev/shm: memory, so that the disk
// is not measured. (Where there is no /dev/shm either, among the temporary files.)
std::string ScratchFile(const std::string& name);

// Removes a file, if it is there: a run that writes always makes a new one.
void RemoveFile(const std::string& path);

// The number of bytes of a file.
std::size_t FileSize(const std::string& path);

}  // namespace bench
