#include "arrays/array_file.h"

#include <vector>

#include "records/sounding.h"
#include "support/demand.h"
#include "support/scratch.h"

namespace bench {
namespace {

constexpr char kWorkload[] = "W6";
constexpr std::int32_t kSoundingCount = 1000000;

// A participant whose file is there, with the array read and found right.
struct Loaded {
  std::shared_ptr<ArrayFile> file;
  std::string path;
  std::vector<double> depths;
};

Loaded Load(ArrayFileMaker make, const std::string& name) {
  Loaded loaded = {make(), ScratchFile(name), std::vector<double>(kSoundingCount)};
  loaded.file->Make(loaded.path, kSoundingCount);
  loaded.file->Read(loaded.path);
  loaded.file->DepthToReals(loaded.depths.data());
  for (std::int32_t i = 0; i < kSoundingCount; ++i) {
    Demand(loaded.depths[static_cast<std::size_t>(i)] == SoundingAt(i).depth,
           "a depth that was read is wrong");
  }
  return loaded;
}

}  // namespace

void AddArrayReader(Actions& actions, const char* participant, ArrayFileMaker make) {
  actions.push_back({kWorkload, "read", participant, kSoundingCount, [=] {
                       const Loaded loaded = Load(make, std::string("array read ") + participant);
                       return Prepared{[file = loaded.file] { file->Drop(); },
                                       [file = loaded.file, path = loaded.path] { file->Read(path); }};
                     }});
}

void AddArrays(Actions& actions, const char* participant, ArrayFileMaker make) {
  AddArrayReader(actions, participant, make);
  actions.push_back({kWorkload, "then depth to Real", participant, kSoundingCount, [=] {
                       const auto loaded =
                           std::make_shared<Loaded>(Load(make, std::string("array column ") + participant));
                       return Prepared{{}, [loaded] { loaded->file->DepthToReals(loaded->depths.data()); }};
                     }});
}

}  // namespace bench
