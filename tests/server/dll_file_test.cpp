// The files of both builds: what they export and import, and what is in their resources.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/pe_file.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

struct Build {
  const wchar_t* variable;
  const char* name;
  std::uint16_t machine;
  SYSKIND system;
  VARTYPE address_type;
};

constexpr Build kBuilds[] = {
    {L"HALYARD_DLL", "x64", IMAGE_FILE_MACHINE_AMD64, SYS_WIN64, VT_I8},
    {L"HALYARD_DLL_X86", "x86", IMAGE_FILE_MACHINE_I386, SYS_WIN32, VT_I4},
};

// A DLL loaded for its resources only.
class Resources {
 public:
  explicit Resources(const WideString& path)
      : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
    if (module_ == nullptr) throw Error(HRESULT_FROM_WIN32(GetLastError()));
  }
  ~Resources() { FreeLibrary(module_); }
  Resources(const Resources&) = delete;
  Resources& operator=(const Resources&) = delete;

  // The bytes of a resource; empty where there is none.
  [[nodiscard]] std::string Find(int number, const wchar_t* type) const {
    const HRSRC place = FindResourceW(module_, MAKEINTRESOURCEW(number), type);
    if (place == nullptr) return {};
    return std::string(static_cast<const char*>(LockResource(LoadResource(module_, place))),
                       SizeofResource(module_, place));
  }

  // The numbers of all resources of a type, sorted.
  [[nodiscard]] std::vector<int> Numbers(const wchar_t* type) const {
    std::vector<int> numbers;
    const auto add = [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list) -> BOOL {
      reinterpret_cast<std::vector<int>*>(list)->push_back(
          static_cast<int>(reinterpret_cast<ULONG_PTR>(name)));
      return TRUE;
    };
    EnumResourceNamesW(module_, type, add, reinterpret_cast<LONG_PTR>(&numbers));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
  }

  [[nodiscard]] std::string String(UINT number) const {
    WideString text(256, L'\0');
    const int length = LoadStringW(module_, number, text.data(), static_cast<int>(text.size()));
    return Plain(WideView(text.data(), static_cast<std::size_t>(length)));
  }

 private:
  HMODULE module_;
};

class DllFile : public testing::TestWithParam<Build> {
 protected:
  [[nodiscard]] static WideString Path() { return ComponentPath(GetParam().variable); }
};

std::string Narrow(const OLECHAR* text) { return Plain(WideView(text)); }

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += " " + name;
  return text;
}

TEST_P(DllFile, ExportsTheFourEntryPointsByPlainName) {
  const PeFile file(Path());
  std::cout << GetParam().name << " exports:" << Joined(file.Exports()) << std::endl;
  EXPECT_EQ(file.Exports(), (std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                                      "DllRegisterServer", "DllUnregisterServer"}));
}

TEST_P(DllFile, ImportsSystemDllsOnly) {
  const PeFile file(Path());
  std::cout << GetParam().name << " imports:" << Joined(file.Imports()) << std::endl;
  EXPECT_EQ(file.Imports(), (std::vector<std::string>{"kernel32.dll", "msvcrt.dll", "ole32.dll",
                                                      "oleaut32.dll", "user32.dll"}));
}

TEST_P(DllFile, IsForItsProcessorAndStripped) {
  const PeFile file(Path());
  std::cout << GetParam().name << " size: " << file.size() << " bytes" << std::endl;
  EXPECT_EQ(file.machine(), GetParam().machine);
  EXPECT_TRUE(file.IsStripped());
}

TEST_P(DllFile, HasTheRegistryScriptOfEveryClass) {
  const Resources resources(Path());
  std::vector<int> numbers;
  for (const ClassRowExpected& row : kExpectedClasses) {
    numbers.push_back(row.registry_script);
    const std::string script = resources.Find(row.registry_script, L"REGISTRY");
    EXPECT_NE(script.find("Halyard." + Narrow(row.name) + ".1 = s '" + Narrow(row.name) + " Class'"),
              std::string::npos)
        << Narrow(row.name);
    EXPECT_NE(script.find(Narrow(row.clsid)), std::string::npos) << Narrow(row.name);
  }
  std::sort(numbers.begin(), numbers.end());
  EXPECT_EQ(resources.Numbers(L"REGISTRY"), numbers);
}

TEST_P(DllFile, HasItsStrings) {
  const Resources resources(Path());
  EXPECT_EQ(resources.String(100), "Halyard");
  EXPECT_EQ(resources.String(121), "ItemDefVD Class");
  EXPECT_EQ(resources.String(122), "SessionVD Class");
}

TEST_P(DllFile, HasAVersion) {
  DWORD unused = 0;
  std::string block(GetFileVersionInfoSizeW(Path().c_str(), &unused), '\0');
  ASSERT_FALSE(block.empty());
  ASSERT_TRUE(GetFileVersionInfoW(Path().c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  void* place = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &place, &size));
  const auto* version = static_cast<const VS_FIXEDFILEINFO*>(place);
  EXPECT_EQ(version->dwFileVersionMS, 0x00010000u);
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\ProductName", &place, &size));
  EXPECT_EQ(Narrow(static_cast<const wchar_t*>(place)), "Halyard");
}

TEST_P(DllFile, HasItsTypeLibraryAsTheFirstResource) {
  const Resources resources(Path());
  EXPECT_EQ(resources.Numbers(L"TYPELIB"), std::vector<int>{1});
  Ptr<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx((Path() + L"\\1").c_str(), REGKIND_NONE, library.Out()), S_OK);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, LibraryId());
  EXPECT_EQ(attributes->syskind, GetParam().system);
  library->ReleaseTLibAttr(attributes);
}

TEST_P(DllFile, KeepsAddressesWhole) {
  Ptr<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, library.Out()), S_OK);
  Ptr<ITypeInfo> dispatch;
  ASSERT_EQ(library->GetTypeInfoOfGuid(IidOf<ISimpleArray>, dispatch.Out()), S_OK);
  HREFTYPE reference = 0;
  ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  Ptr<ITypeInfo> vtable;
  ASSERT_EQ(dispatch->GetRefTypeInfo(reference, vtable.Out()), S_OK);
  FUNCDESC* function = nullptr;
  ASSERT_EQ(vtable->GetFuncDesc(0, &function), S_OK);
  EXPECT_EQ(function->lprgelemdescParam[0].tdesc.lptdesc->vt, GetParam().address_type);
  vtable->ReleaseFuncDesc(function);
}

TEST_P(DllFile, HasAManifestWithEveryClass) {
  constexpr int kManifest = 1;
  const std::string manifest = Resources(Path()).Find(kManifest, MAKEINTRESOURCEW(24));
  for (const ClassRowExpected& row : kExpectedClasses) {
    EXPECT_NE(manifest.find("<comClass clsid=\"" + Narrow(row.clsid) + "\""), std::string::npos)
        << Narrow(row.name);
    EXPECT_NE(manifest.find("progid=\"Halyard." + Narrow(row.name) + ".1\""), std::string::npos)
        << Narrow(row.name);
  }
  EXPECT_NE(manifest.find("<typelib tlbid=\"" + Narrow(kLibraryIdText) + "\""), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(OfBothBuilds, DllFile, testing::ValuesIn(kBuilds),
                         [](const auto& build) { return std::string(build.param.name); });

}  // namespace
}  // namespace halyard::test
