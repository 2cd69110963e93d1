// The fixed array over memory of the caller: a shell.
#include <gtest/gtest.h>

#include <cstring>

#include "halyard/stream/orm_help.h"
#include "halyard/values/arrays/simple_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/raised.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

constexpr USHORT kWidths[] = {0, 0, 0, 0, 1, 1, 2, 2, 4, 4, 4, 4, 8, 8};

Ptr<IArray> Shell(SHORT type, LONG count, unsigned char* block) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  Ptr<ISimpleFixedArray> array;
  EXPECT_EQ(help->CreateShellArray(I2(type).get(), kWidths[type], count, block, array.Out()), S_OK);
  EXPECT_TRUE(array);
  return array;
}

// A shell of Short over a guarded block that holds these numbers.
class ShortShell : public testing::Test {
 protected:
  ShortShell() {
    const Bytes bytes = Hex("01 00 FF FF 2C 01");
    std::memcpy(block_.data(), bytes.data(), bytes.size());
    array_ = Shell(kShort, 3, block_.data());
  }

  std::string Block() const { return ToHex(block_.Contents()); }

  GuardedBuffer block_{6};
  Ptr<IArray> array_;
};

TEST_F(ShortShell, ShowsTheCallersMemory) {
  EXPECT_EQ(ClassOf(array_.get()), "SimpleFixedArray");
  EXPECT_EQ(Items(array_), "I2 1, I2 -1, I2 300");
  block_.data()[0] = 7;
  EXPECT_EQ(Item(array_, 0), "I2 7");
}

TEST_F(ShortShell, WritesTheCallersMemory) {
  PutItem(array_, 2, I4(-2));
  EXPECT_EQ(Block(), "01 00 FF FF FE FF");
  EXPECT_TRUE(block_.GuardsIntact());
}

TEST_F(ShortShell, DataPointerIsTheCallersBlock) {
  const auto address = Get(array_.As<ISimpleArray>(), &ISimpleArray::get_GetDataPointer);
  EXPECT_EQ(address, reinterpret_cast<LONG_PTR>(block_.data()));
}

TEST_F(ShortShell, EncodesTheCallersMemory) {
  EXPECT_EQ(PacketSize(array_), 6u);
  EXPECT_EQ(Encoded(array_), "01 00 FF FF 2C 01");
  EXPECT_EQ(ReadFrom(array_, "05 00 06 00 07 00 08 00"), Moved(6));
  EXPECT_EQ(Block(), "05 00 06 00 07 00");
  EXPECT_EQ(ReadFrom(array_, "09 00 09 00 09"), TooShort());
  EXPECT_EQ(Block(), "05 00 06 00 07 00");
  EXPECT_TRUE(block_.GuardsIntact());
}

TEST_F(ShortShell, KeepsNoDefinition) {
  Ptr<IValueDefBase> info;
  SHORT id = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array_->get_Info(info.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array_->get_Id(&id); }));
  EXPECT_EQ(Get(array_, &IValueBase::get_Type), kArray);
}

TEST_F(ShortShell, CopyOwnsItsBlock) {
  const auto copy = Get(array_, &IValueBase::Copy).As<IArray>();
  EXPECT_EQ(ClassOf(copy.get()), "SimpleFixedArray");
  EXPECT_EQ(Items(copy), "I2 1, I2 -1, I2 300");
  PutItem(copy, 0, I4(9));
  EXPECT_EQ(Block(), "01 00 FF FF 2C 01");
  array_.Reset();
  block_.data()[2] = 0;
  EXPECT_EQ(Items(copy), "I2 9, I2 -1, I2 300");
}

