// The two bulk transfers, for the array classes that have numbers to move.
//
// A class provides `ULONG ElementCount() const` and
// `void MoveColumn(const NumberColumn&, ULONG elements)`, which moves one selected number
// of each of its first elements.
#pragma once

#include "values/arrays/array_object.h"
#include "values/arrays/numeric_transfer.h"

namespace halyard {

template <class T, class... Interfaces>
class NumericArray : public ArrayObject<T, Interfaces...> {
 public:
  HRESULT STDMETHODCALLTYPE BuildNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                              unsigned char* pBuffer, VARIANT_BOOL* pbResult) override {
    return Transfer("BuildNumericArray", {Direction::kBuild, szMemberString, vtNumberType, pBuffer},
                    pbResult);
  }

  HRESULT STDMETHODCALLTYPE ReadNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                             unsigned char* pBuffer, VARIANT_BOOL* pbResult) override {
    return Transfer("ReadNumericArray", {Direction::kRead, szMemberString, vtNumberType, pBuffer}, pbResult);
  }

 private:
  HRESULT Transfer(const char* operation, const TransferCall& call, VARIANT_BOOL* result) noexcept {
    return this->Call(operation, [&] {
      Out(result) = VARIANT_FALSE;
      const Ptr<IArrayDef> definition = this->type_.Definition();
      const Ptr<IValueDefBase> element = this->type_.layout().value_type.object;
      // The client's buffer has room for the elements that there were when he called,
      // whatever his own code does while it is asked and visited.
      const ULONG elements = this->Self().ElementCount();
      const NumberColumns selected = SelectNumbers(call, *definition, element, elements);
      if (!selected.understood) return;
      *result = VARIANT_TRUE;
      for (const NumberColumn& column : selected.columns) this->Self().MoveColumn(column, elements);
    });
  }
};

}  // namespace halyard
