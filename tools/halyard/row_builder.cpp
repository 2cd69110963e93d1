#include "tools/halyard/row_builder.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "tools/halyard/client.h"
#include "tools/halyard/column_form.h"
#include "tools/halyard/framing.h"
#include "tools/halyard/text.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kLongestText = 65535;
constexpr std::size_t kShownText = 60;  // columns of a text in a message

// A text that its member cannot hold; the end of a sentence.
struct Misfit {
  std::string why;
};

Variant TextContent(const std::string& text, const DefinitionView& definition) {
  const auto wide = ToLibrary(text);
  if (!wide) {
    throw Misfit{fmt::format(
        "has a character that has no place in {}; --encoding utf-8 has one for every text", TextFormName())};
  }
  const std::size_t room = definition.type == kFixedString ? definition.data_size : kLongestText;
  if (wide->size() > room)
    throw Misfit{fmt::format("has {} bytes, and there is room for {}", wide->size(), room)};
  return Variant(WideView(*wide));
}

Variant WholeNumber(const std::string& text) {
  const auto number = ParseInteger(text);
  if (!number || *number < std::numeric_limits<LONG>::min() || *number > std::numeric_limits<LONG>::max()) {
    throw Misfit{"is no whole number of 32 bits"};
  }
  return Variant(static_cast<LONG>(*number));
}

Variant EnumerationNumber(const std::string& text, const DefinitionView& definition) {
  for (const ElementView& element : definition.elements) {
    if (element.name == text) return Variant(element.number);
  }
  if (!ParseInteger(text)) throw Misfit{"is none of the elements of " + definition.Title()};
  return WholeNumber(text);
}

Variant Content(const std::string& text, const DefinitionView& definition) {
  switch (definition.type) {
    case kString:
    case kFixedString:
      return TextContent(text, definition);
    case kShortReal:
    case kReal: {
      const auto number = ParseNumber(text);
      if (!number) throw Misfit{"is no number"};
      return Variant(*number);
    }
    case kDate: {
      const auto date = ParseDate(text);
      if (!date) throw Misfit{"is no date such as 2004-03-15 or 2004-03-15 12:30:45"};
      return Variant::FromDate(*date);
    }
    case kEnumeration:
      return EnumerationNumber(text, definition);
    default:
      if (definition.type < kChar || definition.type > kInt64) {
        throw Misfit{
            fmt::format("cannot be stored: nothing makes a value of {} from a text", definition.TypeText())};
      }
      return WholeNumber(text);
  }
}

// The object that holds the last part of a path, and whether that part can be null.
struct Holder {
  Ptr<IValueBase> object;
  bool can_be_null = false;
};

Holder HolderOf(const Ptr<IValueBase>& row, const DefinitionView& definition, const MemberPath& path) {
  Holder holder{row, false};
  const DefinitionView* level = &definition;
  for (std::size_t i = 0; i < path.steps.size(); ++i) {
    const bool is_structure = level->type == kStructure;
    const MemberView* member =
        is_structure ? &level->members[static_cast<std::size_t>(path.steps[i])] : nullptr;
    holder.can_be_null = is_structure && member->can_be_null;
    level = is_structure ? member->definition.get() : level->element.get();
    if (i + 1 == path.steps.size()) break;
    Ptr<IValueBase> next;
    Check(holder.object->get_At(Variant(path.steps[i]).get(), next.Out()), holder.object);
    holder.object = Require(next, "a member has no object");
  }
  return holder;
}

}  // namespace

RowBuilder::RowBuilder(DefinitionPtr definition, std::vector<MemberPath> columns)
    : definition_(std::move(definition)), columns_(std::move(columns)) {
  for (MemberPath& path : AllPaths(definition_)) {
    const bool is_filled = std::any_of(columns_.begin(), columns_.end(), [&](const MemberPath& column) {
      return column.steps.size() >= path.steps.size() &&
             std::equal(path.steps.begin(), path.steps.end(), column.steps.begin());
    });
    if (!is_filled) absent_.push_back(std::move(path));
  }
}

Ptr<IValueBase> RowBuilder::Build(const CsvRow& row, const CsvReader& reader) const {
  if (row.size() != columns_.size()) {
    reader.Fail(fmt::format("there are {} fields instead of {}", row.size(), columns_.size()));
  }
  Ptr<IValueBase> value;
  Check(definition_->object->CreateDataObject(value.Out()), definition_->object);
  for (std::size_t i = 0; i < row.size(); ++i) Put(value, columns_[i], row[i], reader);
  for (const MemberPath& path : absent_) LeaveOut(value, path);
  return value;
}

void RowBuilder::LeaveOut(const Ptr<IValueBase>& row, const MemberPath& path) const {
  const Holder holder = HolderOf(row, *definition_, path);
  if (!holder.can_be_null) return;
  Check(holder.object->put_Item(Variant(path.steps.back()).get(), Variant::Null().get()), holder.object);
}

void RowBuilder::Put(const Ptr<IValueBase>& row, const MemberPath& path, const CsvField& field,
                     const CsvReader& reader) const {
  const auto fail = [&](const std::string& why) {
    reader.Fail(fmt::format("column {}: '{}' {}", path.title, Shortened(field.text, kShownText), why));
  };
  try {
    const Holder holder = HolderOf(row, *definition_, path);
    Variant content = Variant::Null();
    if (!field.IsMissing() || !holder.can_be_null) {
      const bool is_text = path.definition->type == kString || path.definition->type == kFixedString;
      if (field.IsMissing() && !is_text) throw Misfit{"is missing, and the member cannot be left out"};
      content = Content(field.text, *path.definition);
    }
    Check(holder.object->put_Item(Variant(path.steps.back()).get(), content.get()), holder.object);
  } catch (const Misfit& misfit) {
    fail(misfit.why);
  } catch (const Error& error) {
    fail("does not fit into " + path.definition->TypeText() + ": " + Explanation(error));
  }
}

}  // namespace halyard::tool
