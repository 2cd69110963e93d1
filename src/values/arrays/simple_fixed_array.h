// SimpleFixedArray: a fixed number of elementary values, in a block of its own or, as a
// shell, in memory of the caller, which it neither allocates nor frees.
#pragma once

#include "values/arrays/simple_array_object.h"
#include "values/arrays/zero_block.h"

namespace halyard {

class SimpleFixedArray : public SimpleArrayObject<SimpleFixedArray, ISimpleFixedArray> {
 public:
  static constexpr char kClassName[] = "SimpleFixedArray";
  static constexpr ValueTraits kTraits{.stands_alone = false, .keeps_to_itself = true, .writes_at_once = true};

  // A new array over `memory` with the elements that the definition describes; it keeps
  // no definition. Null memory is accepted, but then elements are E_POINTER.
  static Ptr<SimpleFixedArray> NewShell(IValueDefBase* definition, unsigned char* memory);

  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

  [[nodiscard]] ULONG ElementCount() const noexcept { return count_; }

  // These raise E_POINTER for the elements of a shell over null memory.
  [[nodiscard]] const unsigned char* Stored() const;
  [[nodiscard]] unsigned char* Writable();
  [[nodiscard]] unsigned char* WritableInFull() { return Writable(); }

  [[nodiscard]] unsigned char* Address() { return shell_ ? external_ : block_.Writable(); }

 private:
  // Takes type, width and count from the definition.
  void TakeShape();

  // The bytes of all elements.
  [[nodiscard]] std::size_t Size() const noexcept { return static_cast<std::size_t>(Offset(count_)); }

  unsigned char* RequireExternal() const;

  std::uint16_t count_ = 0;
  bool shell_ = false;
  unsigned char* external_ = nullptr;  // a shell's memory, the caller's
  ZeroBlock block_;                    // otherwise the array's own
};

}  // namespace halyard
