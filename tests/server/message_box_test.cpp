// The message boxes of the component: on a display, what they show; without one, that
// nothing waits for them. The two cases run as programs of their own.
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "tests/server/support/component.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

constexpr const char* kInvalidTypeText = "Invalid type";
constexpr const char* kInvalidTypeCaption = "No caption";

// The window class of message boxes and the number of their text.
constexpr const char* kDialogClass = "#32770";
constexpr int kTextControl = 0xFFFF;

constexpr DWORD kPatienceInMilliseconds = 20000;
constexpr DWORD kPauseInMilliseconds = 20;

struct Box {
  std::string text;
  std::string caption;
  std::string buttons;
  bool has_owner = true;
};

std::string WindowText(HWND window) {
  char text[256] = {};
  GetWindowTextA(window, text, sizeof text);
  return text;
}

std::string ClassOf(HWND window) {
  char name[64] = {};
  GetClassNameA(window, name, sizeof name);
  return name;
}

// The identifiers of the visible buttons.
std::string ButtonsOf(HWND box) {
  std::string buttons;
  for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (ClassOf(child) != "Button" || !IsWindowVisible(child)) continue;
    buttons += GetDlgCtrlID(child) == IDOK ? "OK " : std::to_string(GetDlgCtrlID(child)) + " ";
  }
  return buttons;
}

HWND FindBox() {
  HWND found = nullptr;
  const auto look = [](HWND window, LPARAM place) -> BOOL {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window) || ClassOf(window) != kDialogClass)
      return TRUE;
    *reinterpret_cast<HWND*>(place) = window;
    return FALSE;
  };
  EnumWindows(look, reinterpret_cast<LPARAM>(&found));
  return found;
}

// Waits for a box of this process, notes what it shows and presses OK.
void AnswerBox(Box* seen) {
  for (DWORD waited = 0; waited < kPatienceInMilliseconds; waited += kPauseInMilliseconds) {
    Sleep(kPauseInMilliseconds);
    const HWND box = FindBox();
    if (box == nullptr) continue;
    *seen = {WindowText(GetDlgItem(box, kTextControl)), WindowText(box), ButtonsOf(box),
             GetWindow(box, GW_OWNER) != nullptr};
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    return;
  }
}

// What the box shows that a call brings up.
template <class Call>
Box BoxOf(Call&& call) {
  Box seen;
  std::jthread watcher(AnswerBox, &seen);
  call();
  watcher.join();
  return seen;
}

void ExpectBox(const Box& box, const std::string& text, const std::string& caption) {
  EXPECT_EQ(box.text, text);
  EXPECT_EQ(box.caption, caption);
  EXPECT_EQ(box.buttons, "OK ");
  EXPECT_FALSE(box.has_owner);
}

void ReadUnitOfUnknownType() {
  EXPECT_EQ(ReadFrom(CreateObject<IUnit>(kUnitClass), "65 00 14 00").status, E_POINTER);
}

void ReadStructureWithMemberOfUnknownType() {
  // id, name, caption, one member: its name and caption, null flag, type 20, size
  static_cast<void>(ReadFrom(CreateObject<IStructureDef>(kStructureInfoClass),
                             "01 00  00 00  00 00  01 00  00 00  00 00  00 00  00  14 00  00 00"));
}

void ReadArrayOfUnknownType() {
  // id, name, caption, count, element type 20, element size
  static_cast<void>(
      ReadFrom(CreateObject<IArrayDef>(kArrayInfoClass), "01 00  00 00  00 00  00 00  14 00  00 00"));
}

void BuildNumbersOfUnknownMember() {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_ValueType(StructureDefinition({{L"Depth", kReal}}).get()));
  Check(definition->put_ElementCount(1));
  Calculate(definition);
  const auto array = QueryFor<IArray>(NewValue(definition).get());
  Require(array, "the value is no array");
  unsigned char buffer[64] = {};
  VARIANT_BOOL built = VARIANT_TRUE;
  EXPECT_EQ(array->BuildNumericArray(Bstr(L"Height").get(), I2(kReal).get(), buffer, &built), S_OK);
  EXPECT_EQ(built, VARIANT_FALSE);
}

using MessageBoxOnADisplay = RegisteredComponent;

TEST_F(MessageBoxOnADisplay, TellsOfAUnitOfUnknownType) {
  ExpectBox(BoxOf(ReadUnitOfUnknownType), kInvalidTypeText, kInvalidTypeCaption);
}

TEST_F(MessageBoxOnADisplay, TellsOfAMemberOfUnknownType) {
  ExpectBox(BoxOf(ReadStructureWithMemberOfUnknownType), kInvalidTypeText, kInvalidTypeCaption);
}

TEST_F(MessageBoxOnADisplay, TellsOfElementsOfUnknownType) {
  ExpectBox(BoxOf(ReadArrayOfUnknownType), kInvalidTypeText, kInvalidTypeCaption);
}

TEST_F(MessageBoxOnADisplay, TellsOfAFaultyMemberPath) {
  ExpectBox(BoxOf(BuildNumbersOfUnknownMember), "Invalid index", "");
}

using MessageBoxWithoutADisplay = RegisteredComponent;

TEST_F(MessageBoxWithoutADisplay, WaitsForNobody) {
  for (void (*call)() : {ReadUnitOfUnknownType, ReadStructureWithMemberOfUnknownType, ReadArrayOfUnknownType,
                         BuildNumbersOfUnknownMember}) {
    const DWORD start = GetTickCount();
    call();
    EXPECT_LT(GetTickCount() - start, kPatienceInMilliseconds);
  }
}

}  // namespace
}  // namespace halyard::test
