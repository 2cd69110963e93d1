// Action: one thing that is measured, done by one participant: the library, a rival, or
// the limit, which is hand-written code that does only what the machine must do.
//
// Actions of one task are compared with each other, so all of them do the same work and
// each checks its result against the same known answer before it is timed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// What is left to do when an action is prepared.
struct Prepared {
  std::function<void()> before;  // before each timed run, not timed; may be empty
  std::function<void()> work;    // the timed run
};

struct Action {
  std::string workload;     // the short name that the command line takes: "W1"
  std::string task;         // a row of the workload's table: "write"
  std::string participant;  // "Halyard", "limit", or a rival's name
  std::int64_t units;       // how many records, numbers or calls one run covers
  // Makes the data and checks the result; throws std::exception where it is wrong. Called
  // once; what it makes lives as long as the functions that it returns.
  std::function<Prepared()> prepare;
};

using Actions = std::vector<Action>;

// Hands the actions to Google Benchmark under the name WORKLOAD/TASK/PARTICIPANT. One
// iteration is one run; the time reported is that of the run alone.
void RegisterActions(const Actions& actions);

}  // namespace bench
