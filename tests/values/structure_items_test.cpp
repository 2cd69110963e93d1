// Items of structure values: every fixed member type, in both classes of structure, and
// how members are selected.
#include <gtest/gtest.h>

#include "halyard/values/structure.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

// The two classes that hold fixed members. A general structure comes from a definition
// with a text at its end, which adds two bytes to the encoding.
enum class Kind { kGeneral, kFixed };

class StructureItems : public testing::TestWithParam<Kind> {
 protected:
  static bool IsFixed() { return GetParam() == Kind::kFixed; }

  static Ptr<IValueBase> Make(std::initializer_list<Member> members) {
    const auto definition = StructureDefinition(members);
    if (!IsFixed()) AddMember(definition, OLESTR("last"), SimpleDefinition(kString).get());
    Calculate(definition);
    const auto value = NewValue(definition);
    EXPECT_EQ(static_cast<bool>(value.As<ISimpleFixedStructure>()), IsFixed());
    return value;
  }

  // The encoding without the text at the end of a general structure.
  static std::string Block(const Ptr<IValueBase>& value) {
    std::string bytes = Encoded(value);
    return IsFixed() ? bytes : bytes.substr(0, bytes.size() - 6);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, StructureItems, testing::Values(Kind::kGeneral, Kind::kFixed),
                         [](const auto& kind) { return kind.param == Kind::kFixed ? "Fixed" : "General"; });

struct TypeRow {
  SHORT type;
  SHORT field_size;
  Variant put;
  const char* item;
  const char* bytes;
};

std::vector<TypeRow> TypeRows() {
  std::vector<TypeRow> rows;
  rows.push_back({kFixedString, 4, Text(OLESTR("AB")), "BSTR AB", "41 42 00 00"});
  rows.push_back({kFixedString, 4, Text(OLESTR("ABCDEF")), "BSTR ABCD", "41 42 43 44"});
  rows.push_back({kFixedString, 4, I4(12), "BSTR 12", "31 32 00 00"});
  rows.push_back({kByteArray, 3, Text(OLESTR("AB")), "BSTR ", "00 00 00"});
  rows.push_back({kChar, 0, Ui1(200), "UI1 200", "C8"});
  rows.push_back({kByte, 0, I4(255), "UI1 255", "FF"});
  rows.push_back({kShort, 0, Text(OLESTR("300")), "I2 300", "2C 01"});
  rows.push_back({kWord, 0, I2(-1), "I2 -1", "FF FF"});
  rows.push_back({kLong, 0, R8(2.5), "I4 2", "02 00 00 00"});
  rows.push_back({kDWord, 0, I4(-1), "I4 -1", "FF FF FF FF"});
  rows.push_back({kInt64, 0, I4(-2), "I4 -2", "FE FF FF FF"});
  rows.push_back({kShortReal, 0, R8(1.5), "R4 1.5", "00 00 C0 3F"});
  rows.push_back({kReal, 0, R4(1.5F), "R8 1.5", "00 00 00 00 00 00 F8 3F"});
  rows.push_back({kDate, 0, Date(-1.25), "DATE -1.25", "6B 07 1D 0C 00 06 00 00"});
  rows.push_back({kDate, 0, R8(2), "DATE 2", "6C 07 01 01 00 00 00 00"});
  return rows;
}

TEST_P(StructureItems, EachTypeIsStoredAndRead) {
  for (const TypeRow& row : TypeRows()) {
    const auto value = Make({{OLESTR("m"), row.type, row.field_size}});
    PutItem(value, OLESTR("m"), row.put);
    EXPECT_EQ(Item(value, OLESTR("m")), row.item);
    EXPECT_EQ(Block(value), row.bytes) << row.item;
  }
}

TEST_P(StructureItems, EachTypeIsStoredAndReadByPositionAsItIs) {
  for (const TypeRow& row : TypeRows()) {
    const auto source = Make({{OLESTR("m"), row.type, row.field_size}});
    PutItem(source, OLESTR("m"), row.put);
    const Variant own = Get(source, &IValueBase::get_Item, I4(0));
    EXPECT_EQ(Describe(own), row.item);
    const auto value = Make({{OLESTR("m"), row.type, row.field_size}});
    EXPECT_EQ(value->put_Item(I4(0).get(), own.get()), S_OK) << row.item;
    EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, I4(0))), row.item);
    EXPECT_EQ(Block(value), row.bytes) << row.item;
  }
}

