// Receives the messages that the library shows, in place of a person.
#pragma once

#include <string>

namespace halyard::test {

// While one lives, messages are recorded and shown to nobody. One at a time.
class MessageRecorder {
 public:
  MessageRecorder();
  ~MessageRecorder();
  MessageRecorder(const MessageRecorder&) = delete;
  MessageRecorder& operator=(const MessageRecorder&) = delete;

  // Every message so far, a line each: "caption: text\n".
  [[nodiscard]] std::string Shown() const;
};

}  // namespace halyard::test
