// The handle of a file with the bytes that wait on its two sides.
#include "stream/file_channel.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/handles.h"
#include "tests/support/temp_file.h"

namespace halyard::test {
namespace {

bool Write(FileChannel& channel, std::string_view text) {
  return channel.Write(text.data(), static_cast<std::uint32_t>(text.size()));
}

std::string Read(FileChannel& channel, std::uint32_t size) {
  std::string text(size, '\0');
  std::uint32_t count = 0;
  EXPECT_TRUE(channel.Read(text.data(), size, &count));
  text.resize(count);
  return text;
}

std::string TextOf(const TempFile& disk) {
  const Bytes bytes = disk.Contents();
  return {bytes.begin(), bytes.end()};
}

Bytes BytesOf(std::string_view text) { return {text.begin(), text.end()}; }

TEST(FileChannel, WithoutAHandleTakesAndGivesNothing) {
  FileChannel channel;
  channel.SetBufferSize(100);
  EXPECT_FALSE(channel.IsOpen());
  EXPECT_EQ(channel.RoomToWait(1), nullptr);
  EXPECT_FALSE(Write(channel, "a"));
  EXPECT_TRUE(channel.NothingWaits());
  char byte = 0;
  std::uint32_t count = 7;
  EXPECT_FALSE(channel.Read(&byte, 1, &count));
  EXPECT_EQ(count, 0u);
  EXPECT_TRUE(channel.Flush());
  EXPECT_TRUE(channel.Settle());
  EXPECT_TRUE(channel.Close());
}

TEST(FileChannel, WritesAtOnceWithoutABuffer) {
  const TempFile disk;
  FileChannel channel;
  channel.Take(OpenHandleForWrite(disk.path()));
  EXPECT_TRUE(Write(channel, "ab"));
  EXPECT_TRUE(channel.NothingWaits());
  EXPECT_EQ(TextOf(disk), "ab");
}

TEST(FileChannel, LetsWaitWhatFits) {
  const TempFile disk;
  FileChannel channel;
  channel.SetBufferSize(4);
  channel.Take(OpenHandleForWrite(disk.path()));
  EXPECT_TRUE(Write(channel, "abc"));
  EXPECT_TRUE(Write(channel, "d"));
  EXPECT_EQ(TextOf(disk), "");
  EXPECT_TRUE(Write(channel, "ef"));
  EXPECT_EQ(TextOf(disk), "abcd");
  EXPECT_TRUE(Write(channel, "larger"));
  EXPECT_EQ(TextOf(disk), "abcdeflarger");
  EXPECT_TRUE(channel.NothingWaits());
}

TEST(FileChannel, TellsALossOnceAndTakesNoMoreFromThisHandle) {
  const TempFile disk(BytesOf("x"));
  const TempFile other;
  FileChannel channel;
  channel.SetBufferSize(4);
  channel.Take(OpenHandleThatRefusesWrites(disk.path()));
  EXPECT_TRUE(Write(channel, "abc"));
  EXPECT_FALSE(channel.Flush());
  EXPECT_FALSE(channel.Settle());
  EXPECT_TRUE(channel.Settle());
  EXPECT_FALSE(channel.Flush());
  EXPECT_EQ(channel.RoomToWait(1), nullptr);
  EXPECT_FALSE(Write(channel, "a"));
  EXPECT_TRUE(channel.Close());
  channel.Take(OpenHandleForWrite(other.path()));
  EXPECT_TRUE(Write(channel, "new"));
  EXPECT_TRUE(channel.Close());
  EXPECT_EQ(TextOf(other), "new");
}

TEST(FileChannel, ReadsAheadOnlyWhatItHasAlone) {
  const TempFile disk(BytesOf("abcdef"));
  for (const bool alone : {false, true}) {
    const LONG handle = OpenHandleForRead(disk.path());
    FileChannel channel;
    channel.Take(handle);
    if (alone) channel.HaveAlone(handle);
    EXPECT_EQ(Read(channel, 2), "ab");
    EXPECT_EQ(PositionOf(handle), alone ? 6 : 2);
    EXPECT_EQ(channel.LookAhead(4) != nullptr, alone);
    EXPECT_EQ(channel.LookAhead(5), nullptr);
    EXPECT_EQ(channel.BytesToEnd(), 4u);
    EXPECT_EQ(Read(channel, 9), "cdef");
    EXPECT_EQ(Read(channel, 1), "");
  }
}

TEST(FileChannel, AnotherHandleIsNotHadAlone) {
  const TempFile disk(BytesOf("abcdef"));
  const LONG handle = OpenHandleForRead(disk.path());
  FileChannel channel;
  channel.Take(handle);
  channel.HaveAlone(handle + 1);
  EXPECT_EQ(Read(channel, 2), "ab");
  EXPECT_EQ(PositionOf(handle), 2);
}

TEST(FileChannel, APipeIsNeverReadAhead) {
  const Pipe pipe = OpenPipe();
  WriteHandle(pipe.write, BytesOf("abcdef"));
  CloseHandleValue(pipe.write);  // so that nobody waits for more
  FileChannel channel;
  channel.Take(pipe.read);
  channel.HaveAlone(pipe.read);
  EXPECT_EQ(Read(channel, 2), "ab");
  EXPECT_EQ(ReadHandle(pipe.read, 4), BytesOf("cdef"));
  EXPECT_EQ(channel.BytesToEnd(), std::nullopt);
}

TEST(FileChannel, WhatWaitsIsWrittenBeforeAnythingIsRead) {
  const TempFile disk;
  FileChannel channel;
  channel.SetBufferSize(10);
  channel.Take(OpenHandleForWrite(disk.path()));
  EXPECT_TRUE(Write(channel, "abc"));
  char byte = 0;
  std::uint32_t count = 0;
  EXPECT_FALSE(channel.Read(&byte, 1, &count));  // the handle only writes
  EXPECT_EQ(TextOf(disk), "abc");
}

TEST(FileChannel, SkippingToTheEndForgetsWhatWasReadAhead) {
  const TempFile disk(BytesOf("abcdef"));
  const LONG handle = OpenHandleForRead(disk.path());
  FileChannel channel;
  channel.Take(handle);
  channel.HaveAlone(handle);
  EXPECT_EQ(Read(channel, 1), "a");
  channel.SkipToEnd();
  EXPECT_EQ(channel.LookAhead(1), nullptr);
  EXPECT_EQ(Read(channel, 1), "");
}

}  // namespace
}  // namespace halyard::test
