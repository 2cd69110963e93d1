#include "definitions/simple_value_info.h"

#include <algorithm>
#include <cstring>

#include "definitions/value_creation.h"
#include "halyard/classes.h"
#include "types/elementary.h"

namespace halyard {
namespace {

constexpr ULONG kHeaderBytes = 4;     // type code and data size
constexpr ULONG kWithValidation = 6;  // and the validation type
constexpr ULONG kWithRange = 8;       // and the script length

bool HasFieldSize(SHORT type) noexcept { return type == kFixedString || type == kByteArray; }

// Dates and fields of fixed length travel without a range.
bool CarriesValidation(SHORT type) noexcept { return type == kString || (type >= kChar && type <= kReal); }

// The low bytes of a bound, converted to the variant type of `type`.
bool PutBound(WriteCursor& cursor, const Variant& bound, SHORT type) {
  const std::uint16_t size = ElementarySize(type);
  if (size == 0) return true;
  const Variant converted = Variant::Converted(bound.get(), VariantTypeOf(type));
  return cursor.PutBytes(&converted->llVal, size);
}

// A bound of a type that is no number is passed over and the old one stays.
bool TakeBound(ReadCursor& cursor, Variant& bound, SHORT type) {
  const std::uint16_t size = ElementarySize(type);
  if (!CarriesValidation(type)) return cursor.Skip(size);
  if (size == 0) return true;
  Variant taken;
  if (!cursor.TakeBytes(&taken.get().llVal, size)) return false;
  taken.get().vt = VariantTypeOf(type);
  bound = std::move(taken);
  return true;
}

}  // namespace

HRESULT SimpleValueInfo::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = 0; });
}

HRESULT SimpleValueInfo::put_Type(SHORT nType) {
  type_ = nType;
  if (nType > kLastElementaryType) return S_OK;
  validation_ = VARIANT_FALSE;
  data_size_ = ElementarySize(nType);
  return S_OK;
}

HRESULT SimpleValueInfo::get_Id(SHORT* pnId) {
  return Call("Id", [&] { Out(pnId) = 0; });
}

HRESULT SimpleValueInfo::put_Id(SHORT) { return S_OK; }

HRESULT SimpleValueInfo::get_Name(BSTR* psName) {
  return Call("Name", [&] { HandOut(psName, [&] { return NewEmptyText(); }); });
}

HRESULT SimpleValueInfo::put_Name(BSTR) { return S_OK; }

HRESULT SimpleValueInfo::get_DataSize(ULONG* pdwSize) {
  return Call("DataSize", [&] { Out(pdwSize) = ElementaryByteCount(type_, data_size_); });
}

HRESULT SimpleValueInfo::CalculateDataSize(ULONG* pdwSize) {
  return Call("CalculateDataSize", [&] {
    ULONG& size = Out(pdwSize);
    if (!HasFieldSize(type_)) data_size_ = ElementarySize(type_);
    size = data_size_;
  });
}

HRESULT SimpleValueInfo::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& size = Out(pdwSize);
    if (validation_ != VARIANT_FALSE) validation_ = VARIANT_TRUE;
    if (!CarriesValidation(type_)) {
      size = kHeaderBytes;
    } else if (validation_ == VARIANT_FALSE) {
      size = kWithValidation;
    } else {
      size = kWithRange + 2u * ElementarySize(type_) + script_.EncodedLength();
    }
  });
}

HRESULT SimpleValueInfo::CreateDataObject(IValueBase** ppResult) {
  return Call("CreateDataObject",
              [&] { HandOut(ppResult, [&] { return CreateValueOf(this, *ValueClass()); }); });
}

const CLSID* SimpleValueInfo::ValueClass() noexcept { return &kSimpleValueClass; }

HRESULT SimpleValueInfo::get_MinValue(VARIANT* pvMin) {
  return Call("MinValue", [&] { HandOut(pvMin, [&] { return Variant::CopyOf(min_value_.get()); }); });
}

HRESULT SimpleValueInfo::put_MinValue(VARIANT vMin) {
  return Call("MinValue", [&] { min_value_ = Variant::Followed(vMin); });
}

HRESULT SimpleValueInfo::get_MaxValue(VARIANT* pvMax) {
  return Call("MaxValue", [&] { HandOut(pvMax, [&] { return Variant::CopyOf(max_value_.get()); }); });
}

HRESULT SimpleValueInfo::put_MaxValue(VARIANT vMax) {
  return Call("MaxValue", [&] { max_value_ = Variant::Followed(vMax); });
}

HRESULT SimpleValueInfo::get_Validation(VARIANT_BOOL* pbValidation) {
  return Call("Validation", [&] { Out(pbValidation) = validation_; });
}

HRESULT SimpleValueInfo::put_Validation(VARIANT_BOOL bValidation) {
  validation_ = bValidation;
  return S_OK;
}

HRESULT SimpleValueInfo::get_ValidationScript(BSTR* psScript) {
  return Call("ValidationScript", [&] { HandOut(psScript, [&] { return script_.NewCopy(); }); });
}

HRESULT SimpleValueInfo::put_ValidationScript(BSTR sScript) {
  return Call("ValidationScript", [&] { script_.Set(sScript); });
}

HRESULT SimpleValueInfo::SetDataSize(LONG nSize) {
  if (HasFieldSize(type_))
    data_size_ = static_cast<std::uint16_t>(std::clamp(nSize, LONG{0}, kLargestFieldSize));
  return S_OK;
}

bool SimpleValueInfo::Encode(WriteCursor& cursor) {
  if (!cursor.Put(type_)) return false;
  if (data_size_ == 0) data_size_ = ElementarySize(type_);
  if (!cursor.Put(data_size_)) return false;
  if (!CarriesValidation(type_)) return true;
  const SHORT validated = validation_ != VARIANT_FALSE ? type_ : SHORT{kInvalid};
  if (!cursor.Put(validated)) return false;
  if (validated == kInvalid) return true;
  return PutBound(cursor, min_value_, validated) && PutBound(cursor, max_value_, validated) &&
         cursor.PutText(script_.NarrowForm(), script_.EncodedLength());
}

bool SimpleValueInfo::Decode(ReadCursor& cursor) {
  if (!cursor.Take(type_) || !cursor.Take(data_size_)) return false;
  if (!CarriesValidation(type_)) return true;
  SHORT validated = kInvalid;
  if (!cursor.Take(validated)) return false;
  validation_ = validated != kInvalid ? VARIANT_TRUE : VARIANT_FALSE;
  if (validated == kInvalid) return true;
  std::string script;
  if (!TakeBound(cursor, min_value_, validated) || !TakeBound(cursor, max_value_, validated) ||
      !cursor.TakeText(script)) {
    return false;
  }
  script_.SetNarrow(script);
  return true;
}

}  // namespace halyard
