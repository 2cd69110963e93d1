#include "support/scratch.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace bench {
namespace {

namespace fs = std::filesystem;

// The folder, made when it is first asked for and removed with all it holds at the end.
class Folder {
 public:
  Folder() {
    path_ = Base() / ("halyard-bench-" + std::to_string(getpid()));
    fs::create_directories(path_);
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const fs::path& path() const { return path_; }

 private:
  static fs::path Base() {
    if (const char* const wish = std::getenv("HALYARD_BENCH_FOLDER")) return wish;
    const fs::path memory = "/dev/shm";
    return fs::exists(memory) ? memory : fs::temp_directory_path();
  }

  fs::path path_;
};

}  // namespace

std::string ScratchFile(const std::string& name) {
  static const Folder folder;
  return (folder.path() / name).string();
}

void RemoveFile(const std::string& path) { fs::remove(path); }

std::size_t FileSize(const std::string& path) { return fs::file_size(path); }

}  // namespace bench
