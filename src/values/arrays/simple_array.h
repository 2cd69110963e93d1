// SimpleArray: a growable array of elementary values in a block of its own.
#pragma once

#include "values/arrays/simple_array_object.h"
#include "values/arrays/zero_block.h"

namespace halyard {

class SimpleArray : public SimpleArrayObject<SimpleArray, ISimpleArray> {
 public:
  static constexpr char kClassName[] = "SimpleArray";

  HRESULT STDMETHODCALLTYPE Add(VARIANT vValue) override;
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) override;
  HRESULT STDMETHODCALLTYPE RemoveAll() override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool FindReadyBody(ReadyBody& body) override;
  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

  [[nodiscard]] ULONG ElementCount() const noexcept { return count_; }
  [[nodiscard]] const unsigned char* Stored() const noexcept { return block_.Stored(); }
  [[nodiscard]] unsigned char* Writable() { return block_.Writable(); }
  [[nodiscard]] unsigned char* WritableInFull() { return block_.WritableInFull(); }
  [[nodiscard]] unsigned char* Address() { return block_.Writable(); }

 private:
  // Becomes what the definition describes. False for one that this class cannot serve,
  // although its count is taken.
  [[nodiscard]] bool TakeShape();

  // Becomes an array of so many zeros, without spare slots.
  void Reset(ULONG count) noexcept;

  ULONG count_ = 0;
  std::uint64_t capacity_ = 0;  // slots, at least count_
  ZeroBlock block_;             // capacity_ slots
};

}  // namespace halyard
