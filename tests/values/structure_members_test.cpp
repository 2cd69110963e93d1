// Members of a general structure that are objects of their own: texts, nested
// structures, members that can be null.
#include <gtest/gtest.h>

#include "halyard/values/structure.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> At(const Ptr<IValueBase>& value, const Variant& index) {
  return Get(value, &IValueBase::get_At, index);
}

Variant ObjectVariant(const Ptr<IValueBase>& object) {
  return Variant(static_cast<IDispatch*>(object.get()));
}

// a (Long) and s (String).
Ptr<IValueBase> Record() {
  return NewValue(StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}}));
}

// id (Short) and pos, a structure of x and y (Real).
Ptr<IValueBase> NestedRecord() {
  const auto position = StructureDefinition({{OLESTR("x"), kReal}, {OLESTR("y"), kReal}});
  const auto definition = StructureDefinition({{OLESTR("id"), kShort}});
  AddMember(definition, OLESTR("pos"), position.get());
  Calculate(definition);
  return NewValue(definition);
}

TEST(StructureValueMembers, FreshTextIsEmptyAndNotNull) {
  const auto value = Record();
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
  EXPECT_TRUE(At(value, Text(OLESTR("s"))));
  EXPECT_EQ(Encoded(value), "00 00 00 00 00 00");
}

TEST(StructureValueMembers, TextTakesWhatASimpleValueTakes) {
  const auto value = Record();
  PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR hi");
  PutItem(value, OLESTR("s"), I4(12));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR 12");
  EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, I4(1))), "BSTR 12");
}

TEST(StructureValueMembers, NullableNumberKeepsItsTypeAndDropsWhatDoesNotConvert) {
  const auto value = NewValue(StructureDefinition({{OLESTR("n"), kLong, 0, true}}));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 0");
  PutItem(value, OLESTR("n"), Text(OLESTR("7")));
  PutItem(value, OLESTR("n"), Text(OLESTR("x")));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 7");
  EXPECT_EQ(Encoded(value), "00 07 00 00 00");
}

TEST(StructureValueMembers, AtIsTheObjectOfAMember) {
  const auto value = Record();
  const auto text = At(value, Text(OLESTR("s")));
  ASSERT_TRUE(text);
  PutValue(text, Text(OLESTR("hi")));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR hi");
  EXPECT_TRUE(SameObject(At(value, I4(1)).get(), text.get()));
}

TEST(StructureValueMembers, AtOfAFixedMemberIsNoObject) {
  const auto value = Record();
  EXPECT_FALSE(At(value, Text(OLESTR("a"))));
  EXPECT_FALSE(At(value, I4(0)));
}

TEST(StructureValueMembers, AtOfNoMemberIsNoObject) {
  const auto value = Record();
  for (const Variant& index : {Text(OLESTR("unknown")), I4(-1), I4(2), I4(65536)}) {
    EXPECT_FALSE(At(value, index)) << Describe(index);
  }
  IValueBase* object = nullptr;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->get_At(Variant::Null().get(), &object); }));
  EXPECT_EQ(value->get_At(I4(0).get(), nullptr), E_POINTER);
}

TEST(StructureValueMembers, NullMemberShowsNoObject) {
  const auto value = Record();
  PutItem(value, OLESTR("s"), Variant::Null());
  EXPECT_EQ(Item(value, OLESTR("s")), "NULL");
  EXPECT_FALSE(At(value, Text(OLESTR("s"))));
  PutItem(value, OLESTR("s"), Variant::Null());
  EXPECT_EQ(Item(value, OLESTR("s")), "NULL");
}

TEST(StructureValueMembers, ObjectOfAMemberThatWasNullStaysAsItWas) {
  const auto value = Record();
  PutItem(value, OLESTR("s"), Text(OLESTR("one")));
  const auto held = At(value, Text(OLESTR("s")));
  PutItem(value, OLESTR("s"), Variant::Null());
  EXPECT_EQ(ValueOf(held), "BSTR one");
  PutItem(value, OLESTR("s"), Text(OLESTR("two")));
  EXPECT_EQ(ValueOf(held), "BSTR one");
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR two");
  EXPECT_FALSE(SameObject(held.get(), At(value, Text(OLESTR("s"))).get()));
}

TEST(StructureValueMembers, MemberThatWasNullBeginsAnew) {
  const auto value = NewValue(StructureDefinition({{OLESTR("n"), kLong, 0, true}}));
  PutItem(value, OLESTR("n"), I4(5));
  PutItem(value, OLESTR("n"), Variant::Null());
  // What does not convert leaves the number that a new object has.
  PutItem(value, OLESTR("n"), Text(OLESTR("five")));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 0");
}

TEST(StructureValueMembers, ContentBringsANullMemberBack) {
  const auto value = Record();
  PutItem(value, OLESTR("s"), Text(OLESTR("old")));
  PutItem(value, OLESTR("s"), Variant::Null());
  PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR hi");
}

