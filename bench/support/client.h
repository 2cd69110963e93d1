// Small helpers of the library's side: automation values without an owner where they own
// nothing, names, and files.
//
// The measured loops use VARIANT itself for numbers: a number owns nothing, so a client
// that counts nanoseconds needs no object that clears it.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "halyard/halyard.h"

namespace bench {

// A number as an automation value: its type in the first word, its bits in the second.
//
// The two words are put together in a register and stored at once. A VARIANT travels by
// value, so it is copied as soon as it is made; a processor hands a copy what one store has
// written, but waits where it must collect the copy from a store of two bytes and another
// of four.
inline VARIANT FromBits(VARTYPE type, std::uint64_t bits) {
  using TwoWords = std::uint64_t __attribute__((vector_size(16)));
  const TwoWords words = {type, bits};
  VARIANT result;
  std::memcpy(&result, &words, sizeof words);
  result.record.pRecInfo = nullptr;
  return result;
}

// Numbers and positions; nothing has to be cleared.
inline VARIANT Number(LONG value) { return FromBits(VT_I4, static_cast<ULONG>(value)); }
inline VARIANT Number(SHORT value) { return FromBits(VT_I2, static_cast<USHORT>(value)); }
inline VARIANT Number(BYTE value) { return FromBits(VT_UI1, value); }
inline VARIANT Number(float value) { return FromBits(VT_R4, std::bit_cast<ULONG>(value)); }
inline VARIANT Number(double value) { return FromBits(VT_R8, std::bit_cast<std::uint64_t>(value)); }
inline VARIANT Position(LONG position) { return Number(position); }

// A member of a record by its position, where it is a number.
inline VARIANT NumberOf(halyard::IValueBase& record, const VARIANT& index) {
  VARIANT value;
  value.vt = VT_EMPTY;
  halyard::Check(record.get_Item(index, &value));
  return value;
}

// A text of ASCII characters as the library takes it.
halyard::Bstr Name(std::string_view ascii);
halyard::Variant TextValue(std::string_view ascii);

// A new structure definition with that id, without members.
halyard::Ptr<halyard::IStructureDef> NewStructure(SHORT id);

// Adds a member of an elementary type.
void AddMember(const halyard::Ptr<halyard::IStructureDef>& definition, std::string_view name,
               halyard::TypeCode type);

// Works out the layout of a definition, after its last change.
void Calculate(const halyard::Ptr<halyard::IValueDefBase>& definition);

// A new value of the definition.
halyard::Ptr<halyard::IValueBase> NewValue(const halyard::Ptr<halyard::IValueDefBase>& definition);

// Opens a file of units; throws where that fails. Writing begins with the definition.
halyard::Ptr<halyard::IOrmFile> NewFile(const std::string& path,
                                        const halyard::Ptr<halyard::IValueDefBase>& definition);
halyard::Ptr<halyard::IOrmFile> OpenFile(const std::string& path);

// The value of the next record; throws where there is none.
halyard::Ptr<halyard::IValueBase> ReadValue(const halyard::Ptr<halyard::IOrmFile>& file);

}  // namespace bench
