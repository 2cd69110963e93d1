#include "definitions/enumeration_number.h"

#include "halyard/types/type_codes.h"

namespace halyard {
namespace {

template <class N>
bool Take(ReadCursor& cursor, LONG& value) noexcept {
  N number = 0;
  if (!cursor.Take(number)) return false;
  value = number;
  return true;
}

}  // namespace

std::size_t EnumerationNumberWidth(SHORT type) noexcept {
  switch (type) {
    case kChar:
      return 1;
    case kShort:
      return 2;
    case kLong:
      return 4;
    default:
      return 0;
  }
}

bool TakeEnumerationNumber(ReadCursor& cursor, SHORT type, LONG& value) noexcept {
  switch (type) {
    case kChar:
      return Take<std::int8_t>(cursor, value);
    case kShort:
      return Take<std::int16_t>(cursor, value);
    case kLong:
      return Take<LONG>(cursor, value);
    default:
      return true;
  }
}

bool PutEnumerationNumber(WriteCursor& cursor, SHORT type, LONG value) noexcept {
  return cursor.PutBytes(&value, EnumerationNumberWidth(type));
}

}  // namespace halyard
