// The library's narrow form is Latin-1 here (PrepareProcess): a character is a byte.
#include "tools/halyard/platform/narrow.h"

namespace halyard::tool {

std::string BytesOfText(WideView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const OLECHAR c : text) bytes.push_back(static_cast<char>(static_cast<unsigned char>(c)));
  return bytes;
}

WideString TextOfBytes(std::string_view bytes) {
  WideString text;
  text.reserve(bytes.size());
  for (const char c : bytes) text.push_back(static_cast<unsigned char>(c));
  return text;
}

}  // namespace halyard::tool
