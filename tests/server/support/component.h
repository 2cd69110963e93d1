// The component DLL, loaded by its path and driven through its entry points.
#pragma once

#include <gtest/gtest.h>

#include "halyard/halyard.h"

namespace halyard::test {

// The path of a build of halyard.dll, from an environment variable: HALYARD_DLL names
// the one for this program's processor, HALYARD_DLL_X86 the 32-bit one. Raises E_FAIL
// where the variable is not set.
WideString ComponentPath(const wchar_t* variable = L"HALYARD_DLL");

class Component {
 public:
  // Loads the DLL; raises the system's failure.
  explicit Component(const WideString& path = ComponentPath());
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  HRESULT Register() const { return Call("DllRegisterServer"); }
  HRESULT Unregister() const { return Call("DllUnregisterServer"); }
  HRESULT CanUnloadNow() const { return Call("DllCanUnloadNow"); }
  HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** result) const;

  // The class factory of a class; raises the failure.
  Ptr<IClassFactory> Factory(REFCLSID clsid) const;

 private:
  HRESULT Call(const char* entry_point) const;
  FARPROC EntryPoint(const char* name) const;

  HMODULE module_;
};

// Tests that need the component registered.
class RegisteredComponent : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(component_.Register(), S_OK); }
  void TearDown() override { EXPECT_EQ(component_.Unregister(), S_OK); }

  [[nodiscard]] const Component& component() const { return component_; }

 private:
  Component component_;
};

}  // namespace halyard::test
