// How structure values get their definition, are copied and behave without one.
#include <gtest/gtest.h>

#include "halyard/values/structure.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> UntypedGeneral() { return CreateObject<IValueBase>(kStructureClass); }
Ptr<IValueBase> UntypedFixed() { return CreateObject<IValueBase>(kSimpleFixedStructureClass); }

Ptr<IStructureDef> TwoNumbers() { return StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kReal}}); }

// Whether the value has no definition: Info raises.
testing::AssertionResult HasNoDefinition(const Ptr<IValueBase>& value) {
  IValueDefBase* definition = nullptr;
  return Raises(E_POINTER, [&] { return value->get_Info(&definition); });
}

void ExpectNoMembers(const Ptr<IValueBase>& value) {
  ASSERT_TRUE(value);
  EXPECT_TRUE(HasNoDefinition(value));
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 0);
  for (const Variant& index : {I4(0), I4(-1), Text(OLESTR("a"))}) {
    EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, index)), "NULL");
    EXPECT_EQ(Get(value, &IValueBase::get_Name, index), "");
    EXPECT_EQ(value->put_Item(index.get(), I4(1).get()), S_OK);
  }
  EXPECT_EQ(PacketSize(value), 0u);
  EXPECT_EQ(WriteTo(value, 4).outcome, Moved(0));
  EXPECT_EQ(ReadFrom(value, "01 02"), Moved(0));
}

TEST(StructureTyping, UntypedStructuresHaveNoMembers) {
  ExpectNoMembers(UntypedGeneral());
  ExpectNoMembers(UntypedFixed());
  EXPECT_FALSE(Get(UntypedGeneral(), &IValueBase::get_At, I4(0)));
  for (const auto& untyped : {UntypedGeneral(), UntypedFixed()}) {
    EXPECT_EQ(Get(untyped, &IValueBase::get_Type), 14);
    SHORT id = 0;
    EXPECT_TRUE(Raises(E_POINTER, [&] { return untyped->get_Id(&id); }));
  }
}

TEST(StructureTyping, NullDefinitionIsInvalid) {
  EXPECT_EQ(UntypedGeneral()->put_Info(nullptr), E_INVALIDARG);
  EXPECT_EQ(UntypedFixed()->put_Info(nullptr), E_INVALIDARG);
  EXPECT_EQ(NewValue(TwoNumbers())->put_Info(nullptr), E_INVALIDARG);
}

TEST(StructureTyping, SecondDefinitionChangesNothing) {
  const auto other =
      StructureDefinition({{OLESTR("s"), kString}, {OLESTR("t"), kString}, {OLESTR("u"), kString}});
  const auto fixed_other = StructureDefinition({{OLESTR("x"), kByte}});
  for (const auto& untyped : {UntypedGeneral(), UntypedFixed()}) {
    const auto definition = TwoNumbers();
    EXPECT_EQ(untyped->put_Info(definition.get()), S_OK);
    PutItem(untyped, OLESTR("a"), I4(7));
    for (const auto& second : {other, fixed_other, definition}) {
      EXPECT_EQ(untyped->put_Info(second.get()), S_OK);
      EXPECT_TRUE(SameObject(Get(untyped, &IValueBase::get_Info).get(), definition.get()));
      EXPECT_EQ(Get(untyped, &IValueBase::get_Count), 2);
      EXPECT_EQ(Item(untyped, OLESTR("a")), "I4 7");
    }
  }
}

TEST(StructureTyping, SomethingElseThanAStructureDefinitionLeavesTheValueUntyped) {
  const auto simple = SimpleDefinition(kLong);
  const auto foreign = NewForeign<ForeignStructureDefinition>();
  for (IValueDefBase* definition :
       {static_cast<IValueDefBase*>(simple.get()), static_cast<IValueDefBase*>(foreign.get())}) {
    for (const auto& untyped : {UntypedGeneral(), UntypedFixed()}) {
      EXPECT_EQ(untyped->put_Info(definition), S_OK);
      ExpectNoMembers(untyped);
      EXPECT_EQ(untyped->put_Info(TwoNumbers().get()), S_OK);
      EXPECT_EQ(Get(untyped, &IValueBase::get_Count), 2);
    }
  }
}

TEST(StructureTyping, FailedQueryOfTheDefinitionIsNoFailure) {
  const auto foreign = NewForeign<ForeignStructureDefinition>();
  for (const HRESULT code : {E_ABORT, E_OUTOFMEMORY}) {
    foreign->query_status = code;
    for (const auto& untyped : {UntypedGeneral(), UntypedFixed()}) {
      EXPECT_EQ(untyped->put_Info(foreign.get()), S_OK);
      EXPECT_TRUE(HasNoDefinition(untyped));
    }
  }
}

TEST(StructureTyping, FixedStructureOfSizeZeroStaysUntyped) {
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  Calculate(definition);
  const auto value = NewValue(definition);
  ASSERT_TRUE(value.As<ISimpleFixedStructure>());
  ExpectNoMembers(value);
}

