// The array factory: arrays by type name, type code or element definition, and shells
// over the caller's memory.
#include "halyard/stream/orm_help.h"

#include <gtest/gtest.h>

#include "halyard/values/arrays/simple_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IOrmHelp> Help() { return CreateObject<IOrmHelp>(kOrmHelpClass); }

// The array that the factory makes; none when it answers null.
Ptr<IArray> Create(const Variant& element, const Ptr<IOrmHelp>& help = Help()) {
  const auto array = Get(help, &IOrmHelp::CreateArray, element);
  return array ? array.As<IArray>() : Ptr<IArray>();
}

Ptr<ISimpleFixedArray> CreateShell(const Variant& element, USHORT width, LONG count, unsigned char* block) {
  return Result<ISimpleFixedArray*>([&](ISimpleFixedArray** out) {
    return Help()->CreateShellArray(element.get(), width, count, block, out);
  });
}

Variant Definition(const Ptr<IValueDefBase>& definition) {
  return Variant(static_cast<IDispatch*>(definition.get()));
}

constexpr struct {
  SHORT code;
  const OLECHAR* name;
  USHORT width;
} kPrepared[] = {{kShortReal, OLESTR("ShortReal"), 4}, {kString, OLESTR("String"), 0},
                 {kChar, OLESTR("Char"), 1},           {kByte, OLESTR("Byte"), 1},
                 {kShort, OLESTR("Short"), 2},         {kWord, OLESTR("Word"), 2},
                 {kLong, OLESTR("Long"), 4},           {kDWord, OLESTR("DWord"), 4},
                 {kReal, OLESTR("Real"), 8},           {kDate, OLESTR("Date"), 8}};

TEST(OrmHelp, MakesArraysByNameAndCode) {
  const auto help = Help();
  for (const auto& row : kPrepared) {
    for (const Variant& element : {Text(row.name), I2(row.code), I4(row.code), R8(row.code)}) {
      const auto array = Create(element, help);
      ASSERT_TRUE(array) << row.code;
      EXPECT_EQ(ClassOf(array.get()), row.code == kString ? "StringArray" : "SimpleArray") << row.code;
      EXPECT_EQ(Get(array, &IValueBase::get_Id), 4700 + row.code);
      EXPECT_EQ(Count(array), 0);
      const auto info = Get(array, &IValueBase::get_Info).As<IArrayDef>();
      EXPECT_EQ(Get(info, &IArrayDef::get_DataType), row.code);
      EXPECT_EQ(Get(info, &IArrayDef::get_ElementCount), 0);
    }
  }
}

TEST(OrmHelp, PreparedDefinitionsAreNamedAfterTheirElements) {
  const auto help = Help();
  for (const auto& row : kPrepared) {
    const auto array = Create(I2(row.code), help);
    ASSERT_TRUE(array) << row.code;
    Bstr name;
    Check(Get(array, &IValueBase::get_Info)->get_Name(name.Out()));
    EXPECT_TRUE(name.View() == WideString(OLESTR("Array<")) + row.name + OLESTR(">")) << row.code;
  }
}

TEST(OrmHelp, NamesIgnoreLetterCase) {
  for (const OLECHAR* name : {OLESTR("Long"), OLESTR("LONG"), OLESTR("long"), OLESTR("lOnG")}) {
    const auto array = Create(Text(name));
    ASSERT_TRUE(array);
    EXPECT_EQ(Get(array, &IValueBase::get_Id), 4708);
  }
}

TEST(OrmHelp, ArraysHoldTheirElements) {
  const auto array = Create(Text(OLESTR("Word")));
  AddAll(array, {1, -1});
  EXPECT_EQ(Encoded(array), "02 00 00 00 01 00 FF FF");
  const auto texts = Create(Text(OLESTR("String")));
  Add(texts, Text(OLESTR("a")));
  EXPECT_EQ(Items(texts), "BSTR a");
}

