// What calls that hand out a text or an object leave in its place when memory runs out.
#include <functional>

#include "tests/failures/failing_memory.h"
#include "tests/failures/samples.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// Everything that has a text to hand out.
struct Sources {
  Ptr<IStructureDef> structure = EverythingDefinition();
  Ptr<IEnumerationDef> enumeration = EnumerationDefinition(kShort, {{OLESTR("Red"), 1}});
  Ptr<IArrayDef> array = SimpleArrayDefinition(kLong);
  Ptr<ISimpleValueDef> simple = SimpleDefinition(kLong);
  Ptr<IValueBase> value = EverythingValue();
  Ptr<IValueBase> texts = NewTexts();
  Ptr<IValueBase> collection = CreateObject<IValueBase>(kCollectionClass);
  Ptr<IUnit> unit = CreateObject<IUnit>(kUnitClass);

  Sources() {
    EXPECT_EQ(simple->put_ValidationScript(Bstr(OLESTR("a script")).get()), S_OK);
    EXPECT_EQ(unit->put_Value(value.get()), S_OK);
  }

 private:
  static Ptr<IValueBase> NewTexts() {
    const auto texts = NewArray(SimpleArrayDefinition(kString));
    Add(texts, Text(OLESTR("a text")));
    return texts;
  }
};

// Fails each allocation of the call in turn: where it fails, the place is empty.
template <class T>
void ExpectEmptied(const char* name, const std::function<HRESULT(T*)>& call, T untouched,
                   const std::function<bool(const T&)>& is_empty) {
  for (std::size_t which = 1;; ++which) {
    T place = untouched;
    HRESULT status = S_OK;
    bool happened = false;
    {
      const FailingAllocation failing(which);
      status = call(&place);
      happened = failing.Happened();
    }
    static_cast<void>(SetErrorInfo(0, nullptr));
    if (FAILED(status)) {
      EXPECT_EQ(status, E_OUTOFMEMORY) << name;
      EXPECT_TRUE(is_empty(place)) << name << ", allocation " << which;
    }
    EXPECT_TRUE(happened || which > 1) << name << " allocates nothing";
    if (!happened) break;
  }
}

using Texts = std::vector<std::pair<const char*, std::function<HRESULT(BSTR*)>>>;

Texts AllTexts(const Sources& from) {
  return {
      {"StructureInfo.TypeString", [&](BSTR* out) { return from.structure->get_TypeString(out); }},
      {"StructureInfo.Name", [&](BSTR* out) { return from.structure->get_Name(out); }},
      {"StructureInfo.MemberName", [&](BSTR* out) { return from.structure->get_MemberName(0, out); }},
      {"EnumerationInfo.ElementName", [&](BSTR* out) { return from.enumeration->get_ElementName(0, out); }},
      {"EnumerationInfo.DataTypeString",
       [&](BSTR* out) { return from.enumeration->get_DataTypeString(out); }},
      {"ArrayInfo.DataTypeString", [&](BSTR* out) { return from.array->get_DataTypeString(out); }},
      {"SimpleValueInfo.Name", [&](BSTR* out) { return from.simple->get_Name(out); }},
      {"SimpleValueInfo.ValidationScript", [&](BSTR* out) { return from.simple->get_ValidationScript(out); }},
      {"Structure.TypeString", [&](BSTR* out) { return from.value->get_TypeString(out); }},
      {"Structure.Name", [&](BSTR* out) { return from.value->get_Name(I4(0).get(), out); }},
      {"StringArray.Name", [&](BSTR* out) { return from.texts->get_Name(I4(0).get(), out); }},
      {"Collection.TypeString", [&](BSTR* out) { return from.collection->get_TypeString(out); }},
      {"Unit.TypeString", [&](BSTR* out) { return from.unit->get_TypeString(out); }},
  };
}

TEST(EmptiedOutputs, Texts) {
  const Sources from;
  const Bstr other(OLESTR("whatever was there"));
  for (const auto& [name, call] : AllTexts(from)) {
    // What succeeds is freed by the test.
    const auto freed = [&call = call](BSTR* out) {
      const HRESULT hr = call(out);
      if (SUCCEEDED(hr)) SysFreeString(*out);
      return hr;
    };
    ExpectEmptied<BSTR>(name, freed, other.get(), [](BSTR const& place) { return place == nullptr; });
  }
}

TEST(EmptiedOutputs, Variants) {
  const Sources from;
  VARIANT other{};
  other.vt = VT_I4;
  const auto is_empty = [](const VARIANT& place) { return place.vt == VT_EMPTY; };
  const auto item = [&](const Ptr<IValueBase>& value, LONG index) {
    return [value, index](VARIANT* out) {
      const HRESULT hr = value->get_Item(I4(index).get(), out);
      if (SUCCEEDED(hr)) VariantClear(out);
      return hr;
    };
  };
  ExpectEmptied<VARIANT>("StringArray.Item", item(from.texts, 0), other, is_empty);
  ExpectEmptied<VARIANT>("Structure.Item", item(from.value, 1), other, is_empty);
}

TEST(EmptiedOutputs, Objects) {
  const Sources from;
  const Ptr<IValueBase> other = CreateObject<IValueBase>(kCollectionClass);
  const auto is_empty = [](IValueBase* const& place) { return place == nullptr; };
  const auto released = [](auto call) {
    return [call](IValueBase** out) {
      const HRESULT hr = call(out);
      if (SUCCEEDED(hr)) (*out)->Release();
      return hr;
    };
  };
  const auto make = [&](IValueBase** out) { return from.array->CreateDataObject(out); };
  const auto copy = [&](IValueBase** out) { return from.texts->Copy(out); };
  ExpectEmptied<IValueBase*>("ArrayInfo.CreateDataObject", released(make), other.get(), is_empty);
  ExpectEmptied<IValueBase*>("StringArray.Copy", released(copy), other.get(), is_empty);
}

}  // namespace
}  // namespace halyard::test
