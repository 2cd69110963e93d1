// Objects that hold themselves, at once or by way of others: every walk over them ends.
//
// Only the client that tied such a knot can undo it; the tests do, and nothing is left.
#include <gtest/gtest.h>

#include "tests/misuse/subjects.h"
#include "tests/support/encoding.h"
#include "tests/support/live_objects.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr LONG kWithin = 256;  // objects in one another that every walk follows
constexpr LONG kBeyond = 257;  // more than any walk follows
constexpr std::size_t kRoom = 100000;

// What a walk answers that would not end.
constexpr HRESULT kWithoutEnd = E_INVALIDARG;

// Whether a call that fills or takes up a buffer failed as such a walk does, or reports that
// there is no room.
testing::AssertionResult EndsCleanly(HRESULT status, VARIANT_BOOL result) {
  if (status == kWithoutEnd || (status == S_OK && result == VARIANT_FALSE))
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << StatusText(status) << ", result " << result;
}

Bytes Ones(int words) {
  Bytes bytes;
  for (int i = 0; i < words; ++i) bytes.insert(bytes.end(), {1, 0, 0, 0});
  return bytes;
}

// Every walk over a value that holds itself. To tell the size may be no walk.
void ExpectWalksOfValueEnd(const Ptr<IValueBase>& value, HRESULT of_size = kWithoutEnd) {
  ULONG size = 0;
  Ptr<IValueBase> copy;
  EXPECT_EQ(StatusText(value->get_PacketSize(&size)), StatusText(of_size));
  EXPECT_EQ(StatusText(value->Copy(copy.Out())), StatusText(kWithoutEnd));
  EXPECT_FALSE(copy);
  const Outcome written = WriteTo(value, kRoom).outcome;
  EXPECT_TRUE(EndsCleanly(written.status, written.result));
  const Outcome read = ReadFrom(value, Ones(20000));
  EXPECT_TRUE(EndsCleanly(read.status, read.result));
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(value.get()), S_OK);
  EXPECT_EQ(StatusText(unit->get_PacketSize(&size)), StatusText(of_size));
  const Outcome sent = WriteTo(unit, kRoom).outcome;
  EXPECT_TRUE(EndsCleanly(sent.status, sent.result));
  const TempFile place;
  const auto file = NewFile();
  VARIANT_BOOL done = VARIANT_TRUE;
  EXPECT_TRUE(OpenForWrite(file, place.name()));
  const HRESULT status = file->WriteData(value.get(), &done);
  EXPECT_TRUE(EndsCleanly(status, done));
  EXPECT_EQ(unit->put_Value(nullptr), S_OK);
}

// Every walk over a definition that holds itself.
void ExpectWalksOfDefinitionEnd(const Ptr<IValueDefBase>& definition) {
  ULONG size = 0;
  EXPECT_EQ(StatusText(definition->CalculateDataSize(&size)), StatusText(kWithoutEnd));
  EXPECT_EQ(StatusText(definition->get_PacketSize(&size)), StatusText(kWithoutEnd));
  const Outcome written = WriteTo(definition, kRoom).outcome;
  EXPECT_TRUE(EndsCleanly(written.status, written.result));
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(session->AddType(definition.get(), &done), S_OK);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Info(definition.get()), S_OK);
  EXPECT_EQ(StatusText(unit->get_PacketSize(&size)), StatusText(kWithoutEnd));
  const Outcome sent = WriteTo(unit, kRoom).outcome;
  EXPECT_TRUE(EndsCleanly(sent.status, sent.result));
  const TempFile place;
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, place.name()));
  const HRESULT status = file->WriteInfo(definition.get(), &done);
  EXPECT_TRUE(EndsCleanly(status, done));
}

class Knots : public testing::Test {
 protected:
  void TearDown() override {
    static_cast<void>(SetErrorInfo(0, nullptr));
    EXPECT_TRUE(NoObjectsAreAlive());
  }
};

// {Next, of a structure that may be null; Number Long}.
Ptr<IStructureDef> LinkDefinition() {
  const auto link = StructureDefinition({{OLESTR("Number"), kLong}}, 8, OLESTR("Link"));
  AddMember(link, OLESTR("Next"), StructureDefinition({{OLESTR("x"), kLong}}).get());
  Calculate(link);
  return link;
}

TEST_F(Knots, ValueThatIsItsOwnMember) {
  const auto link = NewValue(LinkDefinition());
  PutItem(link, OLESTR("Next"), Object(link));
  ASSERT_TRUE(SameObject(Get(link, &IValueBase::get_At, I4(1)).get(), link.get()));
  ExpectWalksOfValueEnd(link);
  EXPECT_EQ(Item(link, OLESTR("Next")), "DISPATCH");
  PutItem(link, OLESTR("Next"), Variant::Null());
}

