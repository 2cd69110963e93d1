// Use without registration: a program names the component's assembly in a manifest.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/late.h"
#include "tests/server/support/moved_copy.h"
#include "tests/support/definitions.h"

namespace halyard::test {
namespace {

constexpr const char* kProgramManifest = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="client" version="1.0.0.0"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="halyard" version="1.0.0.0"/>
    </dependentAssembly>
  </dependency>
</assembly>
)";

// The activation context of a program whose folder holds the DLL, while it lives.
class ProgramContext {
 public:
  ProgramContext() : copy_(L"halyard beside a program") {
    const std::filesystem::path manifest =
        std::filesystem::path(copy_.path()).parent_path() / L"client.exe.manifest";
    std::ofstream(manifest) << kProgramManifest;
    const std::wstring source = manifest.wstring();
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpSource = source.c_str();
    context_ = CreateActCtxW(&wanted);
    if (context_ == INVALID_HANDLE_VALUE) throw Error(HRESULT_FROM_WIN32(GetLastError()));
    EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
  }
  ~ProgramContext() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
    CoFreeUnusedLibrariesEx(0, 0);
  }
  ProgramContext(const ProgramContext&) = delete;
  ProgramContext& operator=(const ProgramContext&) = delete;

 private:
  MovedCopy copy_;
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

class RegistrationFree : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Component().Unregister(), S_OK); }
};

TEST_F(RegistrationFree, FindsNoClassOutsideOfTheProgram) {
  Ptr<IUnknown> object;
  EXPECT_EQ(CoCreateInstance(kStructureInfoClass, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid()),
            REGDB_E_CLASSNOTREG);
}

TEST_F(RegistrationFree, MakesEveryClassByIdentifierAndByName) {
  const ProgramContext context;
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    // In a program's context a name may stand for an identifier of that context alone.
    CLSID named{};
    EXPECT_EQ(CLSIDFromProgID((WideString(L"Halyard.") + row.name + L".1").c_str(), &named), S_OK);
    for (const CLSID& clsid : {ClassId(row), named}) {
      Ptr<IUnknown> object;
      EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, row.default_interface, object.OutVoid()), S_OK);
    }
  }
}

TEST_F(RegistrationFree, FindsTheTypeLibrary) {
  const ProgramContext context;
  const auto definition = StructureDefinition({{L"Depth", kReal}});
  EXPECT_EQ(IdOf(definition.get(), L"MemberCount"), 101);
}

}  // namespace
}  // namespace halyard::test
