#include "tests/support/message_recorder.h"

#include "halyard/platform/messages.h"

#ifdef _WIN32
#include <cstring>

#include "halyard/classes.h"
#endif

namespace halyard::test {
namespace {

std::string& Lines() {
  static std::string lines;
  return lines;
}

// Room for the messages of any test, so that recording one takes no memory: it happens
// inside a call of the library, where a test may let memory run out.
constexpr std::size_t kRoom = 1 << 16;

void Record(const char* text, const char* caption) {
  Lines().append(caption).append(": ").append(text).append("\n");
}

#ifdef _WIN32

// The component shows messages through the system's message box, which would wait for a
// person: the component's import of it leads here while a recorder lives.
using MessageBoxFunction = int(WINAPI*)(HWND, LPCSTR, LPCSTR, UINT);
MessageBoxFunction system_message_box = nullptr;

int WINAPI RecordBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
  Record(text, caption);
  if (owner != nullptr || type != MB_OK) Lines() += "(with an owner or other buttons)\n";
  return IDOK;
}

// Where the component's import table keeps the address of MessageBoxA; null if nowhere.
MessageBoxFunction* ImportedMessageBox() {
  auto* base = reinterpret_cast<unsigned char*>(GetModuleHandleA("halyard.dll"));
  if (base == nullptr) return nullptr;
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto* dll = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports); dll->Name != 0;
       ++dll) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + dll->OriginalFirstThunk);
    auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), "MessageBoxA") == 0) {
        return reinterpret_cast<MessageBoxFunction*>(&address->u1.Function);
      }
    }
  }
  return nullptr;
}

// Makes the component's import lead to `function`; what it led to before.
MessageBoxFunction Redirect(MessageBoxFunction function) {
  MessageBoxFunction* import = ImportedMessageBox();
  if (import == nullptr) return nullptr;
  DWORD protection = 0;
  VirtualProtect(import, sizeof *import, PAGE_READWRITE, &protection);
  const MessageBoxFunction before = *import;
  *import = function;
  VirtualProtect(import, sizeof *import, protection, &protection);
  return before;
}

#endif

}  // namespace

#ifdef _WIN32

MessageRecorder::MessageRecorder() {
  Lines().clear();
  Lines().reserve(kRoom);
  static_cast<void>(CreateObject<IUnknown>(kSimpleValueClass));  // loads the component
  system_message_box = Redirect(&RecordBox);
  if (system_message_box == nullptr) Lines() = "(the component does not import MessageBoxA)\n";
}

MessageRecorder::~MessageRecorder() {
  if (system_message_box != nullptr) Redirect(system_message_box);
}

#else

MessageRecorder::MessageRecorder() {
  Lines().clear();
  Lines().reserve(kRoom);
  SetMessageHandler(&Record);
}

MessageRecorder::~MessageRecorder() { SetMessageHandler(nullptr); }

#endif

std::string MessageRecorder::Shown() const { return Lines(); }

}  // namespace halyard::test
