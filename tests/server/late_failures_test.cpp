// Late binding that fails: the codes and the descriptions that reach a script.
#include <gtest/gtest.h>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/late.h"
#include "tests/server/support/late_samples.h"
#include "tests/server/support/moved_copy.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr DISPID kDefaultMember = DISPID_VALUE;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutReference = DISPATCH_PROPERTYPUTREF;
constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

using LateFailures = RegisteredComponent;

TEST_F(LateFailures, NamesAMissingMember) {
  OLECHAR missing[] = L"Nope";
  OLECHAR* names[] = {missing};
  DISPID id = 0;
  EXPECT_EQ(DepthAndLabel()->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(DepthAndLabel()->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
  EXPECT_EQ(Invoke(DepthAndLabel().get(), 4711, kCall).status, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateFailures, HasNoSingleContentForARecord) {
  EXPECT_EQ(Invoke(NewValue(DepthAndLabel()).get(), kDefaultMember, kGet).status, DISP_E_PARAMNOTFOUND);
  Variant converted;
  EXPECT_TRUE(FAILED(ConvertObject(NewValue(DepthAndLabel()).get(), VT_BSTR, &converted)));
}

TEST_F(LateFailures, DescribesAFailureOfTheObject) {
  const LateOutcome outcome = Invoke(DepthAndLabel().get(), L"MemberName", kGet, {I4(99).get()});
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.code, E_INVALIDARG);
  EXPECT_EQ(outcome.source, "Halyard.StructureInfo");
  EXPECT_TRUE(outcome.description.starts_with("StructureInfo.MemberName: ")) << outcome.description;
}

TEST_F(LateFailures, DescribesAFailureOfAnItem) {
  const auto record = NewValue(DepthAndLabel());
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const auto array = Get(help, &IOrmHelp::CreateArray, Text(L"Long"));
  Variant place = I4(7);
  for (const VARIANT& index : {I4(7).get(), Variable(place)}) {
    for (const WORD how : {kGet, kPut}) {
      const auto arguments = how == kGet ? std::vector{index} : std::vector{index, I4(1).get()};
      const LateOutcome outcome = Invoke(array.get(), kDefaultMember, how, arguments);
      EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
      EXPECT_EQ(outcome.code, E_INVALIDARG);
      EXPECT_EQ(outcome.source, "Halyard.SimpleArray");
      EXPECT_TRUE(outcome.description.starts_with("SimpleArray.Item: ")) << outcome.description;
    }
  }
  const Variant text = Text(L"no number");
  const LateOutcome outcome = Invoke(record.get(), kDefaultMember, kPut, {Text(L"Depth").get(), text.get()});
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.code, DISP_E_TYPEMISMATCH);
}

// Nobody asks for the details: the call is the same.
TEST_F(LateFailures, FailsWithoutAPlaceForTheException) {
  const auto array = Get(CreateObject<IOrmHelp>(kOrmHelpClass), &IOrmHelp::CreateArray, Text(L"Long"));
  Variant index = I4(7);
  DISPPARAMS params{&index.get(), nullptr, 1, 0};
  Variant result;
  EXPECT_EQ(array->Invoke(kDefaultMember, IID_NULL, LOCALE_USER_DEFAULT, kGet, &params, result.Out(), nullptr,
                          nullptr),
            DISP_E_EXCEPTION);
  EXPECT_EQ(result.type(), VT_EMPTY);
}

TEST_F(LateFailures, DoesNotBlameAnEarlierFailure) {
  static_cast<void>(Invoke(DepthAndLabel().get(), L"MemberName", kGet, {I4(99).get()}));
  const LateOutcome outcome = Invoke(CreateObject<IOrmFile>(kOrmFileClass).get(), L"ReadData", kMethod);
  EXPECT_EQ(outcome.code, E_POINTER);
  EXPECT_EQ(outcome.source, "Halyard.OrmFile");
}

TEST_F(LateFailures, RejectsTextWhereANumberBelongs) {
  const Variant text = Text(L"seven");
  EXPECT_EQ(Invoke(DepthAndLabel().get(), L"Id", kPut, {text.get()}).status, DISP_E_TYPEMISMATCH);
}

TEST_F(LateFailures, RejectsTheWrongNumberOfArguments) {
  EXPECT_EQ(Invoke(DepthAndLabel().get(), L"RemoveAll", kMethod, {I4(1).get()}).status, DISP_E_BADPARAMCOUNT);
  EXPECT_TRUE(FAILED(Invoke(DepthAndLabel().get(), L"AddSimpleMember", kMethod).status));
}

TEST_F(LateFailures, RejectsAnObjectOfAnotherKind) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_TRUE(FAILED(Invoke(unit.get(), L"Info", kPutReference, {ObjectArgument(session.get())}).status));
}

TEST_F(LateFailures, SurvivesMissingParameters) {
  EXPECT_EQ(
      DepthAndLabel()->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, kGet, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);
  DISPPARAMS none{};
  EXPECT_EQ(DepthAndLabel()->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, kGet, &none, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(SimpleValue(kLong)->Invoke(kDefaultMember, IID_NULL, LOCALE_USER_DEFAULT, kGet, &none, nullptr,
                                       nullptr, nullptr),
            E_POINTER);
}

// The type library is gone, the classes are not: early-bound clients go on, late-bound
// ones are told what is missing.
TEST_F(LateFailures, NeedsTheTypeLibrary) {
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
  EXPECT_EQ(session->AddType(DepthAndLabel().get(), &added), S_OK);
  EXPECT_EQ(added, VARIANT_TRUE);
  ASSERT_EQ(component().Register(), S_OK);
  EXPECT_EQ(IdOf(session.get(), L"AddType"), 2);
}

}  // namespace
}  // namespace halyard::test
