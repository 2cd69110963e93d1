// Walks of a script over members and elements, by `For Each` and `Enumerator`.
#include <gtest/gtest.h>

#include "tests/server/support/class_factory_traits.h"
#include "tests/server/support/component.h"
#include "tests/server/support/late.h"
#include "tests/server/support/late_samples.h"

namespace halyard::test {
namespace {

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

using LateWalks = RegisteredComponent;

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

TEST_F(LateWalks, WalksOverMembers) {
  const auto record = NewValue(DepthAndLabel());
  PutItem(record, L"Depth", R8(2.5));
  PutItem(record, L"Label", Text(L"deep"));
  EXPECT_EQ(Walked(record.get()), (std::vector<std::string>{"R8 2.5", "BSTR deep"}));
}

TEST_F(LateWalks, WalksOverMemberDefinitions) {
  EXPECT_EQ(Walked(DepthAndLabel().get()), (std::vector<std::string>{"DISPATCH", "DISPATCH"}));
}

TEST_F(LateWalks, WalksOverElementNames) {
  const auto colours = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  for (const OLECHAR* name : {L"Red", L"Blue"}) {
    VARIANT_BOOL added = VARIANT_FALSE;
    ASSERT_EQ(colours->AddMember(Bstr(name).get(), 1, &added), S_OK);
  }
  EXPECT_EQ(Walked(colours.get()), (std::vector<std::string>{"BSTR Red", "BSTR Blue"}));
}

TEST_F(LateWalks, WalksOverElements) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const auto array = QueryFor<IValueBase>(Get(help, &IOrmHelp::CreateArray, Text(L"Long")).get());
  ASSERT_TRUE(array);
  for (const LONG number : {3, 5, 8}) ASSERT_EQ(array->Add(I4(number).get()), S_OK);
  EXPECT_EQ(Walked(array.get()), (std::vector<std::string>{"I4 3", "I4 5", "I4 8"}));
}

TEST_F(LateWalks, HasNothingToWalkOverInASession) {
  EXPECT_EQ(Invoke(CreateObject<IOrmSession>(kOrmSessionClass).get(), DISPID_NEWENUM, kCall).status,
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateWalks, SkipsResetsAndClonesAWalk) {
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

// A slot that was given an object without a value is empty, which a walk cannot pass.
TEST_F(LateWalks, FailureOnTheWayLeavesNothingBehind) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const auto point = DepthAndLabel();
  const auto array = QueryFor<IValueBase>(
      Get(help, &IOrmHelp::CreateArray, Variant(static_cast<IDispatch*>(point.get())).get()).get());
  ASSERT_TRUE(array);
  for (int i = 0; i < 2; ++i)
    ASSERT_EQ(array->Add(Variant(static_cast<IDispatch*>(NewValue(point).get())).get()), S_OK);
  ASSERT_EQ(array->put_Item(I4(1).get(), Variant(static_cast<IDispatch*>(point.get())).get()), S_OK);
  const LateOutcome outcome = Invoke(array.get(), DISPID_NEWENUM, kCall);
  const auto items = QueryFor<IEnumVARIANT>(outcome.result->punkVal);
  VARIANT both[2] = {};
  ULONG fetched = 7;
  EXPECT_EQ(items->Next(2, both, &fetched), E_POINTER);
  EXPECT_EQ(fetched, 0u);
  EXPECT_EQ(both[0].vt, VT_EMPTY);
  Variant item;
  EXPECT_EQ(items->Next(1, item.Out(), nullptr), S_OK);
  EXPECT_EQ(items->Next(1, item.Out(), nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
