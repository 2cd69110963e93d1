// A file whose records are numbered, so that a reader can say which of them are there.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "tests/support/handles.h"
#include "tests/support/streams.h"

namespace halyard::test {

// {Number Long, Text String}; id 1.
inline Ptr<IStructureDef> NumberedDefinition() {
  return StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Text"), kString}}, 1);
}

// Writes records first, first + 1, ... until one is refused or `count` are written; how
// many were reported as written.
inline LONG WriteNumbered(const Ptr<IOrmFile>& file, const Ptr<IStructureDef>& definition, LONG first,
                          LONG count) {
  const auto record = NewValue(definition);
  for (LONG i = 0; i < count; ++i) {
    PutItem(record, OLESTR("Number"), I4(first + i));
    PutItem(record, OLESTR("Text"),
            Variant(WideView(WideString(static_cast<std::size_t>((first + i) % 50), OLESTR('t')))));
    VARIANT_BOOL done = VARIANT_FALSE;
    if (FAILED(file->WriteData(record.get(), &done)) || done == VARIANT_FALSE) return i;
  }
  return count;
}

// The number of a record that was read whole; none for anything else.
inline std::optional<LONG> NumberOf(const Ptr<IUnit>& unit) {
  Ptr<IValueBase> value;
  if (FAILED(unit->get_Value(value.Out())) || !value) return std::nullopt;
  const Variant number = Get(value, &IValueBase::get_Item, Text(OLESTR("Number")));
  const Variant text = Get(value, &IValueBase::get_Item, Text(OLESTR("Text")));
  if (number.type() != VT_I4 || text.type() != VT_BSTR) return std::nullopt;
  const auto length = static_cast<LONG>(ViewOf(text->bstrVal).size());
  return length == number->lVal % 50 ? std::optional(number->lVal) : std::nullopt;
}

// Reads on until the file gives no more; the numbers of the records that were whole.
inline std::vector<LONG> ReadNumbered(const Ptr<IOrmFile>& file) {
  std::vector<LONG> numbers;
  for (;;) {
    Ptr<IUnit> unit;
    if (FAILED(file->ReadUnit(unit.Out())) || !unit) return numbers;
    if (const auto number = NumberOf(unit)) numbers.push_back(*number);
  }
}

// The same of a file by name.
inline std::vector<LONG> NumbersIn(const TempFile& place) {
  const auto file = NewFile();
  return OpenForRead(file, place.name()) ? ReadNumbered(file) : std::vector<LONG>();
}

}  // namespace halyard::test
