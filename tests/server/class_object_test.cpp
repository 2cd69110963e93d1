// The object map and the class factories.
#include <gtest/gtest.h>

#include "tests/server/support/class_factory_traits.h"
#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

constexpr IID kUnknownInterface = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};

constexpr const OLECHAR* kDeclaredOnly[] = {L"{165A2855-5FDA-4B1E-909C-C54CFFB9CAD6}",
                                            L"{5BFAC742-AC9E-4811-8C23-13F17FCB39FC}"};

// Registered, because the array factory activates the definitions that it prepares.
class ClassObjects : public RegisteredComponent {
 protected:
  void TearDown() override {
    EXPECT_EQ(component_.CanUnloadNow(), S_OK);
    RegisteredComponent::TearDown();
  }

  const Component& component_ = component();
};

TEST_F(ClassObjects, ExistForEveryRowOfTheObjectMap) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    Ptr<IUnknown> object;
    ASSERT_EQ(
        component_.Factory(ClassId(row))->CreateInstance(nullptr, row.default_interface, object.OutVoid()),
        S_OK);
    EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
    object.Reset();
    EXPECT_EQ(component_.CanUnloadNow(), S_OK);
  }
}

TEST_F(ClassObjects, AreKeptFromTheFirstRequestOn) {
  const CLSID clsid = ClassId(kExpectedClasses[0]);
  EXPECT_EQ(component_.Factory(clsid), component_.Factory(clsid));
}

TEST_F(ClassObjects, DoNotExistForOtherClasses) {
  for (const OLECHAR* clsid : kDeclaredOnly) {
    Ptr<IUnknown> factory;
    EXPECT_EQ(component_.GetClassObject(GuidOf(clsid), IidOf<IClassFactory>, factory.OutVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(factory);
  }
  Ptr<IUnknown> factory;
  EXPECT_EQ(component_.GetClassObject(kUnknownInterface, IidOf<IClassFactory>, factory.OutVoid()),
            CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(ClassObjects, LackOtherInterfaces) {
  void* result = this;
  EXPECT_EQ(component_.GetClassObject(ClassId(kExpectedClasses[0]), IidOf<IDispatch>, &result),
            E_NOINTERFACE);
  EXPECT_EQ(result, nullptr);
}

TEST_F(ClassObjects, NeedAPlaceForTheResult) {
  EXPECT_EQ(component_.GetClassObject(ClassId(kExpectedClasses[0]), IidOf<IClassFactory>, nullptr),
            E_POINTER);
  EXPECT_EQ(component_.Factory(ClassId(kExpectedClasses[0]))->QueryInterface(IidOf<IUnknown>, nullptr),
            E_POINTER);
}

TEST_F(ClassObjects, HoldTheModuleWhileAClientHasThem) {
  Ptr<IClassFactory> factory = component_.Factory(ClassId(kExpectedClasses[3]));
  EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
  Ptr<IClassFactory> second = factory;
  factory.Reset();
  EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
  second.Reset();
  EXPECT_EQ(component_.CanUnloadNow(), S_OK);
}

TEST_F(ClassObjects, LockAndUnlockTheModule) {
  EXPECT_EQ(component_.Factory(ClassId(kExpectedClasses[0]))->LockServer(TRUE), S_OK);
  EXPECT_EQ(component_.Factory(ClassId(kExpectedClasses[5]))->LockServer(TRUE), S_OK);
  EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(component_.Factory(ClassId(kExpectedClasses[5]))->LockServer(FALSE), S_OK);
  EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(component_.Factory(ClassId(kExpectedClasses[0]))->LockServer(FALSE), S_OK);
  EXPECT_EQ(component_.CanUnloadNow(), S_OK);
}

// Another object that takes a part of this component into itself.
class Outer final : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (riid != IidOf<IUnknown>) return part_->QueryInterface(riid, ppvObject);
    *ppvObject = static_cast<IUnknown*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  IUnknown** PartPlace() { return part_.Out(); }
  void DropPart() { part_.Reset(); }

  ULONG references = 0;

 private:
  Ptr<IUnknown> part_;
};

TEST_F(ClassObjects, MakePartsOfOtherObjects) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    Outer outer;
    ASSERT_EQ(component_.Factory(ClassId(row))
                  ->CreateInstance(&outer, IidOf<IUnknown>, reinterpret_cast<void**>(outer.PartPlace())),
              S_OK);
    EXPECT_EQ(outer.references, 0u);
    EXPECT_EQ(component_.CanUnloadNow(), S_FALSE);
    Ptr<IUnknown> shown;
    ASSERT_EQ(outer.QueryInterface(row.default_interface, shown.OutVoid()), S_OK);
    EXPECT_EQ(outer.references, 1u);
    EXPECT_EQ(shown.As<IUnknown>().get(), &outer);
    shown.Reset();
    EXPECT_EQ(outer.references, 0u);
    outer.DropPart();
    EXPECT_EQ(component_.CanUnloadNow(), S_OK);
  }
}

TEST_F(ClassObjects, MakePartsOnlyForIUnknown) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    Outer outer;
    void* result = &outer;
    EXPECT_EQ(component_.Factory(ClassId(row))->CreateInstance(&outer, row.default_interface, &result),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(result, nullptr);
  }
}

