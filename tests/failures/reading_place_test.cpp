// Where reading stands in a file after memory or the system has failed inside a record.
#include <gtest/gtest.h>

#include "tests/failures/failing_calls.h"
#include "tests/failures/failing_memory.h"
#include "tests/failures/numbered_records.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

constexpr LONG kRecords = 3;
constexpr std::size_t kReals = 10000;  // 80,000 bytes, more than the work buffer

// A real whose bytes, from the middle of the large record on, are the length and the kind of
// a unit that every reader passes over. Whoever reads on there finds thousands.
Bytes LooksLikeARecord() { return Hex("00 08 00 04 00 00 00 63"); }

// A definition, a large array of such reals, a definition, and numbered records.
Bytes FileWithALargeRecord() {
  const TempFile place;
  {
    const auto file = NewFile();
    EXPECT_TRUE(OpenForWrite(file, place.name()));
    const auto reals = SimpleArrayDefinition(kReal, 0, 2);
    EXPECT_TRUE(WriteInfo(file, reals.get()));
    const auto array = NewArray(reals);
    Bytes bytes = LittleEndian(kReals, 4);
    for (std::size_t i = 0; i < kReals; ++i) bytes = Join({std::move(bytes), LooksLikeARecord()});
    EXPECT_EQ(ReadFrom(array, bytes).result, VARIANT_TRUE);
    EXPECT_TRUE(WriteData(file, array.get()));
    const auto numbered = NumberedDefinition();
    EXPECT_TRUE(WriteInfo(file, numbered.get()));
    EXPECT_EQ(WriteNumbered(file, numbered, 0, kRecords), kRecords);
  }
  return place.Contents();
}

// The large record that a unit has read; null for any other.
Ptr<IValueBase> LargeArrayIn(const Ptr<IUnit>& unit) {
  const auto value = unit ? Get(unit, &IUnit::get_Value) : nullptr;
  return value && Get(value, &IValueBase::get_Count) == static_cast<LONG>(kReals) ? value : nullptr;
}

using Opening = bool (*)(const Ptr<IOrmFile>&, const TempFile&);

class PlaceInAFile : public testing::TestWithParam<Opening> {
 protected:
  const TempFile place_{FileWithALargeRecord()};
};

// The record itself may have been passed over, those behind it are read.
TEST_P(PlaceInAFile, IsBehindARecordWithoutMemory) {
  bool happened = true;
  std::size_t which = 0;
  std::size_t failed = 0;
  while (happened) {
    SCOPED_TRACE(++which);
    const auto file = NewFile();
    ASSERT_TRUE(GetParam()(file, place_));
    ASSERT_TRUE(ReadInfo(file));
    Ptr<IUnit> unit;
    HRESULT status = S_OK;
    {
      const FailingAllocation failing(which);
      status = file->ReadUnit(unit.Out());
      happened = failing.Happened();
    }
    if (FAILED(status)) {
      EXPECT_EQ(status, E_OUTOFMEMORY);
      EXPECT_FALSE(unit);
      ++failed;
    } else {
      EXPECT_TRUE(LargeArrayIn(unit));
    }
    EXPECT_EQ(ReadNumbered(file), (std::vector<LONG>{0, 1, 2}));
  }
  EXPECT_GT(failed, 0u);
}

TEST_P(PlaceInAFile, NothingIsReadFromInsideARecord) {
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    SCOPED_TRACE(which);
    const auto file = NewFile();
    int units = 0;
    {
      const FailingCall failing(which, Fault::kHalfThenOnce);
      if (GetParam()(file, place_))
        for (int call = 0; call < 20; ++call) units += ReadUnit(file) ? 1 : 0;
      happened = failing.Happened();
    }
    // Two definitions, the large record and the numbered ones.
    EXPECT_LE(units, 3 + kRecords);
    EXPECT_TRUE(happened || units == 3 + kRecords);
    // The file can be opened once more, and stands at its beginning then.
    ASSERT_TRUE(GetParam()(file, place_));
    ASSERT_TRUE(ReadInfo(file));
    EXPECT_TRUE(LargeArrayIn(ReadUnit(file)));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PlaceInAFile,
    testing::Values([](const Ptr<IOrmFile>& file,
                       const TempFile& place) { return OpenForRead(file, place.name()); },
                    [](const Ptr<IOrmFile>& file, const TempFile& place) {
                      return AttachForRead(file, OpenHandleForRead(place.path()));
                    }));

}  // namespace
}  // namespace halyard::test
