// The encoding of an array of values: the count (4 bytes, only where the definition
// fixes none), then the elements as they write themselves.
//
// A count may be far beyond what a buffer can hold; reading ends with the buffer. Where
// elements take no bytes at all, a buffer never ends it: the first such element stands
// for all that follow, which stay fresh. Where an element becomes many objects for few
// bytes, reading ends when the allowance is used up.
#include "object/nesting.h"
#include "values/arrays/array.h"
#include "values/nested_value.h"
#include "values/reading_allowance.h"

namespace halyard {
namespace {

constexpr ULONG kCountBytes = 4;

ULONG DataSizeOf(const Ptr<IValueDefBase>& definition) {
  ULONG size = 0;
  Check(definition->get_DataSize(&size), definition);
  return size;
}

ULONG PacketSizeOf(const Ptr<IValueBase>& value) {
  ULONG size = 0;
  Check(value->get_PacketSize(&size), value);
  return size;
}

}  // namespace

HRESULT Array::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    ULONG size = IsFixed() ? 0 : kCountBytes;
    // An element counts the low 16 bits of its definition's size; only where they are 0
    // are the elements asked.
    const auto element_size = static_cast<std::uint16_t>(DataSizeOf(ElementDefinition()));
    if (element_size != 0) {
      size += ULONG{element_size} * ElementCount();
    } else {
      Ptr<IValueBase> sample;
      for (ULONG i = 0; i < ElementCount();) {
        const ULONG alike = elements_.IsFresh(i) ? elements_.EndOfFresh(i) - i : 1;
        size += alike * PacketSizeOf(SeenElementAt(i, sample));
        i += alike;
      }
    }
    result = size;
  });
}

bool Array::Encode(WriteCursor& cursor) {
  if (!IsFixed() && !cursor.Put(ElementCount())) return false;
  Ptr<IValueBase> sample;
  for (ULONG i = 0; i < ElementCount();) {
    if (const ULONG encoded = EncodeRows(cursor, i)) {
      i += encoded;
      continue;
    }
    const std::uint32_t start = cursor.position();
    if (!EncodeValue(*SeenElementAt(i, sample), cursor)) return false;
    i = cursor.position() == start && elements_.IsFresh(i) ? elements_.EndOfFresh(i) : i + 1;
  }
  return true;
}

bool Array::Decode(ReadCursor& cursor) {
  ULONG count = type_.layout().element_count;
  if (count == 0 && !cursor.Take(count)) return false;
  elements_.Resize(count);
  const ReadingAllowance allowance(cursor.room());
  std::uint64_t objects = 0;  // of an element, known when one is read by itself
  for (ULONG i = 0; i < count && i < ElementCount();) {
    if (const ULONG decoded = DecodeRows(cursor, i)) {
      i += decoded;
      continue;
    }
    if (objects == 0) objects = ObjectsOf(type_.layout().value_type.Known());
    if (!ReadingAllowance::Take(objects)) return false;
    const bool untouched = !elements_.ObjectAt(i);
    const bool fresh = untouched && elements_.IsFresh(i);
    const std::uint32_t start = cursor.position();
    if (!DecodeElement(cursor, i)) return false;
    ++i;
    if (untouched && cursor.position() == start) {
      // Slots that were fresh stay elements of the definition that they had.
      if (!fresh) {
        fresh_definition_ = ElementDefinition();
        elements_.FreshenUntouched();
      }
      i = elements_.EndOfFresh(i);
    }
  }
  return true;
}

bool Array::DecodeElement(ReadCursor& cursor, ULONG position) {
  if (!elements_.IsFresh(position) && !elements_.ObjectAt(position)) {
    Ptr<IValueBase> element = NewElement(ElementDefinition());
    if (position < ElementCount()) elements_.Put(position, std::move(element));
  }
  const Ptr<IValueBase> element = Require(ElementAt(position), "the element was removed while it was read");
  return DecodeValue(*element, cursor);
}

}  // namespace halyard
