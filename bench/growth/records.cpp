// Records: files of a thousand to ten million soundings.
#include "growth/point.h"
#include "records/halyard.h"
#include "support/demand.h"
#include "support/scratch.h"

namespace bench {
namespace {

constexpr std::int32_t kMostRecords = 10000000;

}  // namespace

std::vector<Point> GrowRecords() {
  Curve curve("records");
  const std::string path = ScratchFile("growing records");
  const auto records = MakeHalyardBufferedRecords();
  for (std::int32_t count = 1000; count <= kMostRecords; count *= 10) {
    curve.Add("write", count, count, [&] {
      RemoveFile(path);
      records->Write(path, count);
      return std::any();
    });
    curve.Add("read", count, count, [&] {
      Demand(records->Read(path, count) == TrueSums(count), "the sums of what was read are wrong");
      return std::any();
    });
  }
  return curve.points();
}

}  // namespace bench
