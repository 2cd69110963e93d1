// halyard_replay TARGET|library FOLDER...: runs the kept inputs of one target, or of all that
// are of the library, each FOLDER having one folder per target, and prints "N passed, N
// failed". A broken promise or a report of the sanitizers ends it.
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "halyard/object/live_objects.h"
#include "halyard/platform/messages.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/targets.h"
#include "tests/support/files.h"

namespace halyard::fuzz {
namespace {

// Whether the input left no object behind.
bool Replay(const TargetRow& target, const std::filesystem::path& path) {
  const test::Bytes content = test::ContentOf(path);
  std::fprintf(stderr, "%s %s\n", target.name, path.filename().c_str());
  target.run(content);
  return LiveObjects() == 0;
}

}  // namespace
}  // namespace halyard::fuzz

int main(int argc, char** argv) {
  using namespace halyard;
  SetMessageHandler([](const char*, const char*) {});
  const std::string_view wanted = argc > 1 ? argv[1] : "";
  int passed = 0;
  int failed = 0;
  for (int i = 2; i < argc; ++i) {
    for (const fuzz::TargetRow& target : fuzz::Targets()) {
      if (wanted != target.name && (wanted != "library" || target.is_of_tool)) continue;
      for (const auto& path : test::FilesIn(std::filesystem::path(argv[i]) / target.name)) {
        ++(fuzz::Replay(target, path) ? passed : failed);
      }
    }
  }
  std::printf("most memory: %zu bytes\n%d passed, %d failed\n", fuzz::MemoryBound::Peak(), passed, failed);
  return failed == 0 && passed > 0 ? 0 : 1;
}
