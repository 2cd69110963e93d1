#include "stream/orm_help.h"

#include "halyard/classes.h"
#include "halyard/object/variant.h"
#include "halyard/types/type_codes.h"
#include "object/activation.h"
#include "types/type_names.h"
#include "values/arrays/simple_fixed_array.h"

namespace halyard {
namespace {

constexpr SHORT kPreparedTypes[] = {kShortReal, kString, kChar,  kByte, kShort,
                                    kWord,      kLong,   kDWord, kReal, kDate};

// What is added to an element's type or id to make the id of its arrays.
constexpr SHORT kPreparedId = 4700;
constexpr SHORT kClientId = 12000;

Ptr<IArrayDef> NewArrayDefinition() {
  return Require(ActivateAs<IArrayDef>(kArrayInfoClass), "no array definition could be made");
}

ULONG Calculate(const Ptr<IArrayDef>& definition) {
  ULONG size = 0;
  Check(definition->CalculateDataSize(&size), definition);
  return size;
}

Bstr ArrayName(WideView element_name) {
  WideString text = OLESTR("Array<");
  text += element_name;
  text += OLESTR(">");
  return Bstr(text);
}

Ptr<IArrayDef> PrepareDefinition(SHORT element_type) {
  const Ptr<IArrayDef> definition = NewArrayDefinition();
  Check(definition->put_Name(ArrayName(TypeCodeNameText(element_type).View()).get()), definition);
  Check(definition->put_DataType(element_type), definition);
  Check(definition->put_Id(static_cast<SHORT>(kPreparedId + element_type)), definition);
  // Simple arrays take the width of their elements from the last calculation.
  Calculate(definition);
  return definition;
}

// A definition of arrays of the client's element definition.
Ptr<IArrayDef> DefinitionOver(const Ptr<IValueDefBase>& element) {
  const Ptr<IArrayDef> definition = NewArrayDefinition();
  SHORT id = 0;
  SHORT type = kInvalid;
  Bstr name;
  Check(element->get_Name(name.Out()), element);
  Check(definition->put_Name(ArrayName(name.View()).get()), definition);
  Check(element->get_Id(&id), element);
  Check(element->get_Type(&type), element);
  Check(definition->put_Id(static_cast<SHORT>(id + kClientId)), definition);
  Check(definition->put_ValueType(element.get()), definition);
  // For simple arrays, as above. The layout of a composite element stays as it is.
  if (type <= kLastElementaryType) Calculate(definition);
  return definition;
}

Ptr<IDispatch> NewArray(const Ptr<IArrayDef>& definition) {
  Ptr<IValueBase> array;
  Check(definition->CreateDataObject(array.Out()), definition);
  return QueryFor<IDispatch>(array.get());
}

}  // namespace

OrmHelp::OrmHelp() {
  for (const SHORT type : kPreparedTypes) prepared_.push_back({type, PrepareDefinition(type)});
}

HRESULT OrmHelp::CreateArray(VARIANT vElementType, IDispatch** ppResult) {
  return Call("CreateArray", [&] {
    EmptyOut(ppResult);
    Ptr<IArrayDef> definition;
    if (vElementType.vt == VT_DISPATCH) {
      const Ptr<IValueDefBase> element = QueryFor<IValueDefBase>(vElementType.pdispVal);
      if (element) definition = DefinitionOver(element);
    } else {
      definition = FindPrepared(TypeCodeFromVariant(vElementType));
    }
    if (definition) HandOut(ppResult, [&] { return NewArray(definition); });
  });
}

HRESULT OrmHelp::CreateShellArray(VARIANT vElementType, USHORT wElementSize, LONG nElemCount,
                                  unsigned char* pDataPointer, ISimpleFixedArray** pResult) {
  return Call("CreateShellArray", [&] {
    EmptyOut(pResult);
    const Ptr<IArrayDef> definition = NewArrayDefinition();
    Check(definition->put_DataType(TypeCodeFromVariant(vElementType)), definition);
    Check(definition->put_ElementCount(nElemCount), definition);
    const std::int64_t size = std::int64_t{wElementSize} * nElemCount;
    if (size != Calculate(definition)) return;
    const Ptr<IValueDefBase> shape = QueryFor<IValueDefBase>(definition.get());
    HandOut(pResult,
            [&] { return Ptr<ISimpleFixedArray>(SimpleFixedArray::NewShell(shape.get(), pDataPointer)); });
  });
}

Ptr<IArrayDef> OrmHelp::FindPrepared(SHORT element_type) const {
  for (const Prepared& row : prepared_) {
    if (row.element_type == element_type) return row.definition;
  }
  return nullptr;
}

}  // namespace halyard