TEST(OrmHelp, ArraysOfOneTypeShareTheirDefinition) {
  const auto help = Help();
  const auto first = Get(Create(I2(kLong), help), &IValueBase::get_Info);
  EXPECT_TRUE(SameObject(first.get(), Get(Create(I2(kLong), help), &IValueBase::get_Info).get()));
  EXPECT_FALSE(SameObject(first.get(), Get(Create(I2(kDWord), help), &IValueBase::get_Info).get()));
}

TEST(OrmHelp, ArraysOutliveTheFactory) {
  auto help = Help();
  const auto array = Create(I2(kLong), help);
  help.Reset();
  AddAll(array, {5});
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 4708);
  EXPECT_EQ(Items(array), "I4 5");
}

TEST(OrmHelp, TypesWithoutAPreparedDefinitionMakeNothing) {
  for (const SHORT code : {SHORT{0}, SHORT{2}, SHORT{3}, SHORT{10}, SHORT{14}, SHORT{15}, SHORT{16},
                           SHORT{17}, SHORT{18}, SHORT{99}, SHORT{-1}, SHORT{-32768}, SHORT{32767}}) {
    EXPECT_FALSE(Create(I2(code))) << code;
  }
  for (const OLECHAR* name :
       {OLESTR("Invalid"), OLESTR("FixedString"), OLESTR("ByteArray"), OLESTR("Int64"), OLESTR("Structure"),
        OLESTR("Unknown"), OLESTR("Array<Long>"), OLESTR("8"), OLESTR("")}) {
    EXPECT_FALSE(Create(Text(name)));
  }
}

TEST(OrmHelp, TextByReferenceIsConvertedToACode) {
  Bstr digits(OLESTR("8"));
  BSTR text = digits.get();
  const auto array = Create(ByReference(&text));
  ASSERT_TRUE(array);
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 4708);
}

TEST(OrmHelp, TypeThatDoesNotConvertIsRaised) {
  const auto help = Help();
  Ptr<IDispatch> array;
  Ptr<ISimpleFixedArray> shell;
  unsigned char block[8] = {};
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return help->CreateArray(Variant::Null().get(), array.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return help->CreateArray(I4(70000).get(), array.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] {
    return help->CreateShellArray(Variant::Null().get(), 1, 8, block, shell.Out());
  }));
}

TEST(OrmHelp, ElementDefinitionNamesAndNumbersTheArray) {
  const auto structure = StructureDefinition({{OLESTR("x"), kLong}}, 7, OLESTR("Point"));
  const auto array = Create(Definition(structure));
  ASSERT_TRUE(array);
  EXPECT_EQ(ClassOf(array.get()), "Array");
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 12007);
  const auto info = Get(array, &IValueBase::get_Info).As<IArrayDef>();
  EXPECT_EQ(Get(info, &IValueDefBase::get_Name), "Array<Point>");
  EXPECT_EQ(Get(info, &IArrayDef::get_ElementCount), 0);
  EXPECT_TRUE(SameObject(Get(info, &IArrayDef::get_ValueType).get(), structure.get()));
  const auto point = NewValue(structure);
  Add(array, Object(point));
  EXPECT_TRUE(SameObject(At(array, 0).get(), point.get()));
}

TEST(OrmHelp, ArrayIdWrapsInSixteenBits) {
  const auto structure = StructureDefinition({{OLESTR("x"), kLong}}, 30000);
  EXPECT_EQ(Get(Create(Definition(structure)), &IValueBase::get_Id), 30000 + 12000 - 65536);
}

TEST(OrmHelp, ElementDefinitionsOfOtherKinds) {
  EXPECT_EQ(ClassOf(Create(Definition(EnumerationDefinition(kChar, {}))).get()), "Array");
  EXPECT_EQ(ClassOf(Create(Definition(SimpleArrayDefinition(kLong))).get()), "Array");
  EXPECT_EQ(ClassOf(Create(Definition(SimpleDefinition(kLong))).get()), "SimpleArray");
  const auto texts = Create(Definition(SimpleDefinition(kString)));
  EXPECT_EQ(ClassOf(texts.get()), "StringArray");
  EXPECT_EQ(Get(texts, &IValueBase::get_Id), 12000);
  EXPECT_EQ(Get(Get(texts, &IValueBase::get_Info), &IValueDefBase::get_Name), "Array<>");
}