TEST(StructureTyping, MemberThatCannotBeMadeLeavesTheValueUntyped) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->type.value = kEnumeration;
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(definition, OLESTR("m"), foreign.get());
  Calculate(definition);
  for (const HRESULT code : {E_ABORT, E_OUTOFMEMORY}) {
    foreign->created.status = code;
    ExpectNoMembers(NewValue(definition));
  }
}

TEST(StructureTyping, MemberWithoutADefinitionLeavesTheValueUntyped) {
  const auto definition = TwoNumbers();
  AddMember(definition, OLESTR("m"), nullptr);
  const auto untyped = UntypedGeneral();
  EXPECT_EQ(untyped->put_Info(definition.get()), S_OK);
  ExpectNoMembers(untyped);
}

TEST(StructureTyping, DefinitionThatMakesNothingGivesANullMember) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->type.value = kEnumeration;
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(definition, OLESTR("m"), foreign.get());
  Calculate(definition);
  const auto value = NewValue(definition);
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 1);
  EXPECT_EQ(Item(value, OLESTR("m")), "NULL");
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_PacketSize(&size); }));
}

TEST(StructureTyping, AnyFixedLayoutFitsTheGeneralClass) {
  const auto value = UntypedGeneral();
  EXPECT_EQ(value->put_Info(TwoNumbers().get()), S_OK);
  PutItem(value, OLESTR("b"), R8(1.5));
  EXPECT_EQ(Encoded(value), "00 00 00 00 00 00 00 00 00 00 F8 3F");
}

TEST(StructureTyping, LayoutStaysWhatItWasWhenTheDefinitionChanges) {
  const auto definition = TwoNumbers();
  const auto value = NewValue(definition);
  AddMember(definition, OLESTR("c"), SimpleDefinition(kReal).get());
  Calculate(definition);
  PutItem(value, OLESTR("b"), R8(1.5));
  EXPECT_EQ(Item(value, OLESTR("b")), "R8 1.5");
  PutItem(value, OLESTR("c"), R8(2.5));  // a member beyond the block
  EXPECT_EQ(Item(value, OLESTR("c")), "NULL");
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 0");
  EXPECT_EQ(Item(value, OLESTR("b")), "R8 1.5");
  EXPECT_EQ(definition->RemoveAll(), S_OK);
  EXPECT_EQ(Item(value, OLESTR("b")), "NULL");
}

TEST(StructureTyping, FieldThatCameLaterIsCountedButHasNoBytes) {
  const auto fixed = TwoNumbers();
  const auto general = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}});
  const Ptr<IValueBase> values[] = {NewValue(fixed), NewValue(general)};
  for (const auto& definition : {fixed, general}) {
    AddMember(definition, OLESTR("c"), SimpleDefinition(kLong).get());
    Calculate(definition);
  }
  EXPECT_EQ(PacketSize(values[0]), 16u);
  EXPECT_EQ(PacketSize(values[1]), 10u);
  for (const auto& value : values) {
    EXPECT_EQ(WriteTo(value, 64).outcome, TooShort());
    EXPECT_EQ(ReadFrom(value, Bytes(64, 0)), TooShort());
  }
}

TEST(StructureTyping, ObjectMemberThatCameLaterIsNull) {
  for (const bool can_be_null : {false, true}) {
    const auto definition = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}});
    const auto value = NewValue(definition);
    AddMember(definition, OLESTR("t"), SimpleDefinition(kString).get(), can_be_null);
    Calculate(definition);
    PutItem(value, OLESTR("t"), Text(OLESTR("lost")));
    EXPECT_EQ(Item(value, OLESTR("t")), "NULL");
    if (can_be_null) {
      EXPECT_EQ(Encoded(value), "00 00 00 00 00 00 01");
      EXPECT_EQ(ReadFrom(value, "07 00 00 00 00 00 01"), Moved(7));
      EXPECT_EQ(ReadFrom(value, "07 00 00 00 00 00 00 00 00").status, E_POINTER);
    } else {
      ULONG size = 0;
      EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_PacketSize(&size); }));
      EXPECT_EQ(WriteTo(value, 64).outcome.status, E_POINTER);
      EXPECT_EQ(ReadFrom(value, Bytes(64, 0)).status, E_POINTER);
    }
  }
}

TEST(StructureTyping, ValueKeepsItsDefinitionAlive) {
  auto foreign = NewForeign<ForeignDefinition>();
  const auto life = foreign->Life();
  auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  AddMember(definition, OLESTR("m"), foreign.get());
  foreign.Reset();
  Calculate(definition);
  auto value = NewValue(definition);
  definition.Reset();
  EXPECT_FALSE(life.expired());
  EXPECT_EQ(Item(value, OLESTR("m")), "I4 0");
  value.Reset();
  EXPECT_TRUE(life.expired());
}

