// Array: an array whose elements are value objects, made by the element definition of
// its definition.
#pragma once

#include "halyard/values/arrays/array.h"
#include "values/arrays/element_store.h"
#include "values/arrays/numeric_array.h"

namespace halyard {

class Array : public NumericArray<Array, IArrayImpl> {
 public:
  static constexpr char kClassName[] = "Array";

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override;
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE Add(VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE get_At(VARIANT vIndex, IValueBase** ppValue) override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool FindReadyBody(ReadyBody& body) override;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

  [[nodiscard]] ULONG ElementCount() const noexcept { return elements_.size(); }
  void MoveColumn(const NumberColumn& column, ULONG elements);

 private:
  // Whether the definition fixes the number of elements. Raises E_POINTER without one.
  [[nodiscard]] bool IsFixed() const { return type_.layout().element_count != 0; }

  // The element definition, held; raises E_POINTER without one.
  Ptr<IValueDefBase> ElementDefinition() const;

  // A new element of an element definition.
  static Ptr<IValueBase> NewElement(Ptr<IValueDefBase> definition);

  // The element to work on, made where its slot is fresh; none for an empty slot.
  Ptr<IValueBase> ElementAt(ULONG position);

  // The element to look at. A fresh slot stays fresh: fresh elements look alike, so all
  // of a call are seen through `sample`, which is made when first needed. Raises
  // E_POINTER for an empty slot.
  Ptr<IValueBase> SeenElementAt(ULONG position, Ptr<IValueBase>& sample);

  // Appends what a client adds: an object of the element type and id itself, else a new
  // element that has taken the value.
  void AddObject(const VARIANT& value);
  void AddNew(const VARIANT& value);

  [[nodiscard]] bool DecodeElement(ReadCursor& cursor, ULONG position);

  // The packed elements from `position` on, as many as can be read, written or moved at
  // once; 0 where the element there must be looked at by itself.
  ULONG DecodeRows(ReadCursor& cursor, ULONG position);
  ULONG DecodeNewRows(ReadCursor& cursor, ULONG position, ULONG open);
  ULONG EncodeRows(WriteCursor& cursor, ULONG position);
  ULONG MoveRows(const NumberColumn& column, ULONG position, ULONG end);

  // Packs fresh elements that a column is about to store numbers in.
  void PackFresh(const NumberColumn& column, ULONG position, ULONG end);

  ElementStore elements_;

  // Makes the elements of fresh slots: the element definition when they became fresh.
  Ptr<IValueDefBase> fresh_definition_;
};

}  // namespace halyard
