// The class table: what can be created, and in which order it is registered.
#include "object/class_table.h"

#include <gtest/gtest.h>

#include <string>

#include "halyard/halyard.h"

namespace halyard::test {
namespace {

constexpr struct {
  const char* name;
  CLSID clsid;
  int registry_script;
  IID main_interface;
} kExpected[] = {
    {"ArrayInfo", kArrayInfoClass, 102, IidOf<IArrayDef>},
    {"SimpleValueInfo", kSimpleValueInfoClass, 103, IidOf<ISimpleValueInfo>},
    {"EnumerationInfo", kEnumerationInfoClass, 104, IidOf<IEnumerationInfo>},
    {"StructureInfo", kStructureInfoClass, 105, IidOf<IStructureInfo>},
    {"StringArray", kStringArrayClass, 106, IidOf<IStringArray>},
    {"SimpleFixedArray", kSimpleFixedArrayClass, 107, IidOf<ISimpleFixedArray>},
    {"SimpleArray", kSimpleArrayClass, 108, IidOf<ISimpleArray>},
    {"Array", kArrayClass, 101, IidOf<IArrayImpl>},
    {"SimpleValue", kSimpleValueClass, 110, IidOf<ISimpleValue>},
    {"Enumeration", kEnumerationClass, 111, IidOf<IEnumeration>},
    {"SimpleFixedStructure", kSimpleFixedStructureClass, 112, IidOf<ISimpleFixedStructure>},
    {"Structure", kStructureClass, 113, IidOf<IStructure>},
    {"Collection", kCollectionClass, 114, IidOf<ICollectionImpl>},
    {"Unit", kUnitClass, 116, IidOf<IUnit>},
    {"OrmSession", kOrmSessionClass, 117, IidOf<IOrmSession>},
    {"OrmFile", kOrmFileClass, 118, IidOf<IOrmFile>},
    {"OrmHelp", kOrmHelpClass, 119, IidOf<IOrmHelp>},
};

TEST(ClassTable, HasEveryClassInTheOrderOfRegistration) {
  const auto table = ClassTable();
  ASSERT_EQ(table.size(), std::size(kExpected));
  for (std::size_t i = 0; i != table.size(); ++i) {
    EXPECT_EQ(std::string(table[i].name), kExpected[i].name);
    EXPECT_TRUE(table[i].clsid == kExpected[i].clsid) << table[i].name;
    EXPECT_EQ(table[i].registry_script, kExpected[i].registry_script) << table[i].name;
  }
}

TEST(ClassTable, FindsEveryRowAndNoOther) {
  for (const ClassRow& row : ClassTable()) EXPECT_EQ(FindClass(row.clsid), &row) << row.name;
  EXPECT_EQ(FindClass(IidOf<IUnknown>), nullptr);
  EXPECT_EQ(FindClass(CLSID{}), nullptr);
}

// The factory prepares definitions by activation, which needs registered classes where the
// system makes the objects; here only what makes itself is made.
TEST(ClassTable, MakesTheClassOfEachRow) {
  for (const auto& row : kExpected) {
    if (row.clsid == kOrmHelpClass || row.clsid == kOrmFileClass) continue;
    const Ptr<IUnknown> object = Construct(row.clsid);
    ASSERT_TRUE(object) << row.name;
    Ptr<IUnknown> main;
    EXPECT_EQ(object->QueryInterface(row.main_interface, main.OutVoid()), S_OK) << row.name;
    EXPECT_TRUE(main) << row.name;
  }
}

TEST(ClassTable, RaisesForAClassThatIsNotThere) {
  try {
    static_cast<void>(Construct(IidOf<IUnknown>));
    ADD_FAILURE() << "an unknown class was made";
  } catch (const Error& error) {
    EXPECT_EQ(error.code(), REGDB_E_CLASSNOTREG);
  }
}

}  // namespace
}  // namespace halyard::test
