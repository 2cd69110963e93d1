#include "tools/halyard/number_export.h"

#include <fmt/format.h>

#include <array>

#include "tools/halyard/ascii.h"
#include "tools/halyard/client.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

constexpr LONG kBatchValues = 4096;

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
  throw Failure(ExitCode::kUsage,
                fmt::format("'{}' is no number type; there are Char, Byte, Short, Word, Long, DWord, "
                            "ShortReal and Real",
                            name));
}

Bstr PathText(const std::string& path) {
  const auto text = ToLibrary(path);
  if (!text)
    throw Failure(ExitCode::kUsage, fmt::format("the member path '{}' has no place in the encoding", path));
  return Bstr(*text);
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

NumberExport::NumberExport(Output& output, std::string path, const std::string& number_type)
    : output_(output),
      path_(std::move(path)),
      number_type_(NumberTypeNamed(number_type).code),
      width_(NumberTypeNamed(number_type).width) {}

void NumberExport::RequirePath(const Ptr<IArray>& probe) const {
  // Reading into an array judges the path without showing a message, and the array is one
  // that nobody needs.
  std::vector<unsigned char> zeros(static_cast<std::size_t>(Get<LONG>(probe, &IArray::get_Count)) * width_ +
                                   1);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(probe->ReadNumericArray(PathText(path_).get(), Variant(number_type_).get(), zeros.data(), &done),
        probe);
  if (done == VARIANT_FALSE) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("the member path '{}' names no number of {}; 'halyard defs' shows the members",
                              path_, definition_->Title()));
  }
}

void NumberExport::Prepare(const DefinitionPtr& definition) {
  Finish();
  definition_ = definition;
  if (definition->type == kArray) {
    batch_.Reset();
    Ptr<IValueBase> fresh;
    Check(definition->object->CreateDataObject(fresh.Out()), definition->object);
    RequirePath(Require(fresh.As<IArray>(), "an array has no numbers"));
  } else {
    batch_ = NewBatch(definition);
    RequirePath(batch_);
  }
}

void NumberExport::Value(const DecodedUnit& unit) {
  if (unit.definition != definition_) Prepare(unit.definition);
  if (!batch_) {
    Transfer(Require(unit.value.As<IArray>(), "an array has no numbers"));
    return;
  }
  Check(batch_->Add(Variant(static_cast<IDispatch*>(unit.value.get())).get()), batch_);
  if (Get<LONG>(batch_, &IArray::get_Count) >= kBatchValues) Finish();
}

void NumberExport::Finish() {
  if (!batch_) return;
  Transfer(batch_);
  Check(batch_->RemoveAll(), batch_);
}

void NumberExport::Transfer(const Ptr<IArray>& array) {
  buffer_.assign(static_cast<std::size_t>(Get<LONG>(array, &IArray::get_Count)) * width_, 0);
  if (buffer_.empty()) return;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(array->BuildNumericArray(PathText(path_).get(), Variant(number_type_).get(), buffer_.data(), &done),
        array);
  output_.Write(buffer_);
}

}  // namespace halyard::tool
