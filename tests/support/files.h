// What lies in files and folders.
#pragma once

#include <filesystem>
#include <vector>

#include "tests/support/bytes.h"

namespace halyard::test {

// The bytes of a file; none where it cannot be read.
Bytes ContentOf(const std::filesystem::path& file);

// Makes a file of these bytes, in place of what it held.
void MakeFile(const std::filesystem::path& file, const Bytes& bytes);

// What lies in a folder, in the order of names; nothing where there is no such folder.
std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder);

}  // namespace halyard::test
