#include "tools/halyard/json.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

#include "tools/halyard/scalar_text.h"

namespace halyard::tool {
namespace {

constexpr int kIndent = 2;

// A single as the number that people see: 0.1, not 0.10000000149011612.
double Shown(float number) {
  return std::isfinite(number) ? std::strtod(NumberText(number).c_str(), nullptr) : number;
}

Json ScalarJson(const Node& node) {
  const Variant& content = node.content();
  if (!node.IsNumber()) return node.Text();
  switch (content.type()) {
    case VT_UI1:
      return content->bVal;
    case VT_I2:
      return content->iVal;
    case VT_R4:
      return Shown(content->fltVal);
    case VT_R8:
      return content->dblVal;
    default:
      return content->lVal;
  }
}

std::string FreeName(const Json& object, const std::string& name) {
  std::string result = name;
  for (int i = 2; object.contains(result); ++i) result = fmt::format("{} {}", name, i);
  return result;
}

}  // namespace

Json JsonOf(const Node& node) {
  if (node.IsNull()) return nullptr;
  if (!node.HasChildren()) return ScalarJson(node);
  const bool is_structure = node.definition().type == kStructure;
  Json result = is_structure ? Json::object() : Json::array();
  const LONG count = node.Count();
  for (LONG i = 0; i < count; ++i) {
    Json child = JsonOf(node.Child(i));
    if (is_structure) {
      result[FreeName(result, node.definition().members[static_cast<std::size_t>(i)].name)] =
          std::move(child);
    } else {
      result.push_back(std::move(child));
    }
  }
  return result;
}

std::string Dumped(const Json& document, bool indented) {
  return document.dump(indented ? kIndent : -1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace halyard::tool
