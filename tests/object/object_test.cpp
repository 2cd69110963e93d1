// What every class has in common: identity, reference counts, aggregation, safety
// options, error support and creation.
#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "halyard/classes.h"
#include "halyard/halyard.h"
#include "tests/support/get.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

struct ClassRow {
  const char* name;
  CLSID clsid;
  std::vector<IID> interfaces;  // beside those that every object has

  friend std::ostream& operator<<(std::ostream& stream, const ClassRow& row) { return stream << row.name; }
};

const std::vector<ClassRow>& Classes() {
  static const std::vector<ClassRow> rows = {
      {"ArrayInfo", kArrayInfoClass, {IidOf<IArrayDef>, IidOf<IValueDefBase>}},
      {"SimpleValueInfo",
       kSimpleValueInfoClass,
       {IidOf<ISimpleValueInfo>, IidOf<ISimpleValueDef>, IidOf<IValueDefBase>}},
      {"EnumerationInfo",
       kEnumerationInfoClass,
       {IidOf<IEnumerationInfo>, IidOf<IEnumerationDef>, IidOf<IValueDefBase>}},
      {"StructureInfo",
       kStructureInfoClass,
       {IidOf<IStructureInfo>, IidOf<IStructureDef>, IidOf<IValueDefBase>}},
      {"StringArray", kStringArrayClass, {IidOf<IStringArray>, IidOf<IArray>, IidOf<IValueBase>}},
      {"SimpleFixedArray",
       kSimpleFixedArrayClass,
       {IidOf<ISimpleFixedArray>, IidOf<ISimpleArray>, IidOf<IArray>, IidOf<IValueBase>}},
      {"SimpleArray", kSimpleArrayClass, {IidOf<ISimpleArray>, IidOf<IArray>, IidOf<IValueBase>}},
      {"Array", kArrayClass, {IidOf<IArrayImpl>, IidOf<IArray>, IidOf<IValueBase>}},
      {"SimpleValue", kSimpleValueClass, {IidOf<ISimpleValue>, IidOf<IValueBase>}},
      {"Structure", kStructureClass, {IidOf<IStructure>, IidOf<IValueBase>}},
      {"Enumeration", kEnumerationClass, {IidOf<IEnumeration>, IidOf<IValueBase>}},
      {"SimpleFixedStructure",
       kSimpleFixedStructureClass,
       {IidOf<ISimpleFixedStructure>, IidOf<IStructure>, IidOf<IValueBase>}},
      {"Collection", kCollectionClass, {IidOf<ICollectionImpl>, IidOf<ICollection>, IidOf<IValueBase>}},
      {"OrmSession", kOrmSessionClass, {IidOf<IOrmSession>}},
      {"Unit", kUnitClass, {IidOf<IUnit>}},
      {"OrmFile", kOrmFileClass, {IidOf<IOrmFile>, IidOf<IOrmFileBuffering>}},
      {"OrmHelp", kOrmHelpClass, {IidOf<IOrmHelp>}},
  };
  return rows;
}

constexpr IID kUnknownInterface = {
    0x12345678, 0x1234, 0x1234, {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0}};

Ptr<IUnknown> Query(const Ptr<IUnknown>& object, REFIID iid) {
  Ptr<IUnknown> result;
  EXPECT_EQ(object->QueryInterface(iid, result.OutVoid()), S_OK);
  return result;
}

class EveryClass : public testing::TestWithParam<ClassRow> {
 protected:
  static Ptr<IUnknown> Make() { return CreateObject<IUnknown>(GetParam().clsid); }

  static std::vector<IID> Interfaces() {
    std::vector<IID> result = GetParam().interfaces;
    result.insert(result.end(),
                  {IidOf<IUnknown>, IidOf<IDispatch>, IidOf<IObjectSafety>, IidOf<ISupportErrorInfo>});
    return result;
  }
};

INSTANTIATE_TEST_SUITE_P(Classes, EveryClass, testing::ValuesIn(Classes()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(EveryClass, EveryInterfaceLeadsToEveryOther) {
  const auto object = Make();
  for (const IID& from : Interfaces()) {
    const auto start = Query(object, from);
    for (const IID& to : Interfaces()) {
      const auto end = Query(start, to);
      EXPECT_TRUE(Query(end, from) == start);
      EXPECT_TRUE(Query(end, IidOf<IUnknown>) == object);
    }
  }
}

TEST_P(EveryClass, OtherInterfacesAreRefused) {
  const auto object = Make();
  void* result = &result;
  EXPECT_EQ(object->QueryInterface(kUnknownInterface, &result), E_NOINTERFACE);
  EXPECT_EQ(result, nullptr);
}

TEST_P(EveryClass, CreationWithAnInterfaceThatIsMissingFails) {
  void* result = &result;
  EXPECT_EQ(CoCreateInstance(GetParam().clsid, nullptr, CLSCTX_ALL, kUnknownInterface, &result),
            E_NOINTERFACE);
  EXPECT_EQ(result, nullptr);
}

TEST_P(EveryClass, ReferencesAreCounted) {
  IUnknown* object = Make().Detach();
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(object->Release(), 0u);
}

TEST_P(EveryClass, SupportsErrorObjects) {
  const auto support = Make().As<ISupportErrorInfo>();
  ASSERT_TRUE(support);
  for (const IID& iid : GetParam().interfaces) EXPECT_EQ(support->InterfaceSupportsErrorInfo(iid), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(kUnknownInterface), S_FALSE);
}

// The options of an object as "supported/enabled".
std::string Options(const Ptr<IObjectSafety>& safety, REFIID iid) {
  DWORD supported = Garbage<DWORD>();
  DWORD enabled = Garbage<DWORD>();
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(iid, &supported, &enabled), S_OK);
  return std::to_string(supported) + "/" + std::to_string(enabled);
}

TEST_P(EveryClass, SafetyOptionsAreThreeSupportedAndNoneEnabled) {
  const auto safety = Make().As<IObjectSafety>();
  ASSERT_TRUE(safety);
  for (const IID& iid : Interfaces()) EXPECT_EQ(Options(safety, iid), "3/0");
}

TEST_P(EveryClass, SafetyOptionsAreReplacedByTheMask) {
  const auto safety = Make().As<IObjectSafety>();
  constexpr struct {
    DWORD mask;
    DWORD enabled;
    const char* options;
  } kSteps[] = {{1, 1, "3/1"}, {2, 0, "3/3"}, {0, 1, "3/2"}, {1, 2, "3/1"},
                {3, 3, "3/3"}, {0, 3, "3/0"}, {1, 0, "3/1"}};
  for (const auto& step : kSteps) {
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, step.mask, step.enabled), S_OK);
    EXPECT_EQ(Options(safety, IidOf<IUnknown>), step.options);
  }
}

