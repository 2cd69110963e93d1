#include "tools/halyard/selection.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "tools/halyard/ascii.h"
#include "tools/halyard/counts.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/remark.h"

namespace halyard::tool {
namespace {

// A whole text as a number, where it is one.
bool TakeNumber(std::string_view text, std::uint64_t& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

// "7", "5-10" or "5-"; an empty text where it is one of them, else what is wrong.
std::string TakeRange(const std::string& text, RecordRange& range) {
  const std::size_t dash = text.find('-');
  const std::string_view view(text);
  range = {};
  bool is_good = TakeNumber(view.substr(0, dash), range.first) && range.first > 0;
  if (dash == std::string::npos) {
    range.last = range.first;
  } else if (dash + 1 < text.size()) {
    is_good = is_good && TakeNumber(view.substr(dash + 1), range.last) && range.last >= range.first;
  }
  return is_good ? "" : fmt::format("'{}' is no range of records such as 7, 5-10 or 5-", text);
}

}  // namespace

void Selection::AddDefinitionOption(Command& verb, const std::string& about) {
  verb.Option({"-d,--definition", "NAME|ID", about}, definitions_);
}

void Selection::AddOptions(Command& verb, const std::string& about) {
  AddDefinitionOption(verb, about + ", by name or id; may be given several times");
  verb.Option({"-r,--records", "N|M-N|M-", "Only these records, counted from 1 over all records of the file"},
              [this](const std::string& text) { return TakeRange(text, range_); });
}

bool Selection::HasNumber(std::uint64_t number) const noexcept {
  return number >= range_.first && number <= range_.last;
}

bool Selection::HasDefinition(const DefinitionView& definition) const {
  if (definitions_.empty()) return true;
  met_.resize(definitions_.size());
  bool is_chosen = false;
  for (std::size_t i = 0; i < definitions_.size(); ++i) {
    const bool is_this = definitions_[i] == std::to_string(definition.id) ||
                         (!definition.name.empty() && EqualIgnoringCase(definitions_[i], definition.name));
    if (is_this) met_[i] = is_chosen = true;
  }
  return is_chosen;
}

void Selection::Close(const std::string& file, std::uint64_t records, bool has_chosen) const {
  const bool is_whole = !IsOver(records);
  if (is_whole) RequireMet(file);
  if (has_chosen || !IsChoice()) return;
  Remark(is_whole
             ? fmt::format("{}: nothing was chosen; the file has {}", file, Counted(records, "record"))
             : fmt::format("{}: nothing was chosen in the records up to {}", file, Grouped(range_.last)));
}

void Selection::RequireMet(const std::string& file) const {
  met_.resize(definitions_.size());
  for (std::size_t i = 0; i < definitions_.size(); ++i) {
    if (met_[i]) continue;
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: there is no definition '{}'; 'halyard info' lists those of a file", file,
                              definitions_[i]));
  }
}

}  // namespace halyard::tool
