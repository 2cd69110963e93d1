// Objects of the component where nothing is registered: what they make through the system
// is missing, and they say so.
#include <gtest/gtest.h>

#include "tests/server/support/component.h"
#include "tests/support/encoding.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// A call that failed behind the unit's own words.
constexpr Outcome kFailedInTheBody = {E_POINTER, VARIANT_TRUE, kUntouched};

class Unregistered : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(component_.Register(), S_OK);
    ASSERT_EQ(component_.Unregister(), S_OK);
  }

  template <class I>
  [[nodiscard]] Ptr<I> Make(REFCLSID clsid) const {
    Ptr<I> object;
    EXPECT_EQ(component_.Factory(clsid)->CreateInstance(nullptr, IidOf<I>, object.OutVoid()), S_OK);
    return object;
  }

 private:
  Component component_;
};

TEST_F(Unregistered, UnitMakesNoCollection) {
  const auto unit = Make<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(Make<IValueBase>(kSimpleValueClass).get()), S_OK);
  EXPECT_EQ(ReadFrom(unit, "66 00 10 00 03 00"), kFailedInTheBody);
  EXPECT_FALSE(Get(unit, &IUnit::get_Value));
}

TEST_F(Unregistered, UnitMakesNoDefinition) {
  const auto unit = Make<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Info(Make<IValueDefBase>(kStructureInfoClass).get()), S_OK);
  EXPECT_EQ(ReadFrom(unit, "65 00 0E 00 03 00 00 00 00 00 00 00"), kFailedInTheBody);
  EXPECT_FALSE(Get(unit, &IUnit::get_Info));
}

TEST_F(Unregistered, FileHasNoUnit) {
  const TempFile disk(FileOf({}));
  const auto file = Make<IOrmFile>(kOrmFileClass);
  EXPECT_FALSE(Get(file, &IOrmFile::get_Session));
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(file->OpenForRead(disk.name(), VARIANT_TRUE, &result), E_POINTER);
  EXPECT_EQ(result, VARIANT_FALSE);
  Ptr<IUnit> unit;
  EXPECT_EQ(file->ReadUnit(unit.Out()), E_POINTER);
  const auto value = Make<IValueBase>(kSimpleValueClass);
  EXPECT_EQ(file->WriteData(value.get(), &result), E_POINTER);
  EXPECT_EQ(file->Close(), S_OK);
}

TEST_F(Unregistered, FactoryOfArraysIsNotMade) {
  const Component component;
  void* result = this;
  EXPECT_EQ(component.Factory(kOrmHelpClass)->CreateInstance(nullptr, IidOf<IOrmHelp>, &result), E_POINTER);
  EXPECT_EQ(result, nullptr);
}

}  // namespace
}  // namespace halyard::test
