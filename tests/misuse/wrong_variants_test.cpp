// Variants of every kind as every argument that is a variant, to every class.
//
// What a call must answer follows from what the platform answers when it converts such a
// variant; where an argument means nothing to a class, the call succeeds whatever it is.
#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "halyard/stream/orm_help.h"
#include "halyard/stream/orm_session.h"
#include "halyard/values/arrays/simple_array.h"
#include "tests/misuse/odd_variants.h"
#include "tests/misuse/subjects.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

using Codes = std::function<HRESULT(const VARIANT&)>;

// One argument of one call on one class.
struct Use {
  const char* class_name;
  const char* call;
  std::function<HRESULT(IUnknown*, VARIANT)> make;
  Codes expected;
  bool reads = false;       // changes nothing, whatever it answers
  bool may_append = false;  // a failure may leave an empty element behind
};

void PrintTo(const Use& use, std::ostream* stream) { *stream << use.class_name << "." << use.call; }

// What the platform answers when it converts the variant; the number, where it can.
HRESULT Conversion(const VARIANT& value, VARTYPE type, LONG* number = nullptr) {
  if (Variant::LeadsNowhere(value)) return E_INVALIDARG;
  Variant converted;
  const HRESULT hr = VariantChangeType(&converted.get(), const_cast<VARIANT*>(&value), 0, type);
  if (SUCCEEDED(hr) && number != nullptr) *number = converted->lVal;
  return hr;
}

Codes Always(HRESULT code) {
  return [code](const VARIANT&) { return code; };
}

Codes Converted(VARTYPE type) {
  return [type](const VARIANT& value) { return Conversion(value, type); };
}

// A position among so many; a position outside them is invalid.
Codes Position(LONG count) {
  return [count](const VARIANT& value) {
    LONG position = -1;
    const HRESULT hr = Conversion(value, VT_I4, &position);
    return FAILED(hr) ? hr : position >= 0 && position < count ? S_OK : E_INVALIDARG;
  };
}

// A name stands for what it names, all else is what `other` makes of it.
Codes NameOr(Codes other, HRESULT name = S_OK) {
  return [other = std::move(other), name](const VARIANT& value) {
    return value.vt == VT_BSTR ? name : other(value);
  };
}

template <class I, class Call>
std::function<HRESULT(IUnknown*, VARIANT)> On(Call call) {
  return [call](IUnknown* object, VARIANT value) { return call(*Ptr<IUnknown>(object).As<I>(), value); };
}

const auto kGetItem = On<IValueBase>([](auto& object, VARIANT value) {
  Variant content;
  return object.get_Item(value, content.Out());
});
const auto kGetName = On<IValueBase>([](auto& object, VARIANT value) {
  Bstr name;
  return object.get_Name(value, name.Out());
});
const auto kGetAt = On<IValueBase>([](auto& object, VARIANT value) {
  Ptr<IValueBase> part;
  return object.get_At(value, part.Out());
});
const auto kPutAt =
    On<IValueBase>([](auto& object, VARIANT value) { return object.put_Item(value, I4(5).get()); });
const auto kPutItem =
    On<IValueBase>([](auto& object, VARIANT value) { return object.put_Item(I4(0).get(), value); });
const auto kAdd = On<IValueBase>([](auto& object, VARIANT value) { return object.Add(value); });
const auto kRemove = On<IValueBase>([](auto& object, VARIANT value) { return object.Remove(value); });
const auto kPutValue = On<IValueBase>([](auto& object, VARIANT value) { return object.put_Value(value); });

// What the calls of IValueBase make of their arguments in one class.
struct ValueRow {
  const char* class_name;
  Codes item, name, at, put_at, put_item, add, remove, value;
  bool may_append = false;
};

