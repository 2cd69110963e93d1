// The program of the tests: after each one it checks that no object was left behind.
#include <gtest/gtest.h>

#include "halyard/platform/automation.h"
#include "tests/support/live_objects.h"

namespace {

class NoObjectLeftBehind : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override {
    static_cast<void>(SetErrorInfo(0, nullptr));  // the thread's error object is nobody's leak
    EXPECT_TRUE(halyard::test::NoObjectsAreAlive()) << "the test left objects of the library behind";
  }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new NoObjectLeftBehind);
  return RUN_ALL_TESTS();
}
