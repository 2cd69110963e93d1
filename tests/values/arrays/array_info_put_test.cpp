// How an array of values takes its definition, and what failing elements and
// definitions do to it.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_composites.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArray> Untyped() { return CreateObject<IArrayImpl>(kArrayClass); }

Ptr<IStructureDef> Point(SHORT id = 0) { return StructureDefinition({{OLESTR("x"), kLong}}, id); }

// A structure definition of somebody else that makes `element`.
Ptr<ForeignDefinition> Maker(const Ptr<IValueBase>& element) {
  const auto definition = NewForeign<ForeignDefinition>();
  definition->type.value = kStructure;
  definition->id.value = 50;
  definition->created.value = element;
  return definition;
}

TEST(ArrayDefinitionOfAnArray, IsTakenOnce) {
  const auto definition = ArrayDefinition(Point(), 2);
  const auto array = NewArray(definition);
  EXPECT_EQ(array->put_Info(ArrayDefinition(Point(), 5).get()), S_OK);
  EXPECT_EQ(array->put_Info(SimpleDefinition(kLong).get()), S_OK);
  EXPECT_EQ(Count(array), 2);
  EXPECT_TRUE(SameObject(Get(array, &IValueBase::get_Info).get(), definition.get()));
}

TEST(ArrayDefinitionOfAnArray, NullIsInvalid) {
  EXPECT_EQ(Untyped()->put_Info(nullptr), E_INVALIDARG);
  const auto typed = NewArray(ArrayDefinition(Point(), 2));
  EXPECT_EQ(typed->put_Info(nullptr), E_INVALIDARG);
  EXPECT_EQ(Count(typed), 2);
}

TEST(ArrayDefinitionOfAnArray, UntypedArrayHasNone) {
  const auto array = Untyped();
  Ptr<IValueDefBase> info;
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Info(info.Out()); }));
}

TEST(ArrayDefinitionOfAnArray, CallsThatNeedItFailWithoutIt) {
  const auto array = Untyped();
  SHORT id = 0;
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Id(&id); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Add(Object(NewValue(Point())).get()); }));
  unsigned char bytes[16] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->ReadFromBuffer(bytes, 16, &size, &result); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->WriteToBuffer(bytes, 16, &size, &result); }));
}

TEST(ArrayDefinitionOfAnArray, ObjectThatIsNoArrayDefinitionIsNotKept) {
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(SimpleDefinition(kLong).get()); }));
  Ptr<IValueDefBase> info;
  EXPECT_EQ(array->get_Info(info.Out()), E_POINTER);
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(array->put_Info(ArrayDefinition(Point(), 2).get()), S_OK);
  EXPECT_EQ(Count(array), 2);
}

TEST(ArrayDefinitionOfAnArray, WithoutAnElementDefinitionAFixedArrayFails) {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  EXPECT_EQ(Untyped()->put_Info(definition.get()), S_OK);
  EXPECT_EQ(definition->put_ElementCount(2), S_OK);
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->put_Info(definition.get()); }));
  // It is typed all the same: only its elements are missing.
  EXPECT_EQ(Count(array), 2);
  EXPECT_TRUE(SameObject(Get(array, &IValueBase::get_Info).get(), definition.get()));
  EXPECT_FALSE(At(array, 0));
  EXPECT_FALSE(At(array, 1));
}

TEST(ArrayDefinitionOfAnArray, DefinitionOfSomebodyElseIsInvalid) {
  const auto definition = NewForeign<ForeignArrayDefinition>();
  definition->count.value = 3;
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(definition.get()); }));
  ULONG size = 0;
  EXPECT_EQ(array->get_PacketSize(&size), E_POINTER);
  EXPECT_EQ(array->Add(Object(NewValue(Point())).get()), E_POINTER);
  EXPECT_EQ(WriteTo(array, 64).outcome.status, E_POINTER);
  EXPECT_EQ(ReadFrom(array, "02 00 00 00 01 02 03 04").status, E_POINTER);
  EXPECT_EQ(Count(array), 0);
}

TEST(ArrayDefinitionOfAnArray, SimpleElementDefinitionMakesValueObjects) {
  const auto array = Untyped();
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kLong).get()), S_OK);
  AddAll(array, {7, -1});
  Add(array, Text(OLESTR("12")));
  EXPECT_EQ(Items(array), "I4 7, I4 -1, I4 12");
  EXPECT_EQ(ClassOf(At(array, 0).get()), "SimpleValue");
  EXPECT_EQ(Encoded(array), "03 00 00 00 07 00 00 00 FF FF FF FF 0C 00 00 00");
}

TEST(ArrayOfForeignElements, FailureOfTheMakerIsRaised) {
  const auto maker = Maker(nullptr);
  const auto array = NewArray(ArrayDefinition(maker));
  maker->created.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Add(Object(NewValue(Point())).get()); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(ArrayOfForeignElements, FailingPutOfTheElementAppendsNothing) {
  const auto element = NewForeign<ForeignValue>();
  element->put_value_status = E_ABORT;
  const auto array = NewArray(ArrayDefinition(Maker(element)));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Add(Object(NewValue(Point())).get()); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(ArrayOfForeignElements, FailingTypeOrIdIsRaised) {
  const auto array = NewArray(ArrayDefinition(Point()));
  const auto element = NewForeign<ForeignValue>();
  element->id.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Add(Object(element).get()); }));
  element->id.status = S_OK;
  element->type.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Add(Object(element).get()); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(ArrayOfForeignElements, TheirFailuresAreRaised) {
  const auto element = NewForeign<ForeignValue>();
  element->type.value = kStructure;
  const auto array = NewArray(ArrayDefinition(StructureDefinition({{OLESTR("s"), kString}})));
  Add(array, Object(element));
  ASSERT_TRUE(SameObject(At(array, 0).get(), element.get()));
  element->packet_size.status = E_ABORT;
  element->copied.status = E_ABORT;
  element->write.status = E_ABORT;
  element->read.status = E_ABORT;
  element->get_value_status = E_ABORT;
  element->put_value_status = E_ABORT;
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_TRUE;
  unsigned char bytes[8] = {1};
  Variant content;
  Ptr<IValueBase> copy;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->get_PacketSize(&count); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Copy(copy.Out()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->WriteToBuffer(bytes, 8, &count, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  bytes[0] = 1;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->ReadFromBuffer(bytes, 8, &count, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->get_Item(I4(0).get(), content.Out()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->put_Item(I4(0).get(), I4(1).get()); }));
}

TEST(ArrayOfForeignElements, CountsThatLieNeverLeaveTheBuffer) {
  const auto element = NewForeign<ForeignValue>();
  element->type.value = kStructure;
  element->read = {VARIANT_TRUE, 0x7FFFFFFF, S_OK};
  element->write = {VARIANT_TRUE, 0x7FFFFFFF, S_OK};
  const auto array = NewArray(ArrayDefinition(Point()));
  for (int i = 0; i < 3; ++i) Add(array, Object(element));
  Add(array, Object(NewValue(Point())));
  const Outcome lied{E_UNEXPECTED, VARIANT_FALSE, kUntouched};
  EXPECT_EQ(WriteTo(array, 32).outcome, lied);
  EXPECT_EQ(ReadFrom(array, "04 00 00 00 01 02 03 04 05 06 07 08"), lied);
  EXPECT_EQ(Count(array), 4);
}

}  // namespace
}  // namespace halyard::test