TEST(StructureValueMembers, MemberIsRecreatedByItsDefinition) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->type.value = kEnumeration;
  foreign->created.value = NewForeign<ForeignValue>();
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(definition, OLESTR("m"), foreign.get());
  Calculate(definition);
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("m"), Variant::Null());
  foreign->created.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryPutItem(value, OLESTR("m"), I4(1)); }));
  EXPECT_EQ(Item(value, OLESTR("m")), "NULL");
}

TEST(StructureValueMembers, DispatchReplacesTheObjectItself) {
  const auto value = Record();
  const auto text = SimpleValue(kString);
  PutValue(text, Text(OLESTR("hi")));
  PutItem(value, OLESTR("s"), ObjectVariant(text));
  EXPECT_TRUE(SameObject(At(value, Text(OLESTR("s"))).get(), text.get()));
  PutValue(text, Text(OLESTR("you")));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR you");
  EXPECT_EQ(Encoded(value), "00 00 00 00 03 00 79 6F 75");
}

TEST(StructureValueMembers, DispatchOfSomethingElseIsNoFailure) {
  const auto value = Record();
  const auto definition = SimpleDefinition(kLong);
  const auto foreign = NewForeign<ForeignValue>();
  foreign->query_status = E_ABORT;
  for (const Variant& nothing : {Variant(static_cast<IDispatch*>(definition.get())), Tagged(VT_DISPATCH),
                                 Variant(static_cast<IDispatch*>(foreign.get()))}) {
    PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
    PutItem(value, OLESTR("s"), nothing);
    EXPECT_EQ(Item(value, OLESTR("s")), "NULL");
  }
}

TEST(StructureValueMembers, NestedStructureIsReachedAsAnObject) {
  const auto value = NestedRecord();
  const auto position = At(value, Text(OLESTR("pos")));
  ASSERT_TRUE(position.As<ISimpleFixedStructure>());
  PutItem(position, OLESTR("y"), R8(1.5));
  const Variant item = Get(value, &IValueBase::get_Item, Text(OLESTR("pos")));
  ASSERT_EQ(item.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(item->pdispVal, position.get()));
  EXPECT_EQ(Encoded(value), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 F8 3F");
}

TEST(StructureValueMembers, NestedStructureTakesNoContent) {
  const auto value = NestedRecord();
  const auto position = At(value, I4(1));
  PutItem(value, OLESTR("pos"), I4(9));
  EXPECT_TRUE(SameObject(At(value, I4(1)).get(), position.get()));
}

TEST(StructureValueMembers, NestedStructureCanBeNull) {
  const auto inner = StructureDefinition({{OLESTR("x"), kByte}});
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(definition, OLESTR("in"), inner.get(), true);
  Calculate(definition);
  const auto value = NewValue(definition);
  EXPECT_EQ(Encoded(value), "00 00");
  PutItem(value, OLESTR("in"), Variant::Null());
  EXPECT_EQ(Encoded(value), "01");
  PutItem(value, OLESTR("in"), I4(0));
  EXPECT_EQ(Encoded(value), "00 00");
}

TEST(StructureValueMembers, ObjectsAreReleasedWithTheStructure) {
  auto value = Record();
  auto foreign = NewForeign<ForeignValue>();
  const auto life = foreign->Life();
  PutItem(value, OLESTR("s"), ObjectVariant(foreign));
  foreign.Reset();
  EXPECT_FALSE(life.expired());
  value.Reset();
  EXPECT_TRUE(life.expired());
}

TEST(StructureValueMembers, ReplacedObjectsAreReleased) {
  const auto value = Record();
  for (const bool by_null : {true, false}) {
    auto foreign = NewForeign<ForeignValue>();
    const auto life = foreign->Life();
    PutItem(value, OLESTR("s"), ObjectVariant(foreign));
    foreign.Reset();
    PutItem(value, OLESTR("s"), by_null ? Variant::Null() : ObjectVariant(SimpleValue(kString)));
    EXPECT_TRUE(life.expired()) << by_null;
  }
}

TEST(StructureValueMembers, FailuresOfAMemberObjectAreRaised) {
  const auto value = Record();
  const auto foreign = NewForeign<ForeignValue>();
  PutItem(value, OLESTR("s"), ObjectVariant(foreign));
  Variant content;
  ULONG size = 0;
  foreign->get_value_status = E_ABORT;
  foreign->put_value_status = E_ABORT;
  foreign->packet_size.status = E_ABORT;
  foreign->copied.status = E_ABORT;
  Ptr<IValueBase> copy;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->get_Item(I4(1).get(), content.Out()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryPutItem(value, OLESTR("s"), I4(1)); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->Copy(copy.Out()); }));
}

}  // namespace
}  // namespace halyard::test
