// StringArray: an array of texts, kept narrow.
#pragma once

#include <string>

#include "halyard/values/arrays/string_array.h"
#include "object/sparse_list.h"
#include "values/arrays/array_object.h"

namespace halyard {

class StringArray : public ArrayObject<StringArray, IStringArray> {
 public:
  static constexpr char kClassName[] = "StringArray";

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override;
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) override;
  HRESULT STDMETHODCALLTYPE Add(VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  // Texts are no numbers: both transfers do nothing and answer false.
  HRESULT STDMETHODCALLTYPE BuildNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                              unsigned char* pBuffer, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE ReadNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                             unsigned char* pBuffer, VARIANT_BOOL* pbResult) override;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

 private:
  // The fixed element count of the definition, asked anew each time; 0 for an array of
  // variable length.
  ULONG FixedCount() const;

  // The text at a position; the empty text where none was ever stored.
  const std::string& TextAt(std::uint32_t position) const noexcept;

  // Converts the value and stores its narrow form up to the first zero.
  void Store(std::uint32_t position, const VARIANT& value);

  SparseList<std::string> texts_;
};

}  // namespace halyard
