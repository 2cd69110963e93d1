#include "tests/docs/document_examples.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace halyard::test {
namespace {

constexpr std::string_view kOpening = "```hex ";
constexpr std::string_view kClosing = "```";
constexpr std::string_view kRemark = "  ";

Bytes BytesOfLine(const std::string& line) {
  const std::string digits = line.substr(0, line.find(kRemark));
  if (digits.empty() || digits.find_first_not_of("0123456789ABCDEF ") != std::string::npos ||
      digits.size() % 3 != 2) {
    throw std::runtime_error("this line of an example has no bytes: " + line);
  }
  return Hex(digits);
}

Bytes BytesOfBlock(std::istream& text) {
  Bytes bytes;
  for (std::string line; std::getline(text, line);) {
    if (line == kClosing) return bytes;
    bytes = Join({bytes, BytesOfLine(line)});
  }
  throw std::runtime_error("an example has no end");
}

}  // namespace

std::map<std::string, Bytes> ExamplesIn(const std::string& document) {
  std::ifstream text(HALYARD_SOURCE_DIR "/" + document);
  if (!text) throw std::runtime_error("cannot open " + document);
  std::map<std::string, Bytes> examples;
  for (std::string line; std::getline(text, line);) {
    if (!line.starts_with(kOpening)) continue;
    const std::string name = line.substr(kOpening.size());
    if (!examples.emplace(name, BytesOfBlock(text)).second) {
      throw std::runtime_error("two examples are called " + name);
    }
  }
  return examples;
}

}  // namespace halyard::test