TEST(StructureCopy, FixedStructureIsCopiedWithItsBlock) {
  const auto value = NewValue(TwoNumbers());
  PutItem(value, OLESTR("a"), I4(7));
  const auto copy = Get(value, &IValueBase::Copy);
  EXPECT_TRUE(copy.As<ISimpleFixedStructure>());
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), Get(value, &IValueBase::get_Info).get()));
  EXPECT_EQ(Encoded(copy), Encoded(value));
  PutItem(copy, OLESTR("a"), I4(9));
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 7");
}

TEST(StructureCopy, GeneralStructureIsCopiedDeeply) {
  const auto inner = StructureDefinition({{OLESTR("x"), kShort}});
  const auto definition = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}});
  AddMember(definition, OLESTR("in"), inner.get());
  Calculate(definition);
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("a"), I4(5));
  PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
  const auto copy = Get(value, &IValueBase::Copy);
  EXPECT_EQ(Encoded(copy), "05 00 00 00 02 00 68 69 00 00");
  PutItem(copy, OLESTR("a"), I4(6));
  PutItem(copy, OLESTR("s"), Text(OLESTR("you")));
  PutItem(Get(copy, &IValueBase::get_At, Text(OLESTR("in"))), OLESTR("x"), I2(1));
  EXPECT_EQ(Encoded(value), "05 00 00 00 02 00 68 69 00 00");
  EXPECT_EQ(Encoded(copy), "06 00 00 00 03 00 79 6F 75 01 00");
}

TEST(StructureCopy, NullMembersCannotBeCopied) {
  const auto value = NewValue(StructureDefinition({{OLESTR("s"), kString, 0, true}}));
  PutItem(value, OLESTR("s"), Variant::Null());
  Ptr<IValueBase> copy;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->Copy(copy.Out()); }));
}

// Only a client that makes the value itself gets this class for such a definition.
TEST(SimpleFixedStructure, MemberWithoutAFieldIsAnEmptyText) {
  const auto value = UntypedFixed();
  const auto definition =
      StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}, {OLESTR("b"), kByte}});
  EXPECT_EQ(value->put_Info(definition.get()), S_OK);
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
  PutItem(value, OLESTR("s"), Text(OLESTR("lost")));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
  EXPECT_EQ(Get(value, &IValueBase::get_Name, I4(1)), "s");
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 3);
  PutItem(value, OLESTR("a"), I4(5));
  PutItem(value, OLESTR("b"), Ui1(7));
  EXPECT_EQ(Encoded(value), "05 00 00 00 07");
}

TEST(SimpleFixedStructure, AtIsNotImplemented) {
  const auto value = NewValue(TwoNumbers());
  Ptr<IValueBase> object;
  EXPECT_EQ(value->get_At(I4(0).get(), object.Out()), E_NOTIMPL);
  EXPECT_EQ(value->get_At(Text(OLESTR("unknown")).get(), object.Out()), E_NOTIMPL);
  EXPECT_EQ(value->get_At(I4(0).get(), nullptr), E_POINTER);
}

TEST(SimpleFixedStructure, TakesExactlyItsSize) {
  const auto value = NewValue(TwoNumbers());
  EXPECT_EQ(PacketSize(value), 12u);
  Bytes bytes = Hex("07 00 00 00 00 00 00 00 00 00 F8 3F 01 02 03 04 05 06 07 08");
  EXPECT_EQ(ReadFrom(value, bytes), Moved(12));
  EXPECT_EQ(Item(value, OLESTR("b")), "R8 1.5");
  EXPECT_EQ(Encoded(value), "07 00 00 00 00 00 00 00 00 00 F8 3F");
}

TEST(SimpleFixedStructure, ElevenBytesAreTooFewForTwelve) {
  const auto value = NewValue(TwoNumbers());
  EXPECT_EQ(ReadFrom(value, Bytes(11, 1)), TooShort());
  EXPECT_EQ(Encoded(value), ToHex(Bytes(12, 0)));
}

TEST(SimpleFixedStructure, ShortBuffersAreLeftAlone) {
  const auto value = NewValue(TwoNumbers());
  ExpectShortWrites(value, ToHex(Bytes(12, 0)), {12});
  ExpectShortReads(ToHex(Bytes(12, 0)), [] { return NewValue(TwoNumbers()); });
}

TEST(SimpleFixedStructure, SizeBeyondSixteenBitsStaysInsideTheBlock) {
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  for (const OLECHAR* name : {OLESTR("a"), OLESTR("b")}) {
    AddMember(definition, name, SimpleDefinition(kFixedString, 40000).get());
  }
  EXPECT_EQ(Calculate(definition), 14464u);
  const auto value = NewValue(definition);
  EXPECT_EQ(PacketSize(value), 14464u);
  for (const OLECHAR* name : {OLESTR("a"), OLESTR("b")}) {
    PutItem(value, name, Text(OLESTR("text")));  // neither field lies in the block
    EXPECT_EQ(Item(value, name), "NULL");
  }
  EXPECT_EQ(WriteTo(value, 14464).outcome, Moved(14464));
}

}  // namespace
}  // namespace halyard::test
