// The two messages that the library shows a person: "Invalid type" when a reader meets
// an unknown type code, and the fault of a member path.
//
// On Windows they are modal message boxes. Elsewhere a handler receives them; the
// default one writes a line to standard error.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

#ifndef _WIN32

// Receives a message: a text and a caption, zero-terminated and narrow, valid during
// the call only. It runs on the thread whose call met the fault and must not throw.
using MessageHandler = void (*)(const char* text, const char* caption);

// Makes `handler` receive the messages of the process; null restores the default.
// Returns the handler that was in force, null for the default.
MessageHandler SetMessageHandler(MessageHandler handler) noexcept;

#endif

}  // namespace halyard
