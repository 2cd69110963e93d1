// Late binding: what script engines ask of IDispatch beyond a plain call.
#include <gtest/gtest.h>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/late.h"
#include "tests/server/support/late_samples.h"
#include "tests/server/support/type_info.h"

namespace halyard::test {
namespace {

constexpr DISPID kDefaultMember = DISPID_VALUE;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutReference = DISPATCH_PROPERTYPUTREF;
constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

using LateBinding = RegisteredComponent;

TEST_F(LateBinding, OffersOneTypeInfo) {
  for (const ClassRowExpected& row : kExpectedClasses) {
    SCOPED_TRACE(Plain(row.name));
    Ptr<IDispatch> object;
    ASSERT_EQ(CoCreateInstance(ClassId(row), nullptr, CLSCTX_ALL, IidOf<IDispatch>, object.OutVoid()), S_OK);
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
    Ptr<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Out()), S_OK);
    // The interface with no members of its own is served as the one that has them.
    const bool is_simple_value = row.default_interface == IidOf<ISimpleValue>;
    EXPECT_EQ(FactsOf(info).guid, is_simple_value ? IidOf<IValueBase> : row.default_interface);
    EXPECT_EQ(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.Out()), DISP_E_BADINDEX);
    EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
  }
}

TEST_F(LateBinding, KeepsTheTypeInfoOfAnInterface) {
  Ptr<ITypeInfo> first;
  Ptr<ITypeInfo> second;
  ASSERT_EQ(DepthAndLabel()->GetTypeInfo(0, LOCALE_USER_DEFAULT, first.Out()), S_OK);
  ASSERT_EQ(DepthAndLabel()->GetTypeInfo(0, LOCALE_USER_DEFAULT, second.Out()), S_OK);
  EXPECT_EQ(first, second);
}

TEST_F(LateBinding, FindsMembersWithoutRegardToLetterCase) {
  const auto definition = DepthAndLabel();
  EXPECT_EQ(IdOf(definition.get(), L"MEMBERCOUNT"), 101);
  EXPECT_EQ(IdOf(definition.get(), L"count"), 1);
}

TEST_F(LateBinding, TakesNamedArguments) {
  const auto definition = DepthAndLabel();
  OLECHAR method[] = L"AddSimpleMember";
  OLECHAR type[] = L"DataType";
  OLECHAR name[] = L"sName";
  OLECHAR* names[] = {method, type, name};
  DISPID ids[3] = {};
  ASSERT_EQ(definition->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  Variant label = Text(L"Height");
  VARIANT arguments[] = {I2(kReal).get(), label.get()};
  DISPPARAMS params{arguments, &ids[1], 2, 2};
  Variant result;
  ASSERT_EQ(definition->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, kMethod, &params, result.Out(), nullptr,
                               nullptr),
            S_OK);
  EXPECT_EQ(Describe(result), "BOOL -1");
  EXPECT_EQ(Get(definition, &IStructureDef::MemberIndex, label->bstrVal), 2);
}

TEST_F(LateBinding, FillsInTheOptionalArgument) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  const Variant name = Text(L"no such folder\\no such file");
  const LateOutcome outcome = Invoke(file.get(), L"OpenForRead", kMethod, {name.get()});
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(Describe(outcome.result), "BOOL 0");
}

TEST_F(LateBinding, PutsByValueAndByReferenceAlike) {
  for (const WORD flags : {kPut, kPutReference, static_cast<WORD>(kPut | kPutReference)}) {
    const auto unit = CreateObject<IUnit>(kUnitClass);
    const auto definition = DepthAndLabel();
    EXPECT_EQ(Invoke(unit.get(), L"Info", flags, {ObjectArgument(definition.get())}).status, S_OK);
    EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Info).get(), definition.get()));
    EXPECT_EQ(Invoke(unit.get(), L"Info", flags, {ObjectArgument(nullptr)}).status, S_OK);
    EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  }
}

TEST_F(LateBinding, ReachesMembersThroughTheDefaultMember) {
  const auto record = NewValue(DepthAndLabel());
  const Variant name = Text(L"Depth");
  EXPECT_EQ(Invoke(record.get(), kDefaultMember, kPut, {name.get(), R8(2.5).get()}).status, S_OK);
  EXPECT_EQ(Describe(Invoke(record.get(), kDefaultMember, kCall, {name.get()}).result), "R8 2.5");
}

TEST_F(LateBinding, UnwrapsVariables) {
  const auto record = NewValue(DepthAndLabel());
  Variant name = Text(L"Depth");
  Variant content = R8(1.5);
  EXPECT_EQ(Invoke(record.get(), kDefaultMember, kPut, {Variable(name), Variable(content)}).status, S_OK);
  EXPECT_EQ(Describe(Invoke(record.get(), kDefaultMember, kGet, {Variable(name)}).result), "R8 1.5");
  EXPECT_EQ(Describe(name), "BSTR Depth");
}

TEST_F(LateBinding, GivesVariablesWhatOutArgumentsHold) {
  const auto definition = StructureDefinition({{L"Depth", kReal}, {L"Count", kLong}});
  Variant position = I2(1);
  Variant type;
  Variant place = Text(L"was a text");
  Variant size;
  const LateOutcome outcome = Invoke(definition.get(), L"MemberInfo", kMethod,
                                     {Variable(position), Variable(type), Variable(place), Variable(size)});
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(Describe(outcome.result), "BOOL -1");
  EXPECT_EQ(Describe(type), "I2 8");
  EXPECT_EQ(Describe(place), "I4 8");
  EXPECT_EQ(Describe(size), "I4 4");
}

TEST_F(LateBinding, LeavesVariablesAloneWhenTheCallFails) {
  const auto definition = DepthAndLabel();
  Variant position = I4(99);
  Variant type = Text(L"kept");
  Variant place;
  Variant size;
  EXPECT_EQ(Invoke(definition.get(), L"MemberInfo", kMethod,
                   {Variable(position), Variable(type), Variable(place), Variable(size)})
                .code,
            E_INVALIDARG);
  EXPECT_EQ(Describe(type), "BSTR kept");
}

TEST_F(LateBinding, GivesScriptsNoUnsignedNumbers) {
  const LateOutcome size = Invoke(DepthAndLabel().get(), L"PacketSize", kGet);
  EXPECT_EQ(size.status, S_OK);
  EXPECT_EQ(size.result.type(), VT_I4);
}

TEST_F(LateBinding, ReadsTheContentOfASingleValueWithoutANameOrIndex) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(42));
  EXPECT_EQ(Describe(Invoke(value.get(), kDefaultMember, kGet).result), "I4 42");
  Variant converted;
  EXPECT_EQ(ConvertObject(value.get(), VT_BSTR, &converted), S_OK);
  EXPECT_EQ(Describe(converted), "BSTR 42");
}

}  // namespace
}  // namespace halyard::test
