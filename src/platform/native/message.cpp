#include "platform/message.h"

#include <atomic>
#include <cstdio>

#include "halyard/platform/messages.h"

namespace halyard {
namespace {

void WriteToStandardError(const char* text, const char* caption) {
  std::fprintf(stderr, *caption == '\0' ? "%s%s\n" : "%s: %s\n", caption, text);
}

std::atomic<MessageHandler> g_handler{nullptr};

}  // namespace

MessageHandler SetMessageHandler(MessageHandler handler) noexcept { return g_handler.exchange(handler); }

void ShowMessage(const char* text, const char* caption) noexcept {
  const MessageHandler handler = g_handler.load();
  (handler != nullptr ? handler : WriteToStandardError)(text, caption);
}

}  // namespace halyard
