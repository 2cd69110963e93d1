#include "tests/support/handles.h"

#include <gtest/gtest.h>

#ifdef _WIN32

namespace halyard::test {
namespace {

LONG ValueOf(HANDLE handle) { return static_cast<LONG>(reinterpret_cast<LONG_PTR>(handle)); }
HANDLE HandleOf(LONG value) { return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(value)); }

LONG Open(const std::filesystem::path& path, DWORD access, DWORD disposition) {
  return ValueOf(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                             FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

LONG OpenHandleForRead(const std::filesystem::path& path) { return Open(path, GENERIC_READ, OPEN_EXISTING); }

LONG OpenHandleForWrite(const std::filesystem::path& path) {
  return Open(path, GENERIC_WRITE, CREATE_ALWAYS);
}

LONG OpenHandleThatRefusesWrites(const std::filesystem::path& existing) {
  return OpenHandleForRead(existing);
}

Pipe OpenPipe() {
  HANDLE read = INVALID_HANDLE_VALUE;
  HANDLE write = INVALID_HANDLE_VALUE;
  CreatePipe(&read, &write, nullptr, 0);
  return {ValueOf(read), ValueOf(write)};
}

void WriteHandle(LONG handle, const Bytes& bytes) {
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(HandleOf(handle), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
  EXPECT_EQ(written, bytes.size());
}

Bytes ReadHandle(LONG handle, std::size_t size) {
  Bytes bytes(size);
  DWORD count = 0;
  EXPECT_TRUE(ReadFile(HandleOf(handle), bytes.data(), static_cast<DWORD>(size), &count, nullptr));
  bytes.resize(count);
  return bytes;
}

long long PositionOf(LONG handle) {
  LARGE_INTEGER place{};
  return SetFilePointerEx(HandleOf(handle), {}, &place, FILE_CURRENT) ? place.QuadPart : -1;
}

bool IsOpen(LONG handle) {
  DWORD flags = 0;
  return GetHandleInformation(HandleOf(handle), &flags) != FALSE;
}

void CloseHandleValue(LONG handle) { CloseHandle(HandleOf(handle)); }

}  // namespace halyard::test

#else

#include <fcntl.h>
#include <unistd.h>

namespace halyard::test {

LONG OpenHandleForRead(const std::filesystem::path& path) { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }

LONG OpenHandleForWrite(const std::filesystem::path& path) {
  return open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
}

LONG OpenHandleThatRefusesWrites(const std::filesystem::path& existing) {
  const LONG full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  return full != kNoHandle ? full : OpenHandleForRead(existing);
}

Pipe OpenPipe() {
  int ends[2] = {kNoHandle, kNoHandle};
  if (pipe(ends) != 0) return {kNoHandle, kNoHandle};
  return {ends[0], ends[1]};
}

void WriteHandle(LONG handle, const Bytes& bytes) {
  EXPECT_EQ(write(handle, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

Bytes ReadHandle(LONG handle, std::size_t size) {
  Bytes bytes(size);
  const ssize_t count = read(handle, bytes.data(), size);
  EXPECT_GE(count, 0);
  bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return bytes;
}

long long PositionOf(LONG handle) { return lseek(handle, 0, SEEK_CUR); }

bool IsOpen(LONG handle) { return fcntl(handle, F_GETFD) != -1; }

void CloseHandleValue(LONG handle) { close(handle); }

}  // namespace halyard::test

#endif