std::vector<Use> ValueUses() {
  const Codes ignored = Always(S_OK);
  const Codes none = Always(E_NOTIMPL);
  const Codes member = NameOr(Converted(VT_I4));
  // Of what is no object an array of structures makes no elements.
  const Codes added_object = [](const VARIANT& value) { return value.vt == VT_DISPATCH ? E_POINTER : S_OK; };
  const ValueRow rows[] = {
      {"SimpleValue", ignored, ignored, ignored, ignored, ignored, ignored, ignored, ignored},
      {"Enumeration", ignored, ignored, ignored, ignored, ignored, ignored, ignored, Converted(VT_I4)},
      {"Structure", member, member, member, member, Converted(VT_I4), ignored, ignored, ignored},
      {"SimpleFixedStructure", member, member, none, member, Converted(VT_I4), ignored, ignored, ignored},
      {"Collection", none, none, none, none, none, none, none, none},
      {"Array", Position(2), ignored, Position(2), Position(2), ignored, added_object, Position(2), ignored},
      {"SimpleArray", Position(3), ignored, none, Position(3), Converted(VT_I2), Converted(VT_I2),
       Position(3), ignored, true},
      {"SimpleFixedArray", Position(3), ignored, none, Position(3), Converted(VT_I2), ignored, ignored,
       ignored},
      {"StringArray", Position(2), ignored, none, Position(2), Converted(VT_BSTR), Converted(VT_BSTR),
       Position(2), ignored, true},
  };
  std::vector<Use> uses;
  for (const ValueRow& row : rows) {
    uses.push_back({row.class_name, "Item", kGetItem, row.item, true});
    uses.push_back({row.class_name, "Name", kGetName, row.name, true});
    uses.push_back({row.class_name, "At", kGetAt, row.at, true});
    uses.push_back({row.class_name, "ItemPutAt", kPutAt, row.put_at});
    uses.push_back({row.class_name, "ItemPut", kPutItem, row.put_item});
    uses.push_back({row.class_name, "Add", kAdd, row.add, false, row.may_append});
    uses.push_back({row.class_name, "Remove", kRemove, row.remove});
    uses.push_back({row.class_name, "Value", kPutValue, row.value});
  }
  return uses;
}

// The type of the numbers in a transfer, without a path and into room enough.
template <class Move>
std::function<HRESULT(IUnknown*, VARIANT)> Transfer(Move move) {
  return On<IArray>([move](auto& array, VARIANT type) {
    unsigned char numbers[64] = {};
    VARIANT_BOOL done = VARIANT_FALSE;
    return (array.*move)(Bstr(OLESTR("Small")).get(), type, numbers, &done);
  });
}

// Types are names or codes; what means none is no failure.
Codes TypeCode() { return NameOr(Converted(VT_I2)); }

// The same where elements are made of the type: a code that none of them has makes no definition.
Codes ElementCode() {
  return NameOr([](const VARIANT& value) {
    LONG code = 0;
    const HRESULT hr = Conversion(value, VT_I2, &code);
    return SUCCEEDED(hr) && static_cast<SHORT>(code) > kLastElementaryType ? E_POINTER : hr;
  });
}

