// What reading a field costs in allocations.
#include <gtest/gtest.h>

#include "halyard/object/variant.h"
#include "halyard/types/type_codes.h"
#include "tests/failures/failing_memory.h"
#include "tests/support/bytes.h"
#include "types/elementary.h"

namespace halyard::test {
namespace {

// How many allocations reading the field makes.
std::size_t AllocationsToRead(const Bytes& field, SHORT type) {
  Variant value;
  const FailingAllocation counting(kNoAllocation);
  EXPECT_TRUE(ReadElementary(field, type, value.get()));
  return counting.Count();
}

TEST(FieldMemory, APlainTextTakesTheMemoryOfItsStringAlone) {
  EXPECT_EQ(AllocationsToRead(Bytes(40, 'x'), kFixedString), 1u);
  EXPECT_EQ(AllocationsToRead(Bytes(40, 0), kFixedString), 1u);
}

TEST(FieldMemory, NumbersAndDatesTakeNone) {
  for (const SHORT type : {kByte, kShort, kLong, kShortReal, kReal, kDate})
    EXPECT_EQ(AllocationsToRead(Bytes(8, 1), type), 0u) << type;
}

}  // namespace
}  // namespace halyard::test
