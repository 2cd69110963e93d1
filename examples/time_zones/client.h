// Small helpers of this client: texts on their way in and out, and the calls that every
// step makes.
//
// Texts lie in a file of units as 8-bit characters. This program keeps UTF-8 in them, so
// that no character of the table is lost: it chooses Latin-1 as the narrow form, in which
// each of the 256 characters is the byte of the same number, and hands every byte of a
// UTF-8 text over as one character.
#pragma once

#include <string>
#include <string_view>

#include "halyard/halyard.h"

namespace time_zones {

// Chooses the narrow form described above. Call it before anything else.
void KeepBytesOfTexts();

// A UTF-8 text as the library takes it, and back.
halyard::WideString ToLibrary(std::string_view utf8);
std::string FromLibrary(halyard::WideView text);

// A name or text as an argument.
halyard::Bstr Text(std::string_view utf8);
halyard::Variant TextVariant(std::string_view utf8);

// Throws std::runtime_error with the words, where the outcome of a call is false.
void Demand(bool outcome, const std::string& otherwise);
inline void Demand(VARIANT_BOOL outcome, const std::string& otherwise) {
  Demand(outcome != VARIANT_FALSE, otherwise);
}

// The content of a member, by its name.
halyard::Variant GetMember(const halyard::Ptr<halyard::IValueBase>& record, std::string_view name);
void PutMember(const halyard::Ptr<halyard::IValueBase>& record, std::string_view name,
               const halyard::Variant& value);

// A member that is an object of its own, by its name. Throws where there is none.
halyard::Ptr<halyard::IValueBase> MemberObject(const halyard::Ptr<halyard::IValueBase>& record,
                                               std::string_view name);

// The members of a structure definition, and one of them by position.
LONG CountMembers(const halyard::Ptr<halyard::IStructureDef>& definition);
std::string MemberName(const halyard::Ptr<halyard::IStructureDef>& definition, LONG index);
halyard::Ptr<halyard::IValueDefBase> MemberDefinition(const halyard::Ptr<halyard::IStructureDef>& definition,
                                                      LONG index);
bool MemberCanBeNull(const halyard::Ptr<halyard::IStructureDef>& definition, LONG index);

// The type code of a definition.
SHORT TypeOf(const halyard::Ptr<halyard::IValueDefBase>& definition);

}  // namespace time_zones
