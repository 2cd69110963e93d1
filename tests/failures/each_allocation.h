// Runs one call once for each allocation that it makes, with that allocation failing.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "halyard/platform/automation.h"
#include "tests/failures/failing_memory.h"
#include "tests/support/live_objects.h"

namespace halyard::test {

// `make` makes what the call works on, in memory enough; `call` is the call, `look` looks
// at the result, in memory enough again, and answers it as text.
//
// Whichever allocation fails, the call answers E_OUTOFMEMORY, or what it answers in memory
// enough where it can do without; what it worked on can be looked at, the same call again
// succeeds with the same result as if nothing had happened, if `repeats`, and no memory and
// no object is left behind.
template <class State>
struct EachAllocation {
  std::function<State()> make;
  std::function<HRESULT(State&)> call;
  std::function<std::string(State&)> look;
  bool repeats = true;

  void Run() const {
    const std::string expected = InMemoryEnough();
    std::size_t which = 1;
    while (Fails(which, expected)) ++which;
    // The last run was the one in which none failed.
    EXPECT_TRUE(which > 1 || testing::Test::HasFailure()) << "the call allocates nothing";
  }

 private:
  [[nodiscard]] std::string InMemoryEnough() const {
    State state = make();
    EXPECT_EQ(call(state), S_OK);
    return look(state);
  }

  // Whether there is an allocation of that number.
  [[nodiscard]] bool Fails(std::size_t which, const std::string& expected) const {
    static_cast<void>(SetErrorInfo(0, nullptr));
    const std::ptrdiff_t blocks = LiveBlocks();
    bool happened = false;
    {
      State state = make();
      HRESULT status = S_OK;
      {
        const FailingAllocation failing(which);
        status = call(state);
        happened = failing.Happened();
      }
      EXPECT_TRUE(status == E_OUTOFMEMORY || (status == S_OK && look(state) == expected))
          << "allocation " << which << ": " << std::hex << status << "\n"
          << look(state) << "\n"
          << expected;
      static_cast<void>(look(state));
      if (status != S_OK && repeats) {
        EXPECT_EQ(call(state), S_OK) << "again after allocation " << which;
        EXPECT_EQ(look(state), expected) << "again after allocation " << which;
      }
    }
    static_cast<void>(SetErrorInfo(0, nullptr));
    EXPECT_TRUE(NoObjectsAreAlive()) << "allocation " << which;
    const bool failed = testing::Test::HasFailure();  // messages take memory too
    EXPECT_TRUE(failed || LiveBlocks() == blocks) << "allocation " << which << " left memory behind";
    return happened && !testing::Test::HasFailure();
  }
};

}  // namespace halyard::test
