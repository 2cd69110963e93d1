#include "tests/support/files.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace halyard::test {

Bytes ContentOf(const std::filesystem::path& file) {
  std::error_code failure;
  const auto size = std::filesystem::file_size(file, failure);
  Bytes bytes(failure ? 0 : static_cast<std::size_t>(size));
  std::ifstream stream(file, std::ios::binary);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

void MakeFile(const std::filesystem::path& file, const Bytes& bytes) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  if (std::filesystem::is_directory(folder))
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace halyard::test
