// What registration writes into the registry and what unregistration leaves.
#include <gtest/gtest.h>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/moved_copy.h"
#include "tests/server/support/registry.h"
#include "tests/support/raised.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

using Names = std::vector<WideString>;

void ExpectText(const WideString& key, const WideString& text, const OLECHAR* value = nullptr) {
  const std::optional<WideString> found = TextAt(key, value);
  ASSERT_TRUE(found.has_value()) << Plain(key);
  EXPECT_EQ(Plain(*found), Plain(text)) << Plain(key);
}

void ExpectClassKeys(const ClassRowExpected& row, const WideString& dll) {
  const WideString stem = WideString(L"Halyard.") + row.name;
  const WideString versioned = stem + L".1";
  const WideString title = WideString(row.name) + L" Class";
  const WideString clsid = WideString(L"CLSID\\") + row.clsid;

  ExpectText(versioned, title);
  ExpectText(versioned + L"\\CLSID", row.clsid);
  EXPECT_EQ(Subkeys(versioned), Names({L"CLSID"}));

  ExpectText(stem, title);
  ExpectText(stem + L"\\CLSID", row.clsid);
  ExpectText(stem + L"\\CurVer", versioned);
  EXPECT_EQ(Subkeys(stem), Names({L"CLSID", L"CurVer"}));

  ExpectText(clsid, title);
  ExpectText(clsid + L"\\ProgID", versioned);
  ExpectText(clsid + L"\\VersionIndependentProgID", stem);
  EXPECT_TRUE(KeyExists(clsid + L"\\Programmable"));
  EXPECT_EQ(ValueCount(clsid + L"\\Programmable"), 0u);
  ExpectText(clsid + L"\\InprocServer32", dll);
  ExpectText(clsid + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  EXPECT_EQ(ValueCount(clsid + L"\\InprocServer32"), 2u);
  ExpectText(clsid + L"\\TypeLib", kLibraryIdText);
  EXPECT_EQ(Subkeys(clsid),
            Names({L"InprocServer32", L"ProgID", L"Programmable", L"TypeLib", L"VersionIndependentProgID"}));
}

void ExpectRegistered(const WideString& dll) {
  for (const ClassRowExpected& row : kExpectedClasses) ExpectClassKeys(row, dll);
  const WideString library = WideString(L"TypeLib\\") + kLibraryIdText + L"\\1.0";
  ExpectText(library, L"Halyard 1.0 Type Library");
  ExpectText(library + (sizeof(void*) == 8 ? L"\\0\\win64" : L"\\0\\win32"), dll);
}

void ExpectUnregistered() {
  EXPECT_TRUE(KeyExists(L"CLSID"));
  for (const ClassRowExpected& row : kExpectedClasses) {
    EXPECT_FALSE(KeyExists(WideString(L"CLSID\\") + row.clsid)) << Plain(row.name);
    EXPECT_FALSE(KeyExists(WideString(L"Halyard.") + row.name)) << Plain(row.name);
    EXPECT_FALSE(KeyExists(WideString(L"Halyard.") + row.name + L".1")) << Plain(row.name);
  }
  EXPECT_FALSE(KeyExists(WideString(L"TypeLib\\") + kLibraryIdText + L"\\1.0"));
}

HRESULT TryCreate(const ClassRowExpected& row) {
  Ptr<IUnknown> object;
  return CoCreateInstance(ClassId(row), nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid());
}

// Makes HKEY_CLASSES_ROOT a key that takes no lasting subkeys, for as long as the object
// lives: whatever is written there fails.
class ReadOnlyRegistry {
 public:
  ReadOnlyRegistry() {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kPath, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, key), ERROR_SUCCESS);
    RegCloseKey(key);
  }
  ~ReadOnlyRegistry() {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
  }
  ReadOnlyRegistry(const ReadOnlyRegistry&) = delete;
  ReadOnlyRegistry& operator=(const ReadOnlyRegistry&) = delete;

 private:
  static constexpr const wchar_t* kPath = L"Software\\HalyardReadOnlyClasses";
};

TEST(Registration, WritesTheKeysOfEveryClassAndOfTheTypeLibrary) {
  const Component component;
  ASSERT_EQ(component.Register(), S_OK);
  ExpectRegistered(ComponentPath());
  EXPECT_EQ(component.Unregister(), S_OK);
}