TEST_F(ShortShell, NeitherGrowsNorShrinks) {
  Add(array_, I4(3));
  EXPECT_EQ(array_->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(array_->RemoveAll(), S_OK);
  EXPECT_EQ(Items(array_), "I2 1, I2 -1, I2 300");
}

TEST_F(ShortShell, PositionsOutOfRangeTouchNothing) {
  for (const LONG position : {3, 4, 1000000, -1, -1000000}) {
    Variant content;
    EXPECT_EQ(array_->get_Item(I4(position).get(), content.Out()), E_INVALIDARG);
    EXPECT_EQ(TryPutItem(array_, position, I4(1)), E_INVALIDARG);
  }
  EXPECT_TRUE(block_.GuardsIntact());
}

TEST_F(ShortShell, LaterDefinitionNeverReachesBeyondTheBlock) {
  static_cast<void>(array_->put_Info(SimpleArrayDefinition(kReal, 50).get()));
  EXPECT_EQ(Count(array_), 3);
  EXPECT_EQ(Items(array_), "I2 1, I2 -1, I2 300");
  static_cast<void>(ReadFrom(array_, Bytes(400, 1)));
  EXPECT_TRUE(block_.GuardsIntact());
}

TEST_F(ShortShell, HasNoNumericTransferForWantOfADefinition) {
  for (const auto& array : {array_, Get(array_, &IValueBase::Copy).As<IArray>()}) {
    const Transferred built = Build(array, OLESTR(""), I2(kLong), 12);
    EXPECT_EQ(built.status, E_POINTER);
    EXPECT_EQ(built.result, VARIANT_FALSE);
    EXPECT_EQ(built.bytes, Unwritten(12));
    const Transferred read = Read(array, OLESTR(""), I2(kShort), "05 00 06 00 07 00");
    EXPECT_EQ(read.status, E_POINTER);
    EXPECT_EQ(read.result, VARIANT_FALSE);
    EXPECT_EQ(Items(array), "I2 1, I2 -1, I2 300");
  }
}

TEST(ShellArray, ElementsOfEveryType) {
  for (const SHORT type : {kChar, kByte, kShort, kWord, kLong, kDWord, kInt64, kShortReal, kReal, kDate}) {
    GuardedBuffer block(std::size_t{3} * kWidths[type]);
    const auto array = Shell(type, 3, block.data());
    EXPECT_EQ(Count(array), 3);
    EXPECT_EQ(PacketSize(array), 3u * kWidths[type]);
    for (LONG i = 0; i < 3; ++i) PutItem(array, i, I2(static_cast<SHORT>(i + 1)));
    EXPECT_EQ(Encoded(array), ToHex(block.Contents())) << type;
    EXPECT_TRUE(block.GuardsIntact()) << type;
  }
}

TEST(ShellArray, Int64StoreIntoTheLastSlotStaysInsideTheBlock) {
  GuardedBuffer block(8);
  const auto array = Shell(kInt64, 2, block.data());
  PutItem(array, 1, I4(-2));
  PutItem(array, 0, I4(-3));
  EXPECT_EQ(ToHex(block.Contents()), "FD FF FF FF FF FF FF FF");
  EXPECT_TRUE(block.GuardsIntact());
  PutItem(array, 1, I4(5));
  EXPECT_EQ(ToHex(block.Contents()), "FD FF FF FF 05 00 00 00");
  EXPECT_TRUE(block.GuardsIntact());
}

// What a buffer call of a shell over null answers.
Outcome NoMemory() { return {E_POINTER, VARIANT_FALSE, kUntouched}; }

TEST(ShellArray, OverNoMemoryEveryAccessIsRaised) {
  for (const SHORT type : {kByte, kShort, kInt64, kReal, kDate}) {
    const auto array = Shell(type, 4, nullptr);
    EXPECT_EQ(Count(array), 4);
    EXPECT_EQ(Get(array.As<ISimpleArray>(), &ISimpleArray::get_GetDataPointer), 0);
    Variant content;
    Ptr<IValueBase> copy;
    EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Item(I4(0).get(), content.Out()); })) << type;
    EXPECT_TRUE(Raises(E_POINTER, [&] { return TryPutItem(array, 0, I4(1)); })) << type;
    EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Copy(copy.Out()); })) << type;
    EXPECT_EQ(WriteTo(array, 64).outcome, NoMemory()) << type;
    EXPECT_EQ(ReadFrom(array, Bytes(64, 1)), NoMemory()) << type;
  }
}

TEST(ShellArray, OfNoElementsNeedsNoMemory) {
  const auto array = Shell(kLong, 0, nullptr);
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Encoded(array), "");
  EXPECT_EQ(ReadFrom(array, "01"), Moved(0));
  EXPECT_EQ(Count(Get(array, &IValueBase::Copy).As<IArray>()), 0);
}

}  // namespace
}  // namespace halyard::test
