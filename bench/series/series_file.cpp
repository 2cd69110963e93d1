#include "series/series_file.h"

#include "support/demand.h"
#include "support/scratch.h"

namespace bench {
namespace {

constexpr char kWorkload[] = "W4";
constexpr std::size_t kNumberCount = 10000000;

double NumberAt(std::size_t position) { return static_cast<double>(position) * 0.25; }

std::vector<double> AllNumbers() {
  std::vector<double> numbers(kNumberCount);
  for (std::size_t i = 0; i < kNumberCount; ++i) numbers[i] = NumberAt(i);
  return numbers;
}

// A participant that holds the series, has written it and was found to read it rightly.
std::shared_ptr<SeriesFile> Checked(SeriesFileMaker make, const std::string& path) {
  std::shared_ptr<SeriesFile> file = make();
  file->Hold(AllNumbers());
  file->Write(path);
  file->Read(path);
  for (std::size_t i = 0; i < kNumberCount; ++i) {
    Demand(file->NumberRead(i) == NumberAt(i), "a number that was read is wrong");
  }
  file->Drop();
  return file;
}

}  // namespace

void AddSeries(Actions& actions, const char* participant, SeriesFileMaker make) {
  const std::string name = std::string("series ") + participant;
  actions.push_back({kWorkload, "write", participant, kNumberCount, [make, name] {
                       const std::string path = ScratchFile(name + " written");
                       const auto file = Checked(make, path);
                       return Prepared{[path] { RemoveFile(path); }, [file, path] { file->Write(path); }};
                     }});
  actions.push_back({kWorkload, "read", participant, kNumberCount, [make, name] {
                       const std::string path = ScratchFile(name + " read");
                       const auto file = Checked(make, path);
                       return Prepared{[file] { file->Drop(); }, [file, path] { file->Read(path); }};
                     }});
}

}  // namespace bench