TEST(Registration, IsTheSameAfterASecondTime) {
  const Component component;
  ASSERT_EQ(component.Register(), S_OK);
  ASSERT_EQ(component.Register(), S_OK);
  ExpectRegistered(ComponentPath());
  EXPECT_EQ(component.Unregister(), S_OK);
}

TEST(Registration, IsTakenBackButForTheKeyOfAllClasses) {
  const Component component;
  ASSERT_EQ(component.Register(), S_OK);
  ASSERT_EQ(component.Unregister(), S_OK);
  ExpectUnregistered();
}

TEST(Registration, CanBeTakenBackTwiceAndWithoutHavingBeenMade) {
  const Component component;
  ASSERT_EQ(component.Unregister(), S_OK);
  ASSERT_EQ(component.Unregister(), S_OK);
  ExpectUnregistered();
}

TEST(Registration, RepairsKeysThatWereChangedOrLost) {
  const Component component;
  ASSERT_EQ(component.Register(), S_OK);
  const WideString clsid = WideString(L"CLSID\\") + kExpectedClasses[0].clsid;
  ASSERT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, (clsid + L"\\InprocServer32").c_str()), ERROR_SUCCESS);
  ASSERT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Halyard.Unit"), ERROR_SUCCESS);
  ASSERT_EQ(component.Register(), S_OK);
  ExpectRegistered(ComponentPath());
  EXPECT_EQ(component.Unregister(), S_OK);
}

class RegistrationFrom : public testing::TestWithParam<const wchar_t*> {};

TEST_P(RegistrationFrom, AnyFolder) {
  MovedCopy copy(GetParam());
  {
    const Component component(copy.path());
    ASSERT_EQ(component.Register(), S_OK);
    ExpectRegistered(copy.path());
    for (const ClassRowExpected& row : kExpectedClasses) EXPECT_EQ(TryCreate(row), S_OK) << Plain(row.name);
    ITypeLib* library = nullptr;
    EXPECT_EQ(LoadRegTypeLib(LibraryId(), 1, 0, LOCALE_USER_DEFAULT, &library), S_OK);
    const auto owner = Ptr<ITypeLib>::Adopt(library);
    EXPECT_EQ(component.Unregister(), S_OK);
  }
  CoFreeUnusedLibrariesEx(0, 0);
}

INSTANTIATE_TEST_SUITE_P(Folders, RegistrationFrom,
                         testing::Values(L"halyard with blanks",
                                         L"halyard \u00E4\u00F6\u00FC \u041F\u0443\u0442\u044C \u8DEF",
                                         L"halyard's quotes", L"halyard %MODULE% {braces}"));

TEST(Registration, OfADllThatHasMovedSinceGivesAnErrorAndCanBeRepaired) {
  MovedCopy copy(L"halyard moved away");
  {
    const Component component(copy.path());
    ASSERT_EQ(component.Register(), S_OK);
  }
  copy.Remove();
  const HRESULT status = TryCreate(kExpectedClasses[3]);
  EXPECT_TRUE(status == REGDB_E_CLASSNOTREG || status == CO_E_DLLNOTFOUND ||
              status == HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND))
      << StatusText(status);
  const Component component;
  ASSERT_EQ(component.Register(), S_OK);
  EXPECT_EQ(TryCreate(kExpectedClasses[3]), S_OK);
  EXPECT_EQ(component.Unregister(), S_OK);
}

TEST(Registration, InAReadOnlyRegistryFailsAndASecondCallRepairs) {
  const Component component;
  {
    const ReadOnlyRegistry read_only;
    const HRESULT status = component.Register();
    EXPECT_EQ(status, HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE)) << StatusText(status);
  }
  ASSERT_EQ(component.Register(), S_OK);
  ExpectRegistered(ComponentPath());
  EXPECT_EQ(component.Unregister(), S_OK);
}

TEST(Registration, OutsideOfComReportsWhatTheRegistrarReports) {
  const Component component;
  HRESULT status = S_OK;
  const auto call = [](void* place) -> DWORD {
    *static_cast<HRESULT*>(place) = Component().Register();
    return 0;
  };
  const HANDLE thread = CreateThread(nullptr, 0, call, &status, 0, nullptr);
  ASSERT_NE(thread, nullptr);
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  EXPECT_EQ(status, CO_E_NOTINITIALIZED);
  EXPECT_EQ(component.Unregister(), S_OK);
}

}  // namespace
}  // namespace halyard::test