TEST_P(StructureItems, FreshMembersAreZero) {
  const auto value = Make(
      {{OLESTR("n"), kLong}, {OLESTR("r"), kReal}, {OLESTR("d"), kDate}, {OLESTR("f"), kFixedString, 2}});
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 0");
  EXPECT_EQ(Item(value, OLESTR("r")), "R8 0");
  EXPECT_EQ(Item(value, OLESTR("d")), "DATE 0");
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR ");
  EXPECT_EQ(Block(value), ToHex(Bytes(22, 0)));
}

TEST_P(StructureItems, PuttingConvertsACopyOfTheArgument) {
  const auto value = Make({{OLESTR("d"), kDate}});
  const Variant number = R8(2);
  PutItem(value, OLESTR("d"), number);
  EXPECT_EQ(Describe(number), "R8 2");
}

TEST_P(StructureItems, DateIsPacked) {
  const auto value = Make({{OLESTR("d"), kDate}});
  PutItem(value, OLESTR("d"), Date(38061 + 45045.0 / 86400));
  EXPECT_EQ(Block(value), "D4 07 0F 03 1E 0C 00 2D");
}

TEST_P(StructureItems, Digits300OverflowAByteButFitAShort) {
  const auto value = Make({{OLESTR("b"), kByte}, {OLESTR("s"), kShort}});
  const Variant digits = Text(OLESTR("300"));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return TryPutItem(value, OLESTR("b"), digits); }));
  EXPECT_EQ(TryPutItem(value, OLESTR("s"), digits), S_OK);
  EXPECT_EQ(Block(value), "00 2C 01");
}

TEST_P(StructureItems, FailedConversionIsRaisedAndStoresNothing) {
  const auto value = Make({{OLESTR("n"), kLong}});
  PutItem(value, OLESTR("n"), I4(7));
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(value, OLESTR("n"), Text(OLESTR("abc"))); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(value, OLESTR("n"), Variant::Null()); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return TryPutItem(value, OLESTR("n"), R8(3e9)); }));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 7");
}

TEST_P(StructureItems, TakesTheContentOfASimpleValue) {
  const auto value = Make({{OLESTR("n"), kLong}});
  const auto source = SimpleValue(kReal);
  PutValue(source, R8(7));
  PutItem(value, OLESTR("n"), Variant(static_cast<IDispatch*>(source.get())));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 7");
}

TEST_P(StructureItems, NameAndPositionSelectTheSameMember) {
  const auto value = Make({{OLESTR("a"), kLong}, {OLESTR("b"), kShort}});
  PutItem(value, OLESTR("b"), I2(5));
  for (const Variant& index : {Text(OLESTR("b")), Text(OLESTR("B")), I4(1), I2(1), Ui1(1), R8(1.2)}) {
    EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, index)), "I2 5") << Describe(index);
    EXPECT_EQ(Get(value, &IValueBase::get_Name, index), "b") << Describe(index);
  }
  EXPECT_EQ(value->put_Item(I4(1).get(), I2(6).get()), S_OK);
  EXPECT_EQ(Item(value, OLESTR("b")), "I2 6");
}

TEST_P(StructureItems, NoMemberIsNullWithoutAName) {
  const auto value = Make({{OLESTR("a"), kLong}});
  PutItem(value, OLESTR("a"), I4(7));
  const std::string before = Encoded(value);
  for (const Variant& index :
       {Text(OLESTR("unknown")), Text(OLESTR("0")), I4(-1), I4(2), I4(65536), I4(2147483647)}) {
    EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, index)), "NULL") << Describe(index);
    EXPECT_EQ(Get(value, &IValueBase::get_Name, index), "") << Describe(index);
    EXPECT_EQ(value->put_Item(index.get(), I4(9).get()), S_OK) << Describe(index);
  }
  EXPECT_EQ(Encoded(value), before);
}

TEST_P(StructureItems, IndexThatDoesNotConvertIsRaised) {
  const auto value = Make({{OLESTR("a"), kLong}});
  const Variant index = Variant::Null();
  Variant content;
  Bstr name;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->get_Item(index.get(), content.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->put_Item(index.get(), I4(1).get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->get_Name(index.get(), name.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return value->get_Item(R8(3e9).get(), content.Out()); }));
}

TEST_P(StructureItems, Int64SpillsItsSignOverTheNextField) {
  const auto value = Make({{OLESTR("q"), kInt64}, {OLESTR("n"), kLong}});
  PutItem(value, OLESTR("n"), I4(5));
  PutItem(value, OLESTR("q"), I4(-2));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 -1");
  EXPECT_EQ(Block(value), "FE FF FF FF FF FF FF FF");
  PutItem(value, OLESTR("q"), I4(2));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 0");
  PutItem(value, OLESTR("n"), I4(5));
  EXPECT_EQ(Item(value, OLESTR("q")), "I4 2");
  EXPECT_EQ(Block(value), "02 00 00 00 05 00 00 00");
}

