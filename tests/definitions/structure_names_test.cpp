// Member look-up by name while the definition is edited: every edit counts for the next
// look-up, in the definition and in values that live.
#include <gtest/gtest.h>

#include <string>

#include "halyard/definitions/structure_def.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/get.h"

namespace halyard::test {
namespace {

LONG IndexOf(const Ptr<IStructureDef>& structure, WideView name) {
  return Get(structure, &IStructureDef::MemberIndex, Bstr(name).get());
}

class StructureNames : public testing::Test {
 protected:
  void SetUp() override {
    definition_ = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kLong}, {OLESTR("B"), kLong}});
    Calculate(definition_);
    value_ = NewValue(definition_);
    for (LONG i = 0; i < 3; ++i) ASSERT_EQ(value_->put_Item(I4(i).get(), I4(10 + i).get()), S_OK);
  }

  std::string Item(const OLECHAR* name) const {
    return Describe(Get(value_, &IValueBase::get_Item, Text(name)));
  }

  Ptr<IStructureDef> definition_;
  Ptr<IValueBase> value_;
};

TEST_F(StructureNames, TheFirstOfEqualNamesIsFound) {
  EXPECT_EQ(Item(OLESTR("b")), "I4 11");
  EXPECT_EQ(Item(OLESTR("B")), "I4 11");
  EXPECT_EQ(Item(OLESTR("A")), "I4 10");
  EXPECT_EQ(Item(OLESTR("c")), "NULL");
}

TEST_F(StructureNames, ANewNameIsFoundAndTheOldOneIsNot) {
  EXPECT_EQ(Item(OLESTR("a")), "I4 10");
  ASSERT_EQ(definition_->put_MemberName(0, Bstr(OLESTR("c")).get()), S_OK);
  EXPECT_EQ(Item(OLESTR("a")), "NULL");
  EXPECT_EQ(Item(OLESTR("C")), "I4 10");
  ASSERT_EQ(definition_->put_MemberName(1, Bstr(OLESTR("a")).get()), S_OK);
  EXPECT_EQ(Item(OLESTR("a")), "I4 11");
  EXPECT_EQ(Item(OLESTR("b")), "I4 12");
}

TEST_F(StructureNames, AMemberThatLosesItsNameIsTheOneWithout) {
  EXPECT_EQ(IndexOf(definition_, {}), -1);
  ASSERT_EQ(definition_->put_MemberName(1, nullptr), S_OK);
  EXPECT_EQ(IndexOf(definition_, {}), 1);
  EXPECT_EQ(IndexOf(definition_, OLESTR("b")), 2);
}

TEST_F(StructureNames, RemovedMembersAreNotFound) {
  EXPECT_EQ(IndexOf(definition_, OLESTR("b")), 1);
  ASSERT_EQ(definition_->Remove(Text(OLESTR("a")).get()), S_OK);
  EXPECT_EQ(IndexOf(definition_, OLESTR("a")), -1);
  EXPECT_EQ(IndexOf(definition_, OLESTR("b")), 0);
  ASSERT_EQ(definition_->RemoveAll(), S_OK);
  EXPECT_EQ(IndexOf(definition_, OLESTR("b")), -1);
  EXPECT_EQ(Item(OLESTR("b")), "NULL");
}

TEST_F(StructureNames, AddedMembersAreFoundBehindEarlierOnes) {
  EXPECT_EQ(IndexOf(definition_, OLESTR("c")), -1);
  AddMember(definition_, OLESTR("c"), SimpleDefinition(kLong).get());
  AddMember(definition_, OLESTR("a"), SimpleDefinition(kLong).get());
  EXPECT_EQ(IndexOf(definition_, OLESTR("c")), 3);
  EXPECT_EQ(IndexOf(definition_, OLESTR("a")), 0);
  ASSERT_EQ(definition_->RemoveAll(), S_OK);
  AddMember(definition_, OLESTR("b"), SimpleDefinition(kLong).get());
  EXPECT_EQ(IndexOf(definition_, OLESTR("b")), 0);
  EXPECT_EQ(IndexOf(definition_, OLESTR("a")), -1);
}

TEST_F(StructureNames, ReadingOtherMembersCounts) {
  const auto other = StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kLong}});
  EXPECT_EQ(IndexOf(definition_, OLESTR("a")), 0);
  const Bytes bytes = Hex(Encoded(other));
  ASSERT_EQ(ReadFrom(definition_, bytes), Moved(static_cast<ULONG>(bytes.size())));
  EXPECT_EQ(IndexOf(definition_, OLESTR("a")), -1);
  EXPECT_EQ(IndexOf(definition_, OLESTR("Y")), 1);
  EXPECT_EQ(Item(OLESTR("x")), "I4 10");
}

}  // namespace
}  // namespace halyard::test
