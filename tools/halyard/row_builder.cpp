#include "tools/halyard/row_builder.h"

#include <fmt/format.h>

#include "tools/halyard/cell_content.h"
#include "tools/halyard/client.h"
#include "tools/halyard/column_paths.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kShownText = 60;  // columns of a text in a message

// The object that holds the last part of a path.
Ptr<IValueBase> HolderOf(const Ptr<IValueBase>& row, const MemberPath& path) {
  Ptr<IValueBase> holder = row;
  for (std::size_t i = 0; i + 1 < path.steps.size(); ++i) {
    Ptr<IValueBase> next;
    Check(holder->get_At(Variant(path.steps[i]).get(), next.Out()), holder);
    holder = Require(next, "a member has no object");
  }
  return holder;
}

}  // namespace

RowBuilder::RowBuilder(DefinitionPtr definition, std::vector<MemberPath> columns)
    : definition_(std::move(definition)),
      columns_(std::move(columns)),
      absent_(AbsentMembers(definition_, columns_)) {}

Ptr<IValueBase> RowBuilder::Build(const CsvRow& row, const CsvReader& reader) const {
  reader.RequireFields(row.size(), columns_.size());
  Ptr<IValueBase> value;
  Check(definition_->object->CreateDataObject(value.Out()), definition_->object);
  for (std::size_t i = 0; i < row.size(); ++i) Put(value, columns_[i], row[i], reader);
  for (const MemberPath& path : absent_) LeaveOut(value, path);
  return value;
}

void RowBuilder::LeaveOut(const Ptr<IValueBase>& row, const MemberPath& path) const {
  if (!path.can_be_null) return;
  const Ptr<IValueBase> holder = HolderOf(row, path);
  Check(holder->put_Item(Variant(path.steps.back()).get(), Variant::Null().get()), holder);
}

void RowBuilder::Put(const Ptr<IValueBase>& row, const MemberPath& path, const CsvField& field,
                     const CsvReader& reader) const {
  const auto fail = [&](const std::string& why) {
    reader.Fail(fmt::format("column {}: '{}' {}", path.title, Shortened(field.text, kShownText), why));
  };
  try {
    Variant content = Variant::Null();
    if (!field.IsMissing() || !path.can_be_null) {
      const bool is_text = path.definition->type == kString || path.definition->type == kFixedString;
      if (field.IsMissing() && !is_text) throw Misfit{"is missing, and the member cannot be left out"};
      content = CellContent(field.text, *path.definition);
    }
    const Ptr<IValueBase> holder = HolderOf(row, path);
    Check(holder->put_Item(Variant(path.steps.back()).get(), content.get()), holder);
  } catch (const Misfit& misfit) {
    fail(misfit.why);
  } catch (const Error& error) {
    fail("does not fit into " + path.definition->TypeText() + ": " + Explanation(error));
  }
}

}  // namespace halyard::tool
