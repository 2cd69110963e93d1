// How cost grows: the library alone, from few units of work to many. Prints JSON, a list of
// points; the verb `bench growth` of ./run shows them as tables.
#include <cstdio>
#include <exception>

#include "growth/point.h"
#include "halyard/object/error.h"
#include "support/demand.h"

namespace {

void Print(const bench::Point& point, bool first) {
  std::printf(
      "%s{\"axis\": \"%s\", \"task\": \"%s\", \"size\": %lld, \"nanoseconds\": %.3f, \"bytes\": %.3f}",
      first ? "" : ",\n", point.axis.c_str(), point.task.c_str(), static_cast<long long>(point.size),
      point.nanoseconds, point.bytes);
}

void Run() {
  bool first = true;
  std::printf("[");
  for (const auto grow : {bench::GrowRecords, bench::GrowMembers, bench::GrowNesting, bench::GrowDefinitions,
                          bench::GrowArrays}) {
    for (const bench::Point& point : grow()) {
      Print(point, first);
      first = false;
    }
  }
  std::printf("]\n");
}

}  // namespace

int main() {
  try {
    Run();
    return 0;
  } catch (const halyard::Error& error) {
    std::fprintf(stderr, "the library answered %s\n", bench::CodeText(error.code()).c_str());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return 1;
}
