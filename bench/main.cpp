// The benchmark: every workload, with all its participants, under Google Benchmark. The
// verb `bench` of ./run starts it and shows its figures; docs/performance.md explains them.
#include <benchmark/benchmark.h>

#include "own_actions.h"
#include "rival_actions.h"

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  bench::Actions actions;
  bench::AddOwnActions(actions);
  bench::AddRivalActions(actions);
  bench::RegisterActions(actions);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