TEST_P(EveryClass, UnsupportedSafetyOptionsFail) {
  const auto safety = Make().As<IObjectSafety>();
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, 1, 1), S_OK);
  for (const DWORD mask : {DWORD{4}, DWORD{5}, DWORD{0x80000000}, DWORD{0xFFFFFFFF}}) {
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IidOf<IDispatch>, mask, 0), E_FAIL) << mask;
  }
  EXPECT_EQ(Options(safety, IidOf<IDispatch>), "3/1");
}

TEST_P(EveryClass, SafetyOptionsOfAMissingInterfaceFail) {
  const auto safety = Make().As<IObjectSafety>();
  DWORD supported = 9;
  DWORD enabled = 9;
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(kUnknownInterface, &supported, &enabled), E_NOINTERFACE);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(kUnknownInterface, 1, 1), E_NOINTERFACE);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(kUnknownInterface, 4, 1), E_NOINTERFACE);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IidOf<IDispatch>, nullptr, &enabled), E_POINTER);
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IidOf<IDispatch>, &supported, nullptr), E_POINTER);
  EXPECT_EQ(Options(safety, IidOf<IDispatch>), "3/0");
}

// An object that passes every question but that for IUnknown to the part inside it.
class Outer : public IUnknown {
 public:
  Ptr<IUnknown> inner;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (!(riid == IidOf<IUnknown>)) return inner->QueryInterface(riid, ppvObject);
    *ppvObject = static_cast<IUnknown*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ULONG references = 1;  // the test's own
};

TEST_P(EveryClass, BecomesAPartOfAnOuterObject) {
  Outer outer;
  ASSERT_EQ(CoCreateInstance(GetParam().clsid, &outer, CLSCTX_ALL, IidOf<IUnknown>, outer.inner.OutVoid()),
            S_OK);
  EXPECT_FALSE(outer.inner.get() == &outer);
  EXPECT_EQ(outer.references, 1u);
  for (const IID& iid : GetParam().interfaces) {
    const auto part = Query(Ptr<IUnknown>(&outer), iid);
    EXPECT_EQ(outer.references, 2u);
    EXPECT_TRUE(Query(part, IidOf<IUnknown>).get() == &outer);
    EXPECT_TRUE(Query(Query(part, IidOf<IObjectSafety>), IidOf<IUnknown>).get() == &outer);
  }
  EXPECT_EQ(outer.references, 1u);
  EXPECT_TRUE(Query(outer.inner, IidOf<IUnknown>) == outer.inner);
}

TEST_P(EveryClass, PartsMustBeAskedForIUnknown) {
  for (const IID& iid : {GetParam().interfaces.front(), IidOf<IDispatch>, kUnknownInterface}) {
    Outer outer;
    void* result = &result;
    EXPECT_EQ(CoCreateInstance(GetParam().clsid, &outer, CLSCTX_ALL, iid, &result), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(outer.references, 1u);
  }
}

TEST(Creation, UnknownClassIsNotRegistered) {
  void* result = &result;
  EXPECT_EQ(CoCreateInstance(kUnknownInterface, nullptr, CLSCTX_ALL, IidOf<IUnknown>, &result),
            REGDB_E_CLASSNOTREG);
  EXPECT_EQ(result, nullptr);
}

TEST(SimpleValueObject, LateBoundCallersGetTheInterfaceWithMembers) {
  const auto value = CreateObject<IValueBase>(kSimpleValueClass);
  EXPECT_EQ(value.As<IDispatch>().get(), static_cast<IDispatch*>(value.get()));
}

TEST(AggregatedValue, WorksThroughItsOuterObject) {
  Outer outer;
  ASSERT_EQ(CoCreateInstance(kSimpleValueClass, &outer, CLSCTX_ALL, IidOf<IUnknown>, outer.inner.OutVoid()),
            S_OK);
  {
    const auto value = Ptr<IUnknown>(&outer).As<IValueBase>();
    ASSERT_TRUE(value);
    EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Invalid");
    const auto itself = Get(value, &IValueBase::get_At, Variant());
    EXPECT_TRUE(Query(itself, IidOf<IUnknown>).get() == &outer);
  }
  EXPECT_EQ(outer.references, 1u);
}

}  // namespace
}  // namespace halyard::test
