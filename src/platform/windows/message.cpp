#include "platform/message.h"

#include "halyard/platform/automation.h"

namespace halyard {

void ShowMessage(const char* text, const char* caption) noexcept {
  MessageBoxA(nullptr, text, caption, MB_OK);
}

}  // namespace halyard
