#include "values/arrays/array.h"

#include <algorithm>

#include "object/nesting.h"
#include "values/arrays/element_position.h"

namespace halyard {
namespace {

constexpr char kEmptySlot[] = "the array has an empty slot where an element is needed";

// Whether the element is a structure of fixed layout of this library, which runs nobody
// else's code.
bool IsOwnStructure(const Ptr<IValueBase>& element) {
  IInsideValue* inside = InsideOf(element.get());
  ReadyBody body;
  return inside != nullptr && inside->FindReadyBody(body);
}

}  // namespace

HRESULT Array::get_Item(VARIANT vIndex, VARIANT* pvValue) {
  return Call("Item", [&] {
    VARIANT& result = EmptyOut(pvValue);
    const Ptr<IValueBase> element =
        Require(ElementAt(ElementPosition(vIndex, [&] { return ElementCount(); })), kEmptySlot);
    Variant content;
    Check(element->get_Value(content.Out()), element);
    result = content.Detach();
  });
}

HRESULT Array::put_Item(VARIANT vIndex, VARIANT vValue) {
  return Call("Item", [&] {
    const ULONG position = ElementPosition(vIndex, [&] { return ElementCount(); });
    if (vValue.vt == VT_DISPATCH) {
      Ptr<IValueBase> object = QueryFor<IValueBase>(vValue.pdispVal);
      // The object is the client's, whose code may have shortened the array.
      if (position >= ElementCount())
        throw Error(E_INVALIDARG, "the element was removed while it was replaced");
      elements_.Put(position, std::move(object));
    } else {
      const Ptr<IValueBase> element = Require(ElementAt(position), kEmptySlot);
      Check(element->put_Value(vValue), element);
    }
  });
}

HRESULT Array::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = static_cast<LONG>(ElementCount()); });
}

HRESULT Array::Add(VARIANT vValue) {
  return Call("Add", [&] {
    if (IsFixed()) return;
    if (vValue.vt == VT_DISPATCH) {
      AddObject(vValue);
    } else {
      SHORT element_type = kInvalid;
      const Ptr<IValueDefBase> definition = ElementDefinition();
      Check(definition->get_Type(&element_type), definition);
      if (element_type <= kLastElementaryType) AddNew(vValue);
    }
  });
}

HRESULT Array::Remove(VARIANT vIndex) {
  return Call("Remove", [&] {
    if (!IsFixed()) elements_.Erase(ElementPosition(vIndex, [&] { return ElementCount(); }));
  });
}

HRESULT Array::RemoveAll() {
  return Call("RemoveAll", [&] {
    if (!IsFixed()) elements_.Resize(0);
  });
}

HRESULT Array::get_At(VARIANT vIndex, IValueBase** ppValue) {
  return Call("At", [&] {
    HandOut(ppValue, [&] { return ElementAt(ElementPosition(vIndex, [&] { return ElementCount(); })); });
  });
}

HRESULT Array::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const WalkingLevel level;
    const Ptr<Array> copy = NewObject<Array>();
    copy->type_ = type_;
    copy->fresh_definition_ = fresh_definition_;
    copy->elements_ = elements_.Outline();
    const ULONG count = copy->ElementCount();
    // The rows are copied already, as long as no element's own code can have changed them.
    bool rows_are_true = true;
    ULONG i = elements_.EndOfFresh(0);
    while (i < count && i < ElementCount()) {
      if (rows_are_true && elements_.IsPacked(i)) {
        i = elements_.EndOfPacked(i);
      } else {
        const Ptr<IValueBase> element = Require(elements_.ObjectAt(i), kEmptySlot);
        rows_are_true = rows_are_true && IsOwnStructure(element);
        Ptr<IValueBase> element_copy;
        Check(element->Copy(element_copy.Out()), element);
        copy->elements_.Put(i, std::move(element_copy));
        ++i;
      }
      i = elements_.EndOfFresh(i);
    }
    if (!rows_are_true) copy->elements_.DropRowsFrom(std::min(i, count));
    HandOut(ppCopy, Ptr<IValueBase>(copy));
  });
}

HRESULT Array::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    if (pInfo == nullptr) throw Error(E_INVALIDARG, "an array needs a definition");
    if (type_) return;
    type_.Take(pInfo);
    elements_.Resize(type_.layout().element_count);
    if (elements_.size() == 0) return;
    // One element is made at once, to learn whether the definition can make any.
    fresh_definition_ = ElementDefinition();
    Ptr<IValueBase> first = NewElement(fresh_definition_);
    elements_.FreshenUntouched();
    elements_.Put(0, std::move(first));
  });
}

Ptr<IValueDefBase> Array::ElementDefinition() const {
  return Require(type_.layout().value_type.object, "the array definition has no element definition");
}

Ptr<IValueBase> Array::NewElement(Ptr<IValueDefBase> definition) {
  Ptr<IValueBase> element;
  Check(definition->CreateDataObject(element.Out()), definition);
  return Require(element, "the element definition made no value");
}

Ptr<IValueBase> Array::ElementAt(ULONG position) {
  if (elements_.IsFresh(position)) {
    Ptr<IValueBase> element = NewElement(fresh_definition_);
    // The element definition may be the client's, whose code can have filled the slot.
    if (elements_.IsFresh(position)) elements_.Put(position, std::move(element));
  }
  return position < ElementCount() ? elements_.ObjectAt(position) : Ptr<IValueBase>();
}

Ptr<IValueBase> Array::SeenElementAt(ULONG position, Ptr<IValueBase>& sample) {
  if (!elements_.IsFresh(position)) return Require(elements_.ObjectAt(position), kEmptySlot);
  if (!sample) sample = NewElement(fresh_definition_);
  return sample;
}

void Array::AddObject(const VARIANT& value) {
  Ptr<IValueBase> object =
      Require(QueryFor<IValueBase>(value.pdispVal), "the object to be added is no value");
  const Ptr<IValueDefBase> definition = ElementDefinition();
  SHORT id = 0;
  SHORT type = kInvalid;
  SHORT element_id = 0;
  SHORT element_type = kInvalid;
  Check(object->get_Id(&id), object);
  Check(object->get_Type(&type), object);
  Check(definition->get_Type(&element_type), definition);
  Check(definition->get_Id(&element_id), definition);
  if (type == element_type && id == element_id) {
    elements_.Append(std::move(object));
  } else {
    AddNew(value);
  }
}

void Array::AddNew(const VARIANT& value) {
  Ptr<IValueBase> element = NewElement(ElementDefinition());
  Check(element->put_Value(value), element);
  elements_.Append(std::move(element));
}

void Array::MoveColumn(const NumberColumn& column, ULONG elements) {
  Ptr<IValueBase> sample;
  const bool stores = column.direction() == Direction::kRead;
  for (ULONG i = 0; i < elements && i < ElementCount();) {
    const ULONG moved = MoveRows(column, i, std::min(elements, ElementCount()));
    if (moved == 0)
      column.MoveElement(i, stores ? Require(ElementAt(i), kEmptySlot) : SeenElementAt(i, sample));
    i += std::max<ULONG>(moved, 1);
  }
}

}  // namespace halyard
