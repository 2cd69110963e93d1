// What the program says beside its results: to standard error, a line for each remark.
#pragma once

#include <string>

namespace halyard::tool {

// Writes "halyard: " and the text. Failures to do so are nobody's concern.
void Remark(const std::string& text);

}  // namespace halyard::tool
