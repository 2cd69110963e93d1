// Files on Windows. A Windows file handle has no more than 32 significant bits, so it
// travels as a LONG and is sign-extended back.
#include "platform/file.h"

#include "platform/text.h"

namespace halyard {
namespace {

HANDLE ToSystem(FileHandle handle) noexcept { return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(handle)); }

FileHandle FromSystem(HANDLE handle) noexcept {
  return static_cast<FileHandle>(reinterpret_cast<INT_PTR>(handle));
}

FileHandle Open(WideView name, DWORD access, DWORD share, DWORD disposition) noexcept {
  try {
    return FromSystem(CreateFileA(NarrowToZero(name).c_str(), access, share, nullptr, disposition,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  } catch (...) {
    return kNoFile;  // no memory for the name
  }
}

}  // namespace

FileHandle OpenFileForRead(WideView name) noexcept {
  return Open(name, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
}

FileHandle OpenFileForWrite(WideView name) noexcept { return Open(name, GENERIC_WRITE, 0, CREATE_ALWAYS); }

void CloseFile(FileHandle handle) noexcept { CloseHandle(ToSystem(handle)); }

bool ReadFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  *count = 0;
  // A file gives all at once, a pipe what happens to be in it.
  while (*count < size) {
    DWORD read = 0;
    if (!ReadFile(ToSystem(handle), static_cast<char*>(bytes) + *count, size - *count, &read, nullptr))
      return false;
    if (read == 0) return true;
    *count += read;
  }
  return true;
}

bool ReadSomeFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  DWORD read = 0;
  const bool done = ReadFile(ToSystem(handle), bytes, size, &read, nullptr) != FALSE;
  *count = read;
  return done;
}

bool CanBreak(FileHandle handle) noexcept { return GetFileType(ToSystem(handle)) != FILE_TYPE_DISK; }

// A broken pipe is a failed write like any other.
bool WriteToFile(FileHandle handle, const void* bytes, std::uint32_t size, bool, Remains) noexcept {
  DWORD written = 0;
  return WriteFile(ToSystem(handle), bytes, size, &written, nullptr) != FALSE && written == size;
}

bool GathersWrites() noexcept { return false; }

bool WriteBothToFile(FileHandle, std::span<const unsigned char>, std::span<const unsigned char>,
                     bool, Remains) noexcept {
  return false;
}

std::optional<std::uint64_t> BytesToEnd(FileHandle handle) noexcept {
  LARGE_INTEGER size{};
  LARGE_INTEGER position{};
  if (GetFileType(ToSystem(handle)) != FILE_TYPE_DISK || !GetFileSizeEx(ToSystem(handle), &size) ||
      !SetFilePointerEx(ToSystem(handle), LARGE_INTEGER{}, &position, FILE_CURRENT)) {
    return std::nullopt;
  }
  return size.QuadPart > position.QuadPart ? static_cast<std::uint64_t>(size.QuadPart - position.QuadPart)
                                           : 0;
}

void SkipToEnd(FileHandle handle) noexcept {
  SetFilePointerEx(ToSystem(handle), LARGE_INTEGER{}, nullptr, FILE_END);
}

}  // namespace halyard