TEST_P(StructureItems, Int64AtTheEndOfTheBlockSpillsNowhere) {
  const auto value = Make({{OLESTR("n"), kLong}, {OLESTR("q"), kInt64}});
  PutItem(value, OLESTR("q"), I4(-2));
  EXPECT_EQ(Item(value, OLESTR("q")), "I4 -2");
  EXPECT_EQ(Block(value), "00 00 00 00 FE FF FF FF");
}

TEST_P(StructureItems, FullTextReadsOnIntoTheNextFields) {
  const auto value = Make({{OLESTR("f"), kFixedString, 4}, {OLESTR("n"), kLong}, {OLESTR("b"), kByte}});
  PutItem(value, OLESTR("f"), Text(OLESTR("ABCD")));
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR ABCD");
  PutItem(value, OLESTR("n"), I4(0x4645));
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR ABCDEF");
  PutItem(value, OLESTR("n"), I4(0x48474645));
  PutItem(value, OLESTR("b"), Ui1('I'));
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR ABCDEFGHI");
}

TEST_P(StructureItems, ShortTextClearsTheRestOfItsField) {
  const auto value = Make({{OLESTR("f"), kFixedString, 4}});
  PutItem(value, OLESTR("f"), Text(OLESTR("ABCD")));
  PutItem(value, OLESTR("f"), Text(OLESTR("X")));
  EXPECT_EQ(Block(value), "58 00 00 00");
}

TEST_P(StructureItems, FieldSmallerThanItsTypeStaysInsideTheBlock) {
  const auto foreign = NewForeign<ForeignDefinition>();  // a Long that claims one byte
  foreign->calculated_size.value = 1;
  const auto definition = StructureDefinition({{OLESTR("b"), kByte}});
  AddMember(definition, OLESTR("n"), foreign.get());
  if (!IsFixed()) AddMember(definition, OLESTR("last"), SimpleDefinition(kString).get());
  EXPECT_EQ(Calculate(definition), 2u);
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("b"), Ui1(1));
  EXPECT_EQ(TryPutItem(value, OLESTR("n"), I4(0x01020304)), S_OK);
  EXPECT_EQ(Block(value), "01 04");
}

TEST_P(StructureItems, ValueIsTheStructureItself) {
  const auto value = Make({{OLESTR("a"), kLong}});
  const Variant content = Get(value, &IValueBase::get_Value);
  ASSERT_EQ(content.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(content->pdispVal, value.get()));
}

TEST_P(StructureItems, HasNoOtherContent) {
  const auto value = Make({{OLESTR("a"), kLong}});
  PutItem(value, OLESTR("a"), I4(7));
  EXPECT_EQ(value->put_Value(I4(9).get()), S_OK);
  EXPECT_EQ(value->Add(I4(9).get()), S_OK);
  EXPECT_EQ(value->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(value->RemoveAll(), S_OK);
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 7");
  EXPECT_EQ(Get(value, &IValueBase::get_Count), IsFixed() ? 1 : 2);
  EXPECT_EQ(Get(value, &IValueBase::get_Type), 14);
  EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Structure");
}

TEST_P(StructureItems, IdIsThatOfTheDefinition) {
  const auto value = Make({{OLESTR("a"), kLong}});
  const auto definition = Get(value, &IValueBase::get_Info);
  EXPECT_EQ(Get(value, &IValueBase::get_Id), 0);
  EXPECT_EQ(definition->put_Id(-3), S_OK);
  EXPECT_EQ(Get(value, &IValueBase::get_Id), -3);
}

TEST_P(StructureItems, ConvertingAStructureFails) {
  const auto value = Make({{OLESTR("a"), kLong}});
  Variant converted;
  EXPECT_EQ(ConvertObject(value.get(), VT_I4, &converted), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(ConvertObject(value.get(), VT_BSTR, &converted), DISP_E_TYPEMISMATCH);
}

TEST_P(StructureItems, NullOutPointersAreRejected) {
  const auto value = Make({{OLESTR("a"), kLong}});
  const Variant index = I4(0);
  EXPECT_EQ(value->get_Item(index.get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Name(index.get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(value->Copy(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(value->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(value->get_PacketSize(nullptr), E_POINTER);
  ExpectNullBufferArgumentsRejected(value);
}

}  // namespace
}  // namespace halyard::test
