// Shows a message to a person: a modal box on Windows, the program's handler elsewhere.
#pragma once

namespace halyard {

// Returns when the message was dismissed or handled. No failure is reported.
void ShowMessage(const char* text, const char* caption) noexcept;

}  // namespace halyard