TEST(OrmHelp, ObjectThatIsNoDefinitionMakesNothing) {
  EXPECT_FALSE(Create(Variant(static_cast<IDispatch*>(nullptr))));
  EXPECT_FALSE(Create(Object(SimpleValue(kLong))));
  EXPECT_FALSE(Create(Variant(static_cast<IDispatch*>(Help().get()))));
}

TEST(OrmHelp, FailingElementDefinitionIsRaised) {
  const auto fails = [](auto&& set_status) {
    const auto element = NewForeign<ForeignDefinition>();
    set_status(*element, E_ABORT);
    Ptr<IDispatch> array;
    return Raises(E_ABORT, [&] { return Help()->CreateArray(Definition(element).get(), array.Out()); });
  };
  EXPECT_TRUE(fails([](ForeignDefinition& element, HRESULT status) { element.id.status = status; }));
  EXPECT_TRUE(fails([](ForeignDefinition& element, HRESULT status) { element.name_status = status; }));
  EXPECT_TRUE(fails([](ForeignDefinition& element, HRESULT status) { element.type.status = status; }));
  EXPECT_TRUE(fails([](ForeignDefinition& element, HRESULT status) { element.query_status = status; }));
}

TEST(OrmHelp, ShellsOfEveryElementType) {
  unsigned char block[64] = {};
  for (const auto& row : kPrepared) {
    if (row.code == kString) continue;
    for (const Variant& element : {Text(row.name), I2(row.code)}) {
      const auto shell = CreateShell(element, row.width, 4, block);
      ASSERT_TRUE(shell) << row.code;
      EXPECT_EQ(Get(shell, &IValueBase::get_Count), 4);
      EXPECT_EQ(PacketSize(shell), 4u * row.width);
    }
  }
  EXPECT_TRUE(CreateShell(I2(kInt64), 4, 4, block));
}

TEST(OrmHelp, ShellOfAHundredReals) {
  std::vector<unsigned char> block(800);
  const auto shell = CreateShell(Text(OLESTR("Real")), 8, 100, block.data());
  ASSERT_TRUE(shell);
  EXPECT_EQ(Get(shell, &ISimpleArray::get_GetDataPointer), reinterpret_cast<LONG_PTR>(block.data()));
  EXPECT_EQ(PacketSize(shell), 800u);
  EXPECT_FALSE(CreateShell(Text(OLESTR("Real")), 4, 100, block.data()));
}

TEST(OrmHelp, ShellOfAnotherWidthIsNotMade) {
  unsigned char block[64] = {};
  EXPECT_FALSE(CreateShell(I2(kShort), 1, 4, block));
  EXPECT_FALSE(CreateShell(I2(kShort), 4, 4, block));
  EXPECT_FALSE(CreateShell(I2(kShort), 0, 4, block));
  EXPECT_FALSE(CreateShell(I2(kInt64), 8, 4, block));
  EXPECT_FALSE(CreateShell(I2(kFixedString), 8, 4, block));
}

TEST(OrmHelp, ShellOfACompositeTypeFails) {
  unsigned char block[64] = {};
  Ptr<ISimpleFixedArray> shell;
  for (const SHORT code : {kStructure, kArray, kEnumeration}) {
    EXPECT_TRUE(Raises(E_POINTER,
                       [&] { return Help()->CreateShellArray(I2(code).get(), 4, 4, block, shell.Out()); }));
  }
}

TEST(OrmHelp, ShellCountIsCutToSixteenBits) {
  std::vector<unsigned char> block(65541);
  const auto shell = CreateShell(I2(kByte), 1, 65541, block.data());
  ASSERT_TRUE(shell);
  EXPECT_EQ(Get(shell, &IValueBase::get_Count), 5);
  EXPECT_EQ(PacketSize(shell), 5u);
}

TEST(OrmHelp, NullOutArgumentsAreRejected) {
  unsigned char block[8] = {};
  EXPECT_EQ(Help()->CreateArray(I2(kLong).get(), nullptr), E_POINTER);
  EXPECT_EQ(Help()->CreateShellArray(I2(kByte).get(), 1, 8, block, nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
