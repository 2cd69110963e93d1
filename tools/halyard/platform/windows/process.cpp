// The process on Windows: console, arguments, the component runtime.
#include <fcntl.h>
#include <io.h>
#include <objbase.h>
#include <shellapi.h>
#include <windows.h>

#include <cwchar>
#include <memory>

#include "tools/halyard/platform/system.h"
#include "tools/halyard/platform/windows/wide.h"

namespace halyard::tool {
namespace {

wchar_t g_unfinished[32768];
int g_descriptor = kNoDescriptor;

HANDLE HandleOf(int descriptor) noexcept { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

// Runs on a thread of the system's. An open file cannot be removed, so it is closed here;
// what the other thread still writes fails.
BOOL WINAPI EndInterrupted(DWORD) {
  if (g_unfinished[0] != L'\0') {
    _close(g_descriptor);
    DeleteFileW(g_unfinished);
  }
  return FALSE;
}

}  // namespace

std::wstring WideName(const std::string& utf8) noexcept {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Utf8Name(const wchar_t* wide) {
  const int size = static_cast<int>(std::wcslen(wide));
  std::string utf8(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide, size, nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide, size, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr);
  return utf8;
}

void PrepareProcess() {
  for (const int descriptor : {kStandardInput, kStandardOutput, kStandardError})
    _setmode(descriptor, _O_BINARY);
  if (IsTerminal(kStandardOutput)) SetConsoleOutputCP(CP_UTF8);
  CoInitialize(nullptr);
}

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> values(CommandLineToArgvW(GetCommandLineW(), &count),
                                                             LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8Name(values.get()[i]));
  return arguments;
}

bool IsTerminal(int descriptor) noexcept {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(descriptor), &mode) != 0;
}

bool ShowsColours(int descriptor) noexcept {
  constexpr DWORD kVirtualTerminal = 0x0004;
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(descriptor), &mode) != 0 &&
         SetConsoleMode(HandleOf(descriptor), mode | kVirtualTerminal) != 0;
}

void RemoveOnInterrupt(const std::string& name, int descriptor) noexcept {
  g_descriptor = descriptor;
  const std::wstring wide = WideName(name);
  if (wide.size() < sizeof g_unfinished / sizeof *g_unfinished) std::wcscpy(g_unfinished, wide.c_str());
  SetConsoleCtrlHandler(EndInterrupted, TRUE);
}

}  // namespace halyard::tool
