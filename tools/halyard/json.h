// Values as JSON documents, members in the order of their definition.
#pragma once

#include <nlohmann/json.hpp>

#include "tools/halyard/node.h"

namespace halyard::tool {

using Json = nlohmann::ordered_json;

// Numbers as numbers, texts, dates and bytes as strings, enumerations as the names of
// their elements, what was left out (and numbers that JSON has not) as null. A member
// whose name was there before gets a number behind it.
Json JsonOf(const Node& node);

// The document on one line, or indented; texts that are no UTF-8 are made some.
std::string Dumped(const Json& document, bool indented = false);

}  // namespace halyard::tool
