// Small helpers of the library's side: automation values without an owner where they own
// nothing, names, and files.
//
// The measured loops use VARIANT itself for numbers: a number owns nothing, so a client
// that counts nanoseconds needs no object that clears it.
#pragma once

#include <string>
#include <string_view>

#include "halyard/halyard.h"

namespace bench {

// Numbers and positions as automation values; nothing has to be cleared.
template <class N>
VARIANT Number(N value) {
  return halyard::NumberVariant(value);
}
inline VARIANT Position(LONG position) { return halyard::NumberVariant(position); }

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

// As NewFile, but records are kept back in a buffer of so many bytes.
halyard::Ptr<halyard::IOrmFile> NewBufferedFile(const std::string& path,
                                                const halyard::Ptr<halyard::IValueDefBase>& definition,
                                                LONG buffer_size);

// The value of the next record; throws where there is none.
halyard::Ptr<halyard::IValueBase> ReadValue(const halyard::Ptr<halyard::IOrmFile>& file);

}  // namespace bench
