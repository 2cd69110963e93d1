#include "values/simple_value.h"

#include <algorithm>
#include <array>
#include <new>

#include "halyard/classes.h"
#include "halyard/definitions/value_def_base.h"
#include "platform/text.h"
#include "types/elementary.h"
#include "values/nested_value.h"

namespace halyard {
namespace {

constexpr ULONG kLengthBytes = 2;
constexpr ULONG kLargestTextBuffer = 0x7FFFFFFF + kLengthBytes;

// Whether a value can be kept as the text alone that it is; otherwise it has no text, or
// half a character at its end, and comes back as it was put.
bool IsWholeText(const VARIANT& value) noexcept {
  return value.vt == VT_BSTR && value.bstrVal != nullptr &&
         SysStringByteLen(value.bstrVal) % sizeof(OLECHAR) == 0;
}

// Puts a text behind its length, narrow, as long as the text has characters.
bool PutText(WriteCursor& cursor, WideView text) {
  if (!IsPlainText(text)) return cursor.PutText(Narrow(text), text.size());
  if (!cursor.Put(static_cast<std::uint16_t>(text.size())) || cursor.room() < text.size()) return false;
  NarrowPlainText(text, reinterpret_cast<char*>(cursor.rest().data()));
  return cursor.Skip(text.size());
}

}  // namespace

HRESULT SimpleValue::get_Item(VARIANT, VARIANT* pvValue) {
  return Call("Item", [&] { HandOut(pvValue, [&] { return content_.Copy(); }); });
}

HRESULT SimpleValue::put_Item(VARIANT, VARIANT) { return S_OK; }

HRESULT SimpleValue::get_Name(VARIANT, BSTR* psName) {
  return Call("Name", [&] { HandOut(psName, [&] { return NewEmptyText(); }); });
}

HRESULT SimpleValue::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = 0; });
}

HRESULT SimpleValue::get_At(VARIANT, IValueBase** ppValue) {
  return Call("At", [&] { HandOut(ppValue, Ptr<IValueBase>(this)); });
}

HRESULT SimpleValue::get_Value(VARIANT* pvValue) {
  return Call("Value", [&] { HandOut(pvValue, [&] { return content_.Copy(); }); });
}

HRESULT SimpleValue::put_Value(VARIANT vValue) {
  return Call("Value", [&] {
    const VARTYPE type = content_.type();
    if (type_ == kString && type == VT_BSTR && IsWholeText(vValue)) {
      content_.SetText(ViewOf(vValue.bstrVal));
    } else if (!Variant::LeadsNowhere(vValue)) {
      PutConverted(vValue, type);
    }
  });
}

void SimpleValue::PutConverted(VARIANT& value, VARTYPE type) {
  // Where the new content does not convert, the old one stays: a client reads back what
  // became of it.
  Variant converted;
  const HRESULT hr = value.vt == type ? VariantCopy(&converted.get(), &value)
                                      : VariantChangeType(&converted.get(), &value, 0, type);
  if (SUCCEEDED(hr)) {
    content_.Set(std::move(converted));
  } else if (hr == E_OUTOFMEMORY) {
    throw std::bad_alloc();
  } else {
    SetErrorInfo(0, nullptr);
  }
}

HRESULT SimpleValue::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<SimpleValue> copy = NewObject<SimpleValue>();
    copy->type_ = type_;
    copy->data_size_ = data_size_;
    copy->content_.CopyFrom(content_);
    *ppCopy = Ptr<IValueBase>(copy).Detach();
  });
}

HRESULT SimpleValue::get_Info(IValueDefBase** ppInfo) {
  return Call("Info", [&] { EmptyOut(ppInfo); });
}

HRESULT SimpleValue::put_Info(IValueDefBase* pInfo) {
  // A definition that cannot be taken leaves a value without a type, not a failed call.
  const HRESULT hr = Call("Info", [&] {
    return Tried([&] {
      const Ptr<IValueDefBase> info = QueryFor<IValueDefBase>(pInfo);
      TakeDefinition(Require(info, "the object is no definition").get());
    });
  });
  if (hr == S_OK) return S_OK;
  type_ = kInvalid;
  if (FAILED(hr)) return hr;
  SetErrorInfo(0, nullptr);
  return S_OK;
}

HRESULT SimpleValue::get_Id(SHORT* pnId) {
  return Call("Id", [&] { Out(pnId) = 0; });
}

