#include "tests/support/composites.h"

#include "halyard/values/arrays/simple_array.h"
#include "halyard/values/arrays/string_array.h"
#include "halyard/values/collection.h"
#include "halyard/values/enumeration.h"
#include "halyard/values/simple_value.h"
#include "halyard/values/structure.h"
#include "tests/support/encoding.h"

namespace halyard::test {

Ptr<IEnumerationDef> EnumerationDefinition(SHORT stored_type, std::initializer_list<Element> elements,
                                           SHORT id) {
  auto definition = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  Check(definition->put_Id(id));
  Check(definition->put_DataType(stored_type));
  for (const Element& element : elements) {
    VARIANT_BOOL added = VARIANT_FALSE;
    Check(definition->AddMember(Bstr(element.name).get(), element.value, &added));
    EXPECT_EQ(added, VARIANT_TRUE);
  }
  return definition;
}

Ptr<IEnumerationDef> EnumerationOver(SHORT stored_type, int elements) {
  Bytes bytes = Join({Hex("00 00 00 00 00 00"), LittleEndian(static_cast<USHORT>(stored_type), 2),
                      LittleEndian(static_cast<unsigned>(elements), 2)});
  for (int i = 0; i < elements; ++i) {
    bytes = Join({bytes, Hex("01 00"), Bytes(1, static_cast<unsigned char>('A' + i))});
  }
  auto definition = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  EXPECT_EQ(ReadFrom(definition, bytes), Moved(static_cast<ULONG>(bytes.size())));
  return definition;
}

Ptr<IArrayDef> ArrayDefinition(const Ptr<IValueDefBase>& element, LONG count, SHORT id) {
  auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_ValueType(element.get()));
  Check(definition->put_ElementCount(count));
  Check(definition->put_Id(id));
  Calculate(definition);
  return definition;
}

Ptr<IArrayDef> SimpleArrayDefinition(SHORT type, LONG count, SHORT id) {
  return ArrayDefinition(SimpleDefinition(type), count, id);
}

Ptr<IArray> NewArray(const Ptr<IValueDefBase>& definition) {
  auto array = NewValue(definition).As<IArray>();
  EXPECT_TRUE(array);
  return array;
}

std::string Item(const Ptr<IArray>& array, LONG position) {
  return Describe(Get(array, &IValueBase::get_Item, I4(position)));
}

HRESULT TryPutItem(const Ptr<IArray>& array, LONG position, const Variant& content) {
  return array->put_Item(I4(position).get(), content.get());
}

void PutItem(const Ptr<IArray>& array, LONG position, const Variant& content) {
  EXPECT_EQ(TryPutItem(array, position, content), S_OK);
}

Ptr<IValueBase> At(const Ptr<IArray>& array, LONG position) {
  return Get(array, &IValueBase::get_At, I4(position));
}

LONG Count(const Ptr<IArray>& array) { return Get(array, &IValueBase::get_Count); }

void Add(const Ptr<IArray>& array, const Variant& content) { EXPECT_EQ(array->Add(content.get()), S_OK); }

void AddAll(const Ptr<IArray>& array, std::initializer_list<LONG> numbers) {
  for (const LONG number : numbers) Add(array, I4(number));
}

Variant Object(const Ptr<IValueBase>& object) { return Variant(static_cast<IDispatch*>(object.get())); }

std::string Items(const Ptr<IArray>& array) {
  std::string result;
  const LONG count = Count(array);
  for (LONG i = 0; i < count; ++i) result += (i == 0 ? "" : ", ") + Item(array, i);
  return result;
}

std::string ClassOf(IUnknown* value) {
  const Ptr<IUnknown> object(value);
  if (!object) return "none";
  if (object.As<IStringArray>()) return "StringArray";
  if (object.As<ISimpleFixedArray>()) return "SimpleFixedArray";
  if (object.As<ISimpleArray>()) return "SimpleArray";
  if (object.As<IArrayImpl>()) return "Array";
  if (object.As<ISimpleFixedStructure>()) return "SimpleFixedStructure";
  if (object.As<IStructure>()) return "Structure";
  if (object.As<IEnumeration>()) return "Enumeration";
  if (object.As<ISimpleValue>()) return "SimpleValue";
  if (object.As<ICollection>()) return "Collection";
  return "unknown";
}

}  // namespace halyard::test
