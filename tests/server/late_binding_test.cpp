// Late binding: what script engines ask of IDispatch beyond a plain call.
#include <gtest/gtest.h>

#include "tests/server/support/class_factory_traits.h"
#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/late.h"
#include "tests/server/support/moved_copy.h"
#include "tests/server/support/type_info.h"
#include "tests/support/definitions.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr DISPID kDefaultMember = DISPID_VALUE;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutReference = DISPATCH_PROPERTYPUTREF;
constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class LateBinding : public RegisteredComponent {
 protected:
  static Ptr<IStructureDef> Definition() {
    return StructureDefinition({{L"Depth", kReal}, {L"Label", kString}}, 7, L"Sample");
  }
};

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
  ASSERT_EQ(Definition()->GetTypeInfo(0, LOCALE_USER_DEFAULT, first.Out()), S_OK);
  ASSERT_EQ(Definition()->GetTypeInfo(0, LOCALE_USER_DEFAULT, second.Out()), S_OK);
  EXPECT_EQ(first, second);
}

TEST_F(LateBinding, FindsMembersWithoutRegardToLetterCase) {
  const auto definition = Definition();
  EXPECT_EQ(IdOf(definition.get(), L"MEMBERCOUNT"), 101);
  EXPECT_EQ(IdOf(definition.get(), L"count"), 1);
}

TEST_F(LateBinding, NamesAMissingMember) {
  OLECHAR missing[] = L"Nope";
  OLECHAR* names[] = {missing};
  DISPID id = 0;
  EXPECT_EQ(Definition()->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(Definition()->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
  EXPECT_EQ(Invoke(Definition().get(), 4711, kCall).status, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBinding, TakesNamedArguments) {
  const auto definition = Definition();
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
    const auto definition = Definition();
    EXPECT_EQ(Invoke(unit.get(), L"Info", flags, {ObjectArgument(definition.get())}).status, S_OK);
    EXPECT_TRUE(SameObject(Get(unit, &IUnit::get_Info).get(), definition.get()));
    EXPECT_EQ(Invoke(unit.get(), L"Info", flags, {ObjectArgument(nullptr)}).status, S_OK);
    EXPECT_FALSE(Get(unit, &IUnit::get_Info));
  }
}

TEST_F(LateBinding, ReachesMembersThroughTheDefaultMember) {
  const auto record = NewValue(Definition());
  const Variant name = Text(L"Depth");
  EXPECT_EQ(Invoke(record.get(), kDefaultMember, kPut, {name.get(), R8(2.5).get()}).status, S_OK);
  EXPECT_EQ(Describe(Invoke(record.get(), kDefaultMember, kCall, {name.get()}).result), "R8 2.5");
}

TEST_F(LateBinding, UnwrapsVariables) {
  const auto record = NewValue(Definition());
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
  const auto definition = Definition();
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
  const LateOutcome size = Invoke(Definition().get(), L"PacketSize", kGet);
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

TEST_F(LateBinding, HasNoSingleContentForARecord) {
  EXPECT_EQ(Invoke(NewValue(Definition()).get(), kDefaultMember, kGet).status, DISP_E_PARAMNOTFOUND);
  Variant converted;
  EXPECT_TRUE(FAILED(ConvertObject(NewValue(Definition()).get(), VT_BSTR, &converted)));
}

TEST_F(LateBinding, DescribesAFailureOfTheObject) {
  const LateOutcome outcome = Invoke(Definition().get(), L"MemberName", kGet, {I4(99).get()});
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.code, E_INVALIDARG);
  EXPECT_EQ(outcome.source, "Halyard.StructureInfo");
  EXPECT_TRUE(outcome.description.starts_with("StructureInfo.MemberName: ")) << outcome.description;
}

TEST_F(LateBinding, DoesNotBlameAnEarlierFailure) {
  static_cast<void>(Invoke(Definition().get(), L"MemberName", kGet, {I4(99).get()}));
  const LateOutcome outcome = Invoke(CreateObject<IOrmFile>(kOrmFileClass).get(), L"ReadData", kMethod);
  EXPECT_EQ(outcome.code, E_POINTER);
  EXPECT_EQ(outcome.source, "Halyard.OrmFile");
}

TEST_F(LateBinding, RejectsTextWhereANumberBelongs) {
  const Variant text = Text(L"seven");
  EXPECT_EQ(Invoke(Definition().get(), L"Id", kPut, {text.get()}).status, DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, RejectsTheWrongNumberOfArguments) {
  EXPECT_EQ(Invoke(Definition().get(), L"RemoveAll", kMethod, {I4(1).get()}).status, DISP_E_BADPARAMCOUNT);
  EXPECT_TRUE(FAILED(Invoke(Definition().get(), L"AddSimpleMember", kMethod).status));
}

TEST_F(LateBinding, RejectsAnObjectOfAnotherKind) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_TRUE(FAILED(Invoke(unit.get(), L"Info", kPutReference, {ObjectArgument(session.get())}).status));
}

TEST_F(LateBinding, SurvivesMissingParameters) {
  EXPECT_EQ(Definition()->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, kGet, nullptr, nullptr, nullptr, nullptr),
            E_POINTER);
  DISPPARAMS none{};
  EXPECT_EQ(Definition()->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, kGet, &none, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(SimpleValue(kLong)->Invoke(kDefaultMember, IID_NULL, LOCALE_USER_DEFAULT, kGet, &none, nullptr,
                                       nullptr, nullptr),
            E_POINTER);
}

// The type library is gone, the classes are not: early-bound clients go on, late-bound
// ones are told what is missing.
TEST_F(LateBinding, NeedsTheTypeLibrary) {
  // A module of its own, which has not loaded any type information yet.
  const MovedCopy copy(L"halyard without a type library");
  const Component fresh(copy.path());
  Ptr<IOrmSession> session;
  ASSERT_EQ(fresh.Factory(kOrmSessionClass)->CreateInstance(nullptr, IidOf<IOrmSession>, session.OutVoid()),
            S_OK);
  ASSERT_EQ(UnRegisterTypeLib(LibraryId(), 1, 0, 0, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32), S_OK);
  OLECHAR name[] = L"AddType";
  OLECHAR* names[] = {name};
  DISPID id = 0;
  EXPECT_TRUE(Raises(TYPE_E_LIBNOTREGISTERED,
                     [&] { return session->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id); }));
  EXPECT_EQ(Invoke(session.get(), 2, kMethod).status, TYPE_E_LIBNOTREGISTERED);
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(session->AddType(Definition().get(), &added), S_OK);
  EXPECT_EQ(added, VARIANT_TRUE);
  ASSERT_EQ(component().Register(), S_OK);
  EXPECT_EQ(IdOf(session.get(), L"AddType"), 2);
}

// The items of a walk, each described.
std::vector<std::string> Walked(IDispatch* object) {
  const LateOutcome outcome = Invoke(object, DISPID_NEWENUM, kCall);
  EXPECT_EQ(outcome.status, S_OK);
  if (outcome.result.type() != VT_UNKNOWN) return {};
  const auto items = QueryFor<IEnumVARIANT>(outcome.result->punkVal);
  std::vector<std::string> texts;
  Variant item;
  while (items->Next(1, item.Out(), nullptr) == S_OK) texts.push_back(Describe(item));
  return texts;
}

TEST_F(LateBinding, WalksOverMembers) {
  const auto record = NewValue(Definition());
  PutItem(record, L"Depth", R8(2.5));
  PutItem(record, L"Label", Text(L"deep"));
  EXPECT_EQ(Walked(record.get()), (std::vector<std::string>{"R8 2.5", "BSTR deep"}));
}

TEST_F(LateBinding, WalksOverMemberDefinitions) {
  EXPECT_EQ(Walked(Definition().get()), (std::vector<std::string>{"DISPATCH", "DISPATCH"}));
}

TEST_F(LateBinding, WalksOverElementNames) {
  const auto colours = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  for (const OLECHAR* name : {L"Red", L"Blue"}) {
    VARIANT_BOOL added = VARIANT_FALSE;
    ASSERT_EQ(colours->AddMember(Bstr(name).get(), 1, &added), S_OK);
  }
  EXPECT_EQ(Walked(colours.get()), (std::vector<std::string>{"BSTR Red", "BSTR Blue"}));
}

TEST_F(LateBinding, WalksOverElements) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const auto array = QueryFor<IValueBase>(Get(help, &IOrmHelp::CreateArray, Text(L"Long")).get());
  ASSERT_TRUE(array);
  for (const LONG number : {3, 5, 8}) ASSERT_EQ(array->Add(I4(number).get()), S_OK);
  EXPECT_EQ(Walked(array.get()), (std::vector<std::string>{"I4 3", "I4 5", "I4 8"}));
}

