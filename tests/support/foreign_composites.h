// Enumeration and array definitions of somebody else.
#pragma once

#include "halyard/definitions/array_def.h"
#include "halyard/definitions/enumeration_def.h"
#include "tests/support/foreign_definition.h"

namespace halyard::test {

// One element, the number `first`, stored as Short until a test says otherwise.
class ForeignEnumerationDefinition : public ForeignDefinitionOf<IEnumerationDef> {
 public:
  Answer<LONG> count{1};
  Answer<LONG> first{7};
  Answer<SHORT> data_type{kShort};

  HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* out) override { return count.To(out); }
  HRESULT STDMETHODCALLTYPE get_ElementName(LONG, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_ElementName(LONG, BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ElementValue(LONG, LONG* out) override { return first.To(out); }
  HRESULT STDMETHODCALLTYPE put_ElementValue(LONG, LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_DataType(SHORT* out) override { return data_type.To(out); }
  HRESULT STDMETHODCALLTYPE put_DataType(SHORT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddMember(BSTR, LONG, VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Remove(LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR*) override { return E_NOTIMPL; }
};

// An array definition that is not the library's own: a variable array of String.
class ForeignArrayDefinition : public ForeignDefinitionOf<IArrayDef> {
 public:
  Answer<LONG> count{};
  Answer<SHORT> data_type{kString};

  HRESULT STDMETHODCALLTYPE get_Count(LONG* out) override { return count.To(out); }
  HRESULT STDMETHODCALLTYPE get_DataType(SHORT* out) override { return data_type.To(out); }
  HRESULT STDMETHODCALLTYPE put_DataType(SHORT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ValueType(IValueDefBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_ValueType(IValueDefBase*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* out) override { return count.To(out); }
  HRESULT STDMETHODCALLTYPE put_ElementCount(LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR*) override { return E_NOTIMPL; }
};

}  // namespace halyard::test
