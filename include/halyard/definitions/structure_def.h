// IStructureDef: the definition of a record, an ordered list of named members, each
// with a definition of its own.
//
// A member is found by name (a VT_BSTR index, first match, letter case ignored) or by
// position from 0. Adding, removing and changing members leaves the layout as it was
// until the next CalculateDataSize; a ReadFromBuffer that succeeds ends with one. A member
// without a definition makes CalculateDataSize, PacketSize and WriteToBuffer E_POINTER; a
// CalculateDataSize that fails leaves what it reached: size, places and whether values are
// blocks of fixed size follow from the members before the failing one.
//
// Encoding: id (2 bytes), name and caption (length 2, narrow text each), member count
// (2), data size (2); then for each member its name and caption (length 2, text), the
// null flag (1), type code (2), data size (2) and the member definition's own encoding.
#pragma once

#include "halyard/definitions/value_def_base.h"

namespace halyard {

struct IStructureDef : IValueDefBase {
  using Base = IValueDefBase;
  static constexpr IID kIid = {0xA4E4B956, 0x2698, 0x45E9, {0x88, 0xE9, 0x69, 0x3B, 0xAA, 0xD0, 0x30, 0x50}};

  // The number of members.
  virtual HRESULT STDMETHODCALLTYPE get_MemberCount(LONG* pnCount) = 0;

  // The name of the member at a position; E_INVALIDARG outside 0..count-1. The caller
  // frees the string, which is null for a member without a name. A null out pointer is
  // success with nothing written.
  virtual HRESULT STDMETHODCALLTYPE get_MemberName(LONG nIndex, BSTR* psName) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_MemberName(LONG nIndex, BSTR sName) = 0;

  // The member's definition, or null for an unknown name; the caller owns the
  // reference. A put shares the object; putting null is E_INVALIDARG, putting to an
  // unknown name does nothing. A position outside 0..count-1 is E_INVALIDARG.
  virtual HRESULT STDMETHODCALLTYPE get_Members(VARIANT vIndex, IValueDefBase** ppDef) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Members(VARIANT vIndex, IValueDefBase* pDef) = 0;

  // Appends a member with a definition of any kind, which is shared, not copied; always
  // true. Null, or an object that is no definition, leaves the member without one. Names
  // are not checked.
  virtual HRESULT STDMETHODCALLTYPE AddMember(BSTR sName, IDispatch* pValueType, VARIANT_BOOL* pbResult) = 0;

  // Appends a member of an elementary type; true, or false, and nothing added, above code
  // 13. Codes below 1 are taken as they are, though they are types of no value: a negative
  // one makes a definition that no reader takes.
  virtual HRESULT STDMETHODCALLTYPE AddSimpleMember(BSTR sName, SHORT DataType, VARIANT_BOOL* pbResult) = 0;

  // As AddSimpleMember, with the field size in bytes of a FixedString or ByteArray, where
  // a negative one counts as 0; other types have no use for it.
  virtual HRESULT STDMETHODCALLTYPE AddSimpleMemberSized(BSTR sName, SHORT DataType, SHORT DataSize,
                                                         VARIANT_BOOL* pbResult) = 0;

  // Takes a member out; later ones move down. An unknown name removes nothing.
  virtual HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) = 0;

  // Takes all members out.
  virtual HRESULT STDMETHODCALLTYPE RemoveAll() = 0;

  // The position of the first member of that name, letter case ignored; -1 for none.
  virtual HRESULT STDMETHODCALLTYPE MemberIndex(BSTR sName, LONG* pnIndex) = 0;

  // Type code, place and size of a member as last calculated. For a member of fixed
  // size the place is its byte offset; for any other the size is 0 and the place is
  // its ordinal among such members. E_INVALIDARG outside 0..count-1.
  virtual HRESULT STDMETHODCALLTYPE MemberInfo(LONG nIndex, SHORT* pDataType, LONG* pOffset, ULONG* pDataSize,
                                               VARIANT_BOOL* pbResult) = 0;

  // Whether values may leave the member out. An unknown member is E_INVALIDARG.
  virtual HRESULT STDMETHODCALLTYPE get_CanBeNull(VARIANT vIndex, VARIANT_BOOL* pbCanBeNull) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_CanBeNull(VARIANT vIndex, VARIANT_BOOL bCanBeNull) = 0;

  // Appends a member that is an array of nElemCount elements (0: as many as the value
  // holds) of an elementary type; true, or false, and nothing added, from code 14 on.
  virtual HRESULT STDMETHODCALLTYPE AddSimpleArrayMember(BSTR sName, SHORT DataType, LONG nElemCount,
                                                         VARIANT_BOOL* pbResult) = 0;
};

// What the class StructureInfo answers.
struct IStructureInfo : IStructureDef {
  using Base = IStructureDef;
  static constexpr IID kIid = {0x09A626C1, 0x2073, 0x40C6, {0xBE, 0xDF, 0x1F, 0x72, 0xAF, 0x6C, 0x5C, 0xFC}};
};

}  // namespace halyard
