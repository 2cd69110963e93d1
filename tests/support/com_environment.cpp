// What every Windows test program needs around its tests: COM on its thread, and at the
// end, when all tests have let go of their objects, a component that can be unloaded.
#include <gtest/gtest.h>

#include <iostream>

#include "halyard/platform/automation.h"

namespace halyard::test {
namespace {

class ComEnvironment : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }

  void TearDown() override {
    ExpectUnloadable();
    OleUninitialize();
  }

 private:
  static void ExpectUnloadable() {
    const HMODULE component = GetModuleHandleW(L"halyard.dll");
    if (component == nullptr) return;
    using Function = HRESULT(STDAPICALLTYPE*)();
    const auto can_unload =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(component, "DllCanUnloadNow")));
    ASSERT_NE(can_unload, nullptr);
    const HRESULT unloadable = can_unload();
    EXPECT_EQ(unloadable, S_OK) << "objects, class factories or server locks are left";
    std::cout << "lock count at the end: " << (unloadable == S_OK ? "zero" : "not zero") << std::endl;
  }
};

const testing::Environment* const kEnvironment = testing::AddGlobalTestEnvironment(new ComEnvironment);

}  // namespace
}  // namespace halyard::test