TEST_F(ClassObjects, DestroyAnObjectThatLacksTheInterface) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    void* result = this;
    EXPECT_EQ(component_.Factory(ClassId(row))->CreateInstance(nullptr, kUnknownInterface, &result),
              E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(component_.CanUnloadNow(), S_OK) << Plain(row.name);
  }
}

TEST_F(ClassObjects, NeedAPlaceForTheObject) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    EXPECT_EQ(component_.Factory(ClassId(row))->CreateInstance(nullptr, IidOf<IUnknown>, nullptr), E_POINTER);
  }
}

TEST_F(ClassObjects, MakeObjectsThatPromiseSafetyToScripts) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    Ptr<IObjectSafety> safety;
    ASSERT_EQ(
        component_.Factory(ClassId(row))->CreateInstance(nullptr, IidOf<IObjectSafety>, safety.OutVoid()),
        S_OK);
    DWORD supported = 0;
    DWORD current = 1;
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IidOf<IDispatch>, &supported, &current), S_OK);
    EXPECT_EQ(supported, 3u);
    EXPECT_EQ(current, 0u);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, 3, 0), S_OK);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IidOf<IDispatch>, &supported, &current), S_OK);
    EXPECT_EQ(current, 3u);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, 1, 3), S_OK);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(row.default_interface, &supported, &current), S_OK);
    EXPECT_EQ(current, 1u);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, 4, 0), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(kUnknownInterface, 1, 1), E_NOINTERFACE);
  }
}

using Activation = RegisteredComponent;

TEST_F(Activation, MakesEveryClassByIdentifierAndByName) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    for (const WideString& name :
         {WideString(L"Halyard.") + row.name, WideString(L"Halyard.") + row.name + L".1"}) {
      CLSID clsid{};
      ASSERT_EQ(CLSIDFromProgID(name.c_str(), &clsid), S_OK) << Plain(name);
      EXPECT_EQ(clsid, ClassId(row)) << Plain(name);
    }
    Ptr<IUnknown> object;
    EXPECT_EQ(CoCreateInstance(ClassId(row), nullptr, CLSCTX_ALL, row.default_interface, object.OutVoid()),
              S_OK)
        << Plain(row.name);
  }
}

TEST_F(Activation, FailsForDeclaredOnlyAndUnknownClasses) {
  for (const OLECHAR* clsid : kDeclaredOnly) {
    Ptr<IUnknown> object;
    EXPECT_EQ(CoCreateInstance(GuidOf(clsid), nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid()),
              REGDB_E_CLASSNOTREG);
  }
  Ptr<IUnknown> object;
  EXPECT_EQ(CoCreateInstance(kUnknownInterface, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid()),
            REGDB_E_CLASSNOTREG);
}

}  // namespace
}  // namespace halyard::test
