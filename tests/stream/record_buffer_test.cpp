// The memory of one record.
#include "stream/record_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "tests/support/handles.h"
#include "tests/support/temp_file.h"

namespace halyard::test {
namespace {

constexpr unsigned char kFiller = 0xEE;

class RecordBuffers : public testing::Test {
 protected:
  // A channel on a file that holds so many bytes, each its own position's low byte.
  void Open(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i != size; ++i) bytes[i] = static_cast<unsigned char>(i);
    disk_.Write(bytes);
    channel_.Take(OpenHandleForRead(disk_.path()));
  }

  static bool IsFromTheStart(const unsigned char* body, std::size_t size) {
    for (std::size_t i = 0; i != size; ++i) {
      if (body[i] != static_cast<unsigned char>(i)) return false;
    }
    return true;
  }

  static std::unique_ptr<unsigned char[]> FilledBuffer() {
    auto bytes = std::make_unique<unsigned char[]>(kWorkBufferSize);
    std::fill_n(bytes.get(), kWorkBufferSize, kFiller);
    return bytes;
  }

  static bool AreZeros(const unsigned char* bytes, std::size_t size) {
    return std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; });
  }

  TempFile disk_;
  FileChannel channel_;
  std::unique_ptr<unsigned char[]> place_ = FilledBuffer();
  const WorkBuffer work_{place_};
  RecordBuffer record_{work_};
};

TEST_F(RecordBuffers, ZerosLieInTheWorkBufferAsLongAsTheyFit) {
  EXPECT_EQ(record_.ReserveZeros(kWorkBufferSize), work_.bytes());
  EXPECT_TRUE(AreZeros(work_.bytes(), kWorkBufferSize));
  EXPECT_FALSE(record_.own());
  const unsigned char* larger = record_.ReserveZeros(kWorkBufferSize + 1);
  EXPECT_EQ(larger, record_.own().get());
  EXPECT_TRUE(AreZeros(larger, kWorkBufferSize + 1));
}

TEST_F(RecordBuffers, OnlyAsManyZerosAsAreWantedAreMade) {
  EXPECT_EQ(record_.ReserveZeros(10), work_.bytes());
  EXPECT_EQ(work_.bytes()[9], 0);
  EXPECT_EQ(work_.bytes()[10], kFiller);
}

TEST_F(RecordBuffers, RecordThatFitsIsReadIntoTheWorkBuffer) {
  Open(kWorkBufferSize);
  const unsigned char* body = record_.ReadBody(channel_, kWorkBufferSize);
  ASSERT_EQ(body, work_.bytes());
  EXPECT_TRUE(IsFromTheStart(body, kWorkBufferSize));
  EXPECT_FALSE(record_.own());
}

TEST_F(RecordBuffers, LargerRecordHasMemoryOfItsOwn) {
  constexpr std::uint32_t kSize = kWorkBufferSize + 1;
  Open(kSize);
  const unsigned char* body = record_.ReadBody(channel_, kSize);
  ASSERT_NE(body, nullptr);
  EXPECT_TRUE(record_.own());
  EXPECT_TRUE(IsFromTheStart(body, kSize));
  // Behind it lie zeros for those who read the last element in its full width.
  constexpr std::size_t kWidest = 8;
  EXPECT_TRUE(AreZeros(body + kSize, kWidest));
  // Behind the heads of a unit and of an array, its elements are aligned.
  constexpr std::size_t kHeads = 10;
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(body + kHeads) % kWidest, 0u);
}

TEST_F(RecordBuffers, LongerLengthThanTheFileTakesNoMemory) {
  Open(kWorkBufferSize + 1);
  EXPECT_EQ(record_.ReadBody(channel_, 0xFFFFFFFFu), nullptr);
  EXPECT_FALSE(record_.own());
  EXPECT_EQ(channel_.BytesToEnd(), 0u);
}

TEST_F(RecordBuffers, ShortRecordIsNone) {
  Open(9);
  EXPECT_EQ(record_.ReadBody(channel_, 10), nullptr);
}

TEST_F(RecordBuffers, RecordThatWasReadAheadStaysWhereItLies) {
  Open(100);
  const LONG handle = OpenHandleForRead(disk_.path());
  channel_.Close();
  channel_.Take(handle);
  channel_.HaveAlone(handle);
  unsigned char first = 1;
  std::uint32_t count = 0;
  ASSERT_TRUE(channel_.Read(&first, 1, &count));
  const unsigned char* ahead = channel_.LookAhead(50);
  ASSERT_NE(ahead, nullptr);
  EXPECT_EQ(record_.ReadBody(channel_, 50), ahead);
  EXPECT_EQ(ahead[0], 1);
}

TEST_F(RecordBuffers, OneBufferServesOneRecordAtATime) {
  EXPECT_EQ(place_, nullptr);
  const unsigned char* lent = work_.bytes();
  {
    const WorkBuffer inner(place_);
    EXPECT_NE(inner.bytes(), lent);
    EXPECT_NE(inner.bytes(), nullptr);
  }
  EXPECT_EQ(place_, nullptr);
  EXPECT_EQ(work_.bytes(), lent);
}

TEST_F(RecordBuffers, MemoryForARecordOfAPipeFollowsItsBytes) {
  const Pipe pipe = OpenPipe();
  WriteHandle(pipe.write, Bytes(1000, 5));
  CloseHandleValue(pipe.write);
  channel_.Take(pipe.read);
  EXPECT_EQ(record_.ReadBody(channel_, 0xFFFFFFFFu), nullptr);
}

}  // namespace
}  // namespace halyard::test
