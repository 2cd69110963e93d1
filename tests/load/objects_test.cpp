// Many definitions, members and elements at once.
#include <gtest/gtest.h>

#include "tests/load/held_memory.h"
#include "tests/load/size_of_run.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr LONG kMostMembers = 65535;

// What a session may need for a definition of one member, with its name and its place in
// the tables that find it.
constexpr std::size_t kDefinitionBytes = 2048;

// What may stay when all is let go of: the allocator counts small blocks as in use that it
// keeps at hand.
constexpr std::size_t kAtHand = 16 << 10;

WideString NumberedName(LONG number) {
  const std::string digits = "m" + std::to_string(number);
  return {digits.begin(), digits.end()};
}

// A session that holds definitions with ids 1, 2, ... and names.
Ptr<IOrmSession> SessionOf(LONG definitions) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  for (LONG i = 1; i <= definitions; ++i) {
    const auto definition = StructureDefinition({{OLESTR("x"), kLong}}, static_cast<SHORT>(i));
    EXPECT_EQ(definition->put_Name(Bstr(NumberedName(i)).get()), S_OK);
    EXPECT_EQ(Get(session, &IOrmSession::AddType, definition.get()), VARIANT_TRUE);
  }
  return session;
}

TEST(Load, SessionOfManyDefinitions) {
  const LONG definitions = Shortened<LONG>(3000, 60000);
  static_cast<void>(SessionOf(1));  // what is made once for all
  const std::size_t before = AllocatedMemory();
  auto session = SessionOf(definitions);
  EXPECT_LE(AllocatedMemory(), before + static_cast<std::size_t>(definitions) * kDefinitionBytes);
  for (LONG i = 1; i <= definitions; i += definitions / 50) {
    Ptr<IValueDefBase> found;
    ASSERT_EQ(session->GetTypeFromId(I4(kStructure).get(), static_cast<SHORT>(i), found.Out()), S_OK);
    ASSERT_TRUE(found);
    EXPECT_EQ(Get(found, &IValueDefBase::get_Name), "m" + std::to_string(i));
  }
  session.Reset();
  EXPECT_LE(AllocatedMemory(), before + kAtHand);
}

TEST(Load, StructureOfAllMembersThatThereCanBe) {
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  for (LONG i = 0; i < kMostMembers; ++i)
    ASSERT_EQ(structure->AddSimpleMember(Bstr(NumberedName(i)).get(), kByte, &added), S_OK);
  EXPECT_EQ(Calculate(structure), static_cast<ULONG>(kMostMembers));
  const auto value = NewValue(structure);
  PutItem(value, OLESTR("m65534"), I4(7));
  PutItem(value, OLESTR("m0"), I4(5));

  const auto copy = CreateObject<IStructureDef>(kStructureInfoClass);
  const std::string bytes = Encoded(structure);
  EXPECT_EQ(ReadFrom(copy, bytes).status, S_OK);
  EXPECT_EQ(Get(copy, &IStructureDef::get_MemberCount), kMostMembers);
  Calculate(copy);
  const auto read = NewValue(copy);
  EXPECT_EQ(ReadFrom(read, Encoded(value)), Moved(kMostMembers));
  EXPECT_EQ(Item(read, OLESTR("m65534")), "UI1 7");
  EXPECT_EQ(Item(read, OLESTR("m0")), "UI1 5");
  EXPECT_EQ(Item(read, OLESTR("m1")), "UI1 0");
}

TEST(Load, ArrayOfManyStructures) {
  const auto elements = Shortened<ULONG>(200000, 10000000);
  const auto point = StructureDefinition({{OLESTR("X"), kReal}, {OLESTR("N"), kLong}});
  const auto array = NewArray(ArrayDefinition(point, 0, 1));
  constexpr std::size_t kElementBytes = 12;
  Bytes bytes = LittleEndian(elements, 4);
  bytes.resize(4 + elements * kElementBytes);
  for (ULONG i = 0; i < elements; ++i) {
    const Bytes number = LittleEndian(i, 4);
    std::copy(number.begin(), number.end(),
              bytes.begin() + 4 + static_cast<std::ptrdiff_t>(i * kElementBytes) + 8);
  }
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  ASSERT_EQ(array->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  std::vector<std::int32_t> numbers(elements);
  ASSERT_EQ(array->BuildNumericArray(Bstr(OLESTR("N")).get(), I4(kLong).get(),
                                     reinterpret_cast<unsigned char*>(numbers.data()), &done),
            S_OK);
  for (ULONG i = 0; i < elements; ++i) ASSERT_EQ(numbers[i], static_cast<std::int32_t>(i));
  EXPECT_EQ(Item(At(array, static_cast<LONG>(elements) - 1), OLESTR("N")),
            "I4 " + std::to_string(elements - 1));
}

}  // namespace
}  // namespace halyard::test
