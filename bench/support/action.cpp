#include "support/action.h"

#include <benchmark/benchmark.h>

#include <exception>
#include <memory>
#include <optional>

#include "halyard/object/error.h"
#include "support/clock.h"
#include "support/demand.h"

namespace bench {
namespace {

// An action and, from its first repetition on, what its preparation made.
struct Measured {
  Action action;
  std::optional<Prepared> prepared;
};

// Runs the action once, after its untimed part, and answers the seconds that it took.
double SecondsOfOneRun(const Prepared& prepared) {
  if (prepared.before) prepared.before();
  const double start = WorkedSeconds();
  prepared.work();
  return WorkedSeconds() - start;
}

void Measure(benchmark::State& state, Measured& measured) {
  try {
    if (!measured.prepared) measured.prepared = measured.action.prepare();
    for (auto iteration : state) {
      static_cast<void>(iteration);
      state.SetIterationTime(SecondsOfOneRun(*measured.prepared));
    }
    state.counters["units"] = static_cast<double>(measured.action.units);
  } catch (const halyard::Error& error) {
    state.SkipWithError(("the library answered " + CodeText(error.code())).c_str());
  } catch (const std::exception& error) {
    state.SkipWithError(error.what());
  }
}

}  // namespace

void RegisterActions(const Actions& actions) {
  for (const Action& action : actions) {
    const std::string name = action.workload + "/" + action.task + "/" + action.participant;
    const auto measured = std::make_shared<Measured>(Measured{action, std::nullopt});
    benchmark::RegisterBenchmark(name.c_str(),
                                 [measured](benchmark::State& state) { Measure(state, *measured); })
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace bench
