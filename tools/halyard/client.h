// Short forms of the calls that every part of this client makes.
#pragma once

#include <string>

#include "halyard/halyard.h"

namespace halyard::tool {

// Get<SHORT>(value, &IValueBase::get_Type): the out value of a call that must succeed;
// Error is raised otherwise. Strings and interfaces come in their owners.
template <class T, class Object, class I>
T Get(const Ptr<Object>& object, HRESULT (STDMETHODCALLTYPE I::*method)(T*)) {
  T value{};
  Check((object.get()->*method)(&value), object);
  return value;
}

template <class Object, class I>
Bstr GetText(const Ptr<Object>& object, HRESULT (STDMETHODCALLTYPE I::*method)(BSTR*)) {
  Bstr text;
  Check((object.get()->*method)(text.Out()), object);
  return text;
}

// The content of the member or element at a position.
inline Variant Item(const Ptr<IValueBase>& value, LONG index) {
  Variant item;
  Check(value->get_Item(Variant(index).get(), item.Out()), value);
  return item;
}

// The value behind a VT_DISPATCH content; empty for any other content.
inline Ptr<IValueBase> ObjectIn(const Variant& content) {
  if (content.type() != VT_DISPATCH) return {};
  return QueryFor<IValueBase>(content->pdispVal);
}

// What an Error says, for people.
std::string Explanation(const Error& error);

}  // namespace halyard::tool
