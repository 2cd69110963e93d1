// The worked examples of a document: the blocks of docs/*.md that are marked
// ```hex NAME. A line is pairs of hexadecimal digits, one blank between them, and, after
// two blanks or more, what they mean.
#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <string>

#include "tests/support/bytes.h"

namespace halyard::test {

// The bytes of each example, by its name. Throws std::runtime_error where the document
// cannot be read, two examples share a name or a block is not as described above.
std::map<std::string, Bytes> ExamplesIn(const std::string& document);

// The check of one example: encodes what the example says with the library, compares,
// and reads the example's bytes back.
struct ExampleCheck {
  const char* name;
  void (*check)(const std::string& hex);
};

// How a check appears in the test's name.
inline std::ostream& operator<<(std::ostream& out, const ExampleCheck& check) { return out << check.name; }

}  // namespace halyard::test