HRESULT SimpleValue::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& size = Out(pdwSize);
    if (type_ == kString) {
      const bool is_text = content_.type() == VT_BSTR;
      const Variant text = is_text ? Variant() : Variant::Converted(content_.AsVariant(), VT_BSTR);
      size =
          kLengthBytes + static_cast<ULONG>(is_text ? content_.Text().size() : SysStringLen(text->bstrVal));
    } else {
      size = ElementaryByteCount(type_, data_size_);
    }
  });
}

HRESULT SimpleValue::ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                    VARIANT_BOOL* pbResult) {
  if (type_ == kString) {
    // The room behind the length is a signed number here: more than that is none.
    const ULONG size = dwBufferSize > kLargestTextBuffer ? 0 : dwBufferSize;
    return ValueObject::ReadFromBuffer(pBuffer, size, pdwBytesRead, pbResult);
  }
  return Call("ReadFromBuffer", [&] {
    ULONG& count = Out(pdwBytesRead);
    Out(pbResult) = VARIANT_FALSE;
    if (VariantTypeOf(type_) != VT_EMPTY) {
      Out(pBuffer);
      // The buffer holds at least a whole field, whatever its size says; a text in it
      // may go on to the end of the buffer.
      const std::size_t field = std::max<std::size_t>(data_size_, kWidestElementary);
      const std::size_t readable =
          type_ == kFixedString ? std::max<std::size_t>(data_size_, dwBufferSize) : field;
      ReadElementary({pBuffer, readable}, type_, content_.AsVariant());
    }
    count = ElementaryByteCount(type_, data_size_);
    *pbResult = VARIANT_TRUE;
  });
}

HRESULT SimpleValue::WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                   VARIANT_BOOL* pbResult) {
  if (type_ == kString) return ValueObject::WriteToBuffer(pBuffer, dwBufferSize, pdwBytesWritten, pbResult);
  return Call("WriteToBuffer", [&] {
    ULONG& count = Out(pdwBytesWritten);
    Out(pbResult) = VARIANT_FALSE;
    if (VariantTypeOf(type_) != VT_EMPTY)
      WriteElementary(content_.AsVariant(), type_, &Out(pBuffer), data_size_);
    count = ElementaryByteCount(type_, data_size_);
    *pbResult = VARIANT_TRUE;
  });
}

bool SimpleValue::DecodeInside(ReadCursor& cursor) {
  return type_ == kString ? ValueObject::DecodeInside(cursor) : DecodeThroughCall(*Outside(), cursor);
}

bool SimpleValue::EncodeInside(WriteCursor& cursor) {
  return type_ == kString ? ValueObject::EncodeInside(cursor) : EncodeThroughCall(*Outside(), cursor);
}

bool SimpleValue::Decode(ReadCursor& cursor) {
  std::string_view narrow;
  if (!cursor.TakeText(narrow)) return false;
  content_.SetNarrowText(narrow.substr(0, narrow.find('\0')));
  return true;
}

bool SimpleValue::Encode(WriteCursor& cursor) {
  if (content_.type() == VT_BSTR) return PutText(cursor, content_.Text());
  Variant text = Variant::Converted(content_.AsVariant(), VT_BSTR);
  if (!PutText(cursor, ViewOf(text->bstrVal))) return false;
  content_.Set(std::move(text));  // a number that was written as a text is one from now on
  return true;
}

void SimpleValue::TakeDefinition(IValueDefBase* definition) {
  Check(definition->get_Type(&type_), definition);
  ULONG size = 0;
  Check(definition->get_DataSize(&size), definition);
  data_size_ = static_cast<std::uint16_t>(size);
  ResetValue();
}

bool SimpleValue::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || !(value_class == kSimpleValueClass)) return false;
  ResetFrame();
  content_.Renew();
  TakeDefinition(definition);
  return true;
}

void SimpleValue::ResetValue() {
  static constexpr std::array<unsigned char, kWidestElementary> kZeros{};
  if (type_ == kString) {
    content_.SetText({});
  } else if (VariantTypeOf(type_) == VT_EMPTY) {
    return;  // without a conversion the value stays as it was
  } else if (content_.IsOwnText()) {
    Variant zero;
    ReadElementary(kZeros, type_, zero.get());
    content_.Set(std::move(zero));
  } else {
    ReadElementary(kZeros, type_, content_.AsVariant());
  }
}

}  // namespace halyard
