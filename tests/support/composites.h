// Enumeration and array definitions in one line, and the calls on arrays that tests
// repeat.
#pragma once

#include <initializer_list>
#include <string>

#include "halyard/definitions/array_def.h"
#include "halyard/definitions/enumeration_def.h"
#include "halyard/values/arrays/array.h"
#include "tests/support/definitions.h"

namespace halyard::test {

// One element of an enumeration.
struct Element {
  const OLECHAR* name;
  LONG value;
};

// An enumeration stored as Char, Short or Long.
Ptr<IEnumerationDef> EnumerationDefinition(SHORT stored_type, std::initializer_list<Element> elements,
                                           SHORT id = 0);

// An enumeration over any stored type: it gets there through a buffer, as the property
// takes three types only. Its elements are named A, B, ... and have no numbers of their own.
Ptr<IEnumerationDef> EnumerationOver(SHORT stored_type, int elements);

// An array of that element definition and count (0: variable), with its size calculated.
Ptr<IArrayDef> ArrayDefinition(const Ptr<IValueDefBase>& element, LONG count = 0, SHORT id = 0);

// The same with a simple element definition.
Ptr<IArrayDef> SimpleArrayDefinition(SHORT type, LONG count = 0, SHORT id = 0);

// A new array value of the definition.
Ptr<IArray> NewArray(const Ptr<IValueDefBase>& definition);

// The elements by position: get described, put, the object, the number of them.
std::string Item(const Ptr<IArray>& array, LONG position);
HRESULT TryPutItem(const Ptr<IArray>& array, LONG position, const Variant& content);
void PutItem(const Ptr<IArray>& array, LONG position, const Variant& content);
Ptr<IValueBase> At(const Ptr<IArray>& array, LONG position);
LONG Count(const Ptr<IArray>& array);

// Appends elements; each call must succeed.
void Add(const Ptr<IArray>& array, const Variant& content);
void AddAll(const Ptr<IArray>& array, std::initializer_list<LONG> numbers);

// A variant that refers to an object.
Variant Object(const Ptr<IValueBase>& object);

// All elements described, a comma between them.
std::string Items(const Ptr<IArray>& array);

// The class that answers: "Array", "SimpleArray", "SimpleFixedArray", "StringArray",
// "Structure", "SimpleFixedStructure", "Enumeration", "SimpleValue", "Collection"; "none" for null.
std::string ClassOf(IUnknown* value);

}  // namespace halyard::test