TEST_F(Knots, ValuesThatAreEachOthersMembers) {
  const auto one = NewValue(LinkDefinition());
  const auto other = NewValue(LinkDefinition());
  PutItem(one, OLESTR("Next"), Object(other));
  PutItem(other, OLESTR("Next"), Object(one));
  ExpectWalksOfValueEnd(one);
  PutItem(one, OLESTR("Next"), Variant::Null());
}

TEST_F(Knots, ArrayThatIsItsOwnElement) {
  const auto array = NewArray(ArrayDefinition(SimpleArrayDefinition(kLong)));
  Add(array, Object(array));
  ASSERT_TRUE(SameObject(At(array, 0).get(), array.get()));
  ExpectWalksOfValueEnd(array);
  EXPECT_EQ(array->RemoveAll(), S_OK);
}

TEST_F(Knots, ArrayInAMemberOfItsElement) {
  const auto link = NewValue(LinkDefinition());
  const auto array = NewArray(ArrayDefinition(LinkDefinition()));
  Add(array, Object(link));
  PutItem(link, OLESTR("Next"), Object(array));
  // An array of structures has the size that its definition states.
  ExpectWalksOfValueEnd(array, S_OK);
  ExpectWalksOfValueEnd(link, S_OK);
  PutItem(link, OLESTR("Next"), Variant::Null());
}

TEST_F(Knots, TransferThroughAnArrayThatIsItsOwnElement) {
  const MessageRecorder messages;
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  EXPECT_EQ(definition->put_ValueType(definition.get()), S_OK);
  const auto array = NewArray(definition);
  Add(array, Object(array));
  double numbers[4] = {};
  VARIANT_BOOL done = VARIANT_FALSE;
  for (const OLECHAR* path : {OLESTR(""), OLESTR("[0]"), OLESTR("[0][0][0][0]"), OLESTR("x")}) {
    const HRESULT status = array->BuildNumericArray(Bstr(path).get(), I4(kReal).get(),
                                                    reinterpret_cast<unsigned char*>(numbers), &done);
    EXPECT_NE(status, E_FAIL) << Plain(WideView(path));
  }
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(definition->put_ValueType(nullptr), S_OK);
}

TEST_F(Knots, DefinitionThatIsItsOwnMember) {
  const auto structure = LinkDefinition();
  EXPECT_EQ(structure->put_Members(I4(1).get(), structure.get()), S_OK);
  ExpectWalksOfDefinitionEnd(structure);
  Ptr<IValueBase> value;
  EXPECT_TRUE(SUCCEEDED(structure->CreateDataObject(value.Out())) || !value);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "Link");
  EXPECT_EQ(structure->RemoveAll(), S_OK);
}

TEST_F(Knots, DefinitionsThatAreEachOthersMembers) {
  const auto one = LinkDefinition();
  const auto other = LinkDefinition();
  EXPECT_EQ(one->put_Members(I4(1).get(), other.get()), S_OK);
  EXPECT_EQ(other->put_Members(I4(1).get(), one.get()), S_OK);
  ExpectWalksOfDefinitionEnd(one);
  EXPECT_EQ(one->RemoveAll(), S_OK);
}

TEST_F(Knots, DefinitionThatIsItsOwnElement) {
  for (const LONG count : {0, 1, 1000000}) {
    const auto array = CreateObject<IArrayDef>(kArrayInfoClass);
    EXPECT_EQ(array->put_ValueType(array.get()), S_OK);
    EXPECT_EQ(array->put_ElementCount(count), S_OK);
    EXPECT_EQ(array->put_Id(9), S_OK);
    ExpectWalksOfDefinitionEnd(array);
    Ptr<IValueBase> value;
    static_cast<void>(array->CreateDataObject(value.Out()));
    EXPECT_EQ(array->put_ValueType(nullptr), S_OK);
  }
}

// So many links, the first of which is returned.
Ptr<IValueBase> Chain(LONG length) {
  const auto definition = LinkDefinition();
  auto link = NewValue(definition);
  for (LONG i = 1; i < length; ++i) {
    const auto outer = NewValue(definition);
    PutItem(outer, OLESTR("Next"), Object(link));
    link = outer;
  }
  return link;
}

TEST_F(Knots, LongChainsAreFollowedUpToALimit) {
  ULONG size = 0;
  EXPECT_EQ(Chain(kWithin)->get_PacketSize(&size), S_OK);
  EXPECT_EQ(size, static_cast<ULONG>(4 * kWithin + 4));  // and the last one's own "Next"
  Ptr<IValueBase> copy;
  EXPECT_EQ(Chain(kWithin)->Copy(copy.Out()), S_OK);
  EXPECT_EQ(WriteTo(copy, size).outcome, Moved(size));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return Chain(kBeyond)->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return Chain(kBeyond)->Copy(copy.Out()); }));
}

}  // namespace
}  // namespace halyard::test
