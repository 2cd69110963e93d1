#include "tools/halyard/number_export.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>

#include "tools/halyard/ascii.h"
#include "tools/halyard/client.h"
#include "tools/halyard/counts.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/rows.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

constexpr LONG kBatchValues = 4096;
constexpr std::size_t kBatchBytes = std::size_t{1} << 20;  // of their encodings

struct NumberType {
  const char* name;
  SHORT code;
  std::size_t width;
};

constexpr std::array<NumberType, 8> kNumberTypes = {{{"Char", kChar, 1},
                                                     {"Byte", kByte, 1},
                                                     {"Short", kShort, 2},
                                                     {"Word", kWord, 2},
                                                     {"Long", kLong, 4},
                                                     {"DWord", kDWord, 4},
                                                     {"ShortReal", kShortReal, 4},
                                                     {"Real", kReal, 8}}};

const NumberType& NumberTypeNamed(const std::string& name) {
  for (const NumberType& type : kNumberTypes) {
    if (EqualIgnoringCase(type.name, name)) return type;
  }
  throw Failure(ExitCode::kUsage, fmt::format("'{}' is no number type; there are {}", name,
                                              fmt::join(NumberTypeNames(), ", ")));
}

// The path as the library takes it. The titles of parts are such paths, and names that
// were found in a file have a place in its encoding.
Bstr PathText(const MemberPath& path) { return path.steps.empty() ? Bstr() : Bstr(*ToLibrary(path.title)); }

bool IsNumberType(SHORT type) {
  return std::any_of(kNumberTypes.begin(), kNumberTypes.end(),
                     [type](const NumberType& number) { return number.code == type; });
}

// Whether a row can lack the part: a member on the way can be null, or an array on the way
// can be too short.
bool CanBeMissing(const DefinitionView* row, const MemberPath& path) {
  for (const LONG step : path.steps) {
    if (row->type == kArray) {
      if (row->element_count == 0) return true;
      row = row->element.get();
    } else {
      const MemberView& member = row->members[static_cast<std::size_t>(step)];
      if (member.can_be_null) return true;
      row = member.definition.get();
    }
  }
  return false;
}

// An empty array whose elements are values of the definition.
Ptr<IArray> NewBatch(const DefinitionPtr& definition) {
  const auto array = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(array->put_ValueType(definition->object.get()), array);
  ULONG size = 0;
  Check(array->CalculateDataSize(&size), array);
  Ptr<IValueBase> value;
  Check(array->CreateDataObject(value.Out()), array);
  return Require(value.As<IArray>(), "the values cannot be gathered in an array");
}

}  // namespace

std::vector<std::string> NumberTypeNames() {
  std::vector<std::string> names;
  for (const NumberType& type : kNumberTypes) names.emplace_back(type.name);
  return names;
}

NumberExport::NumberExport(Output& output, const std::vector<std::string>& members,
                           const std::string& number_type)
    : output_(output),
      members_(members),
      number_type_(NumberTypeNamed(number_type).code),
      width_(NumberTypeNamed(number_type).width) {}

void NumberExport::Prepare(const DefinitionPtr& definition) {
  Finish();
  definition_ = definition;
  paths_.clear();
  for (const std::string& member : members_) {
    for (MemberPath& path : ParsePath(member, definition)) paths_.push_back(std::move(path));
  }
  if (members_.empty()) paths_ = ParsePath("", definition);
  can_be_missing_ = false;
  for (const MemberPath& path : paths_) {
    if (path.steps.empty() && !path.definition->IsElementary()) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("a value of {} is no number; choose one of its members with --member; "
                                "'halyard defs' shows them",
                                definition->Title()));
    }
    if (!IsNumberType(path.definition->type)) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("'{}' of {} is {}, and --raw takes numbers of 8 to 32 bits and reals; "
                                "'halyard defs' shows the members",
                                path.title, definition->Title(), path.definition->TypeText()));
    }
    can_be_missing_ = can_be_missing_ || CanBeMissing(RowDefinition(definition).get(), path);
  }
  batch_ = definition->type == kArray ? Ptr<IArray>() : NewBatch(definition);
}

void NumberExport::Value(const std::string& file, const Record& record, const DecodedUnit& unit) {
  if (unit.definition != definition_) Prepare(unit.definition);
  if (can_be_missing_) RequireNumbers(file, record, unit);
  if (!batch_) {
    Transfer(Require(unit.value.As<IArray>(), "an array has no numbers"));
    return;
  }
  Check(batch_->Add(Variant(static_cast<IDispatch*>(unit.value.get())).get()), batch_);
  batch_bytes_ += unit.used;
  if (batch_bytes_ >= kBatchBytes || Get<LONG>(batch_, &IArray::get_Count) >= kBatchValues) Finish();
}

void NumberExport::RequireNumbers(const std::string& file, const Record& record,
                                  const DecodedUnit& unit) const {
  const Rows rows(unit.value, *unit.definition);
  for (LONG i = 0; i < rows.Count(); ++i) {
    const Node row = rows.Row(i);
    for (const MemberPath& path : paths_) {
      if (!Follow(row, path).IsNull()) continue;
      throw Failure(
          ExitCode::kUsage,
          fmt::format("{}: offset {}, record {}: there is no {}, and raw numbers have no gaps; export "
                      "a table, or choose records that have it",
                      file, Grouped(record.offset), rows.Label(record.number, i), path.title));
    }
  }
}

void NumberExport::Finish() {
  if (!batch_) return;
  Transfer(batch_);
  Check(batch_->RemoveAll(), batch_);
  batch_bytes_ = 0;
}

// Each part is fetched by itself; several are put together number by number.
void NumberExport::Transfer(const Ptr<IArray>& array) {
  const auto count = static_cast<std::size_t>(Get<LONG>(array, &IArray::get_Count));
  if (count == 0) return;
  std::vector<unsigned char> column(count * width_);
  std::vector<unsigned char> numbers(paths_.size() == 1 ? 0 : count * width_ * paths_.size());
  for (std::size_t i = 0; i < paths_.size(); ++i) {
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(array->BuildNumericArray(PathText(paths_[i]).get(), Variant(number_type_).get(), column.data(),
                                   &done),
          array);
    if (done == VARIANT_FALSE) {
      throw Failure(ExitCode::kUsage, fmt::format("the library does not understand the member path '{}'; its "
                                                  "names hold dots or brackets",
                                                  paths_[i].title));
    }
    for (std::size_t row = 0; !numbers.empty() && row < count; ++row) {
      std::copy_n(column.data() + row * width_, width_, numbers.data() + (row * paths_.size() + i) * width_);
    }
  }
  output_.Write(numbers.empty() ? column : numbers);
}

}  // namespace halyard::tool