TEST_F(LateBinding, HasNothingToWalkOverInASession) {
  EXPECT_EQ(Invoke(CreateObject<IOrmSession>(kOrmSessionClass).get(), DISPID_NEWENUM, kCall).status,
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBinding, SkipsResetsAndClonesAWalk) {
  const auto record = NewValue(StructureDefinition({{L"A", kLong}, {L"B", kLong}, {L"C", kLong}}));
  PutItem(record, L"C", I4(9));
  const LateOutcome outcome = Invoke(record.get(), DISPID_NEWENUM, kCall);
  const auto items = QueryFor<IEnumVARIANT>(outcome.result->punkVal);
  ASSERT_TRUE(items);
  EXPECT_EQ(items->Skip(2), S_OK);
  Ptr<IEnumVARIANT> clone;
  ASSERT_EQ(items->Clone(clone.Out()), S_OK);
  Variant item;
  EXPECT_EQ(clone->Next(1, item.Out(), nullptr), S_OK);
  EXPECT_EQ(Describe(item), "I4 9");
  EXPECT_EQ(items->Skip(2), S_FALSE);
  EXPECT_EQ(items->Reset(), S_OK);
  VARIANT all[4] = {};
  ULONG fetched = 0;
  EXPECT_EQ(items->Next(4, all, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 3u);
  EXPECT_EQ(Describe(all[2]), "I4 9");
  EXPECT_EQ(items->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(items->Clone(nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