std::vector<Use> OtherUses() {
  const auto bound = [](const VARIANT& value) {
    if (Variant::LeadsNowhere(value)) return E_INVALIDARG;
    Variant followed;
    return VariantCopyInd(&followed.get(), const_cast<VARIANT*>(&value));
  };
  const Codes member = NameOr(Position(2));
  const Codes member_only = NameOr(Position(2), E_INVALIDARG);
  return {
      {"SimpleValueInfo", "MinValue",
       On<ISimpleValueDef>([](auto& object, VARIANT value) { return object.put_MinValue(value); }), bound},
      {"SimpleValueInfo", "MaxValue",
       On<ISimpleValueDef>([](auto& object, VARIANT value) { return object.put_MaxValue(value); }), bound},
      {"StructureInfo", "Members", On<IStructureDef>([](auto& object, VARIANT value) {
         Ptr<IValueDefBase> found;
         return object.get_Members(value, found.Out());
       }),
       member, true},
      {"StructureInfo", "MembersPut", On<IStructureDef>([](auto& object, VARIANT value) {
         return object.put_Members(value, SimpleDefinition(kReal).get());
       }),
       member},
      {"StructureInfo", "Remove",
       On<IStructureDef>([](auto& object, VARIANT value) { return object.Remove(value); }), member},
      {"StructureInfo", "CanBeNull", On<IStructureDef>([](auto& object, VARIANT value) {
         VARIANT_BOOL result = VARIANT_FALSE;
         return object.get_CanBeNull(value, &result);
       }),
       member_only, true},
      {"StructureInfo", "CanBeNullPut", On<IStructureDef>([](auto& object, VARIANT value) {
         return object.put_CanBeNull(value, VARIANT_TRUE);
       }),
       member_only},
      {"OrmSession", "GetTypeFromId", On<IOrmSession>([](auto& object, VARIANT value) {
         Ptr<IValueDefBase> found;
         return object.GetTypeFromId(value, 1, found.Out());
       }),
       TypeCode(), true},
      {"OrmHelp", "CreateArray", On<IOrmHelp>([](auto& object, VARIANT value) {
         Ptr<IDispatch> array;
         return object.CreateArray(value, array.Out());
       }),
       [](const VARIANT& value) { return value.vt == VT_DISPATCH ? S_OK : TypeCode()(value); }},
      {"OrmHelp", "CreateShellArray", On<IOrmHelp>([](auto& object, VARIANT value) {
         unsigned char block[64] = {};
         Ptr<ISimpleFixedArray> array;
         return object.CreateShellArray(value, 2, 3, block, array.Out());
       }),
       ElementCode()},
      {"Array", "BuildNumericArray", Transfer(&IArray::BuildNumericArray), TypeCode(), true},
      {"Array", "ReadNumericArray", Transfer(&IArray::ReadNumericArray), TypeCode()},
      {"SimpleArray", "BuildNumericArray", Transfer(&IArray::BuildNumericArray), TypeCode(), true},
      {"SimpleArray", "ReadNumericArray", Transfer(&IArray::ReadNumericArray), TypeCode()},
      {"SimpleFixedArray", "BuildNumericArray", Transfer(&IArray::BuildNumericArray), TypeCode(), true},
      {"SimpleFixedArray", "ReadNumericArray", Transfer(&IArray::ReadNumericArray), TypeCode()},
      {"StringArray", "BuildNumericArray", Transfer(&IArray::BuildNumericArray), Always(S_OK), true},
      {"StringArray", "ReadNumericArray", Transfer(&IArray::ReadNumericArray), Always(S_OK)},
  };
}

class WrongVariants : public testing::TestWithParam<Use> {};

TEST_P(WrongVariants, GiveTheirCodeAndLeaveTheObjectWhole) {
  const Use& use = GetParam();
  const OddVariants odd;
  const MessageRecorder messages;
  const std::string before = Holdings(NewSubject(use.class_name).get());
  for (const OddVariants::Row& row : odd.rows()) {
    const auto object = NewSubject(use.class_name);
    ASSERT_TRUE(object);
    const HRESULT status = use.make(object.get(), row.value);
    EXPECT_EQ(StatusText(status), StatusText(use.expected(row.value))) << row.name;
    const bool unchanged = use.reads || (FAILED(status) && !use.may_append);
    if (unchanged) {
      EXPECT_EQ(Holdings(object.get()), before) << row.name;
    } else {
      Exercise(object.get());
    }
  }
  static_cast<void>(SetErrorInfo(0, nullptr));
}

std::string NameOfUse(const testing::TestParamInfo<Use>& info) {
  return std::string(info.param.class_name) + "_" + info.param.call;
}

INSTANTIATE_TEST_SUITE_P(Values, WrongVariants, testing::ValuesIn(ValueUses()), NameOfUse);
INSTANTIATE_TEST_SUITE_P(Others, WrongVariants, testing::ValuesIn(OtherUses()), NameOfUse);

}  // namespace
}  // namespace halyard::test
