// Copies of the component DLL in other places.
#pragma once

#include <filesystem>

#include "tests/server/support/component.h"

namespace halyard::test {

// A copy of the DLL in a folder of its own, for as long as the object lives.
class MovedCopy {
 public:
  explicit MovedCopy(const wchar_t* folder)
      : folder_(std::filesystem::temp_directory_path() / folder), path_(folder_ / L"halyard.dll") {
    std::filesystem::create_directories(folder_);
    std::filesystem::copy_file(ComponentPath(), path_, std::filesystem::copy_options::overwrite_existing);
  }
  ~MovedCopy() { Remove(); }
  MovedCopy(const MovedCopy&) = delete;
  MovedCopy& operator=(const MovedCopy&) = delete;

  void Remove() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  [[nodiscard]] WideString path() const { return path_.wstring(); }

 private:
  std::filesystem::path folder_;
  std::filesystem::path path_;
};

}  // namespace halyard::test
