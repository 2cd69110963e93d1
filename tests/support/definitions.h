// Definitions and values in one line.
#pragma once

#include <initializer_list>
#include <string>

#include "halyard/classes.h"
#include "halyard/definitions/simple_value_def.h"
#include "halyard/definitions/structure_def.h"
#include "halyard/types/type_codes.h"
#include "halyard/values/value_base.h"
#include "tests/support/get.h"

namespace halyard::test {

// A simple definition of that type and, for FixedString and ByteArray, field size.
Ptr<ISimpleValueDef> SimpleDefinition(SHORT type, LONG field_size = 0);

// One simple member of a structure.
struct Member {
  const OLECHAR* name;
  SHORT type;
  SHORT field_size = 0;
  bool can_be_null = false;
};

// A structure of simple members with its layout calculated.
Ptr<IStructureDef> StructureDefinition(std::initializer_list<Member> members, SHORT id = 0,
                                       const OLECHAR* name = nullptr);

// Appends a member with a definition of its own kind; the layout is not calculated.
void AddMember(const Ptr<IStructureDef>& structure, const OLECHAR* name, IDispatch* definition,
               bool can_be_null = false);

// Calculates the size, and with it the layout.
template <class Definition>
ULONG Calculate(const Ptr<Definition>& definition) {
  return Get(definition, &IValueDefBase::CalculateDataSize);
}

// A value that the definition makes.
template <class Definition>
Ptr<IValueBase> NewValue(const Ptr<Definition>& definition) {
  return Get(definition, &IValueDefBase::CreateDataObject);
}

// A simple value of that type.
Ptr<IValueBase> SimpleValue(SHORT type, LONG field_size = 0);

// The members of a structure value by name: get described, put, and put with any status.
std::string Item(const Ptr<IValueBase>& value, const OLECHAR* member);
void PutItem(const Ptr<IValueBase>& value, const OLECHAR* member, const Variant& content);
HRESULT TryPutItem(const Ptr<IValueBase>& value, const OLECHAR* member, const Variant& content);

// The content of a value, described; and the put.
std::string ValueOf(const Ptr<IValueBase>& value);
void PutValue(const Ptr<IValueBase>& value, const Variant& content);

// Whether two references lead to one object.
bool SameObject(IUnknown* a, IUnknown* b);

}  // namespace halyard::test
