// IUnit: one packet of a stream, an info unit (a definition) or a data unit (a value).
//
// Encoding, little-endian: kind (2 bytes, 101 info, 102 data), type code (2), for data
// the definition's id (2), then the body as definition or value writes itself.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IValueBase;
struct IValueDefBase;
struct IOrmSession;

// The first word of a unit.
inline constexpr USHORT kInfoUnit = 101;
inline constexpr USHORT kDataUnit = 102;

struct IUnit : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0x52BEDCE1, 0x5D5C, 0x4DE4, {0x8A, 0x0D, 0x68, 0x67, 0x32, 0xEE, 0x05, 0xAB}};

  // What the unit carries. A new unit is a data unit without a value.
  virtual HRESULT STDMETHODCALLTYPE get_IsDataUnit(VARIANT_BOOL* pbResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_IsInfoUnit(VARIANT_BOOL* pbResult) = 0;

  // Type code and type name of the body; 0 where there is none. The caller frees the name.
  virtual HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) = 0;

  // The value of a data unit, null otherwise; the caller owns the reference. A put
  // shares the object and makes this a data unit, even when it empties the slot.
  virtual HRESULT STDMETHODCALLTYPE get_Value(IValueBase** ppValue) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Value(IValueBase* pValue) = 0;

  // The definition of an info unit, null otherwise; the caller owns the reference. A
  // put shares the object and makes this an info unit, even when it empties the slot.
  virtual HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) = 0;

  // The number of bytes that WriteToBuffer needs. E_POINTER without a body.
  virtual HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) = 0;

  // The session that resolves data units and takes the definitions of info units when
  // they are read; the caller owns the reference.
  virtual HRESULT STDMETHODCALLTYPE get_Session(IOrmSession** ppSession) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Session(IOrmSession* pSession) = 0;

  // Reads a unit from the first bytes of a buffer of dwBufferSize bytes and, for an
  // info unit, registers its definition. False only where the unit's own words are cut
  // short. True with the count untouched means that the body could not be read: its
  // definition is unknown, its type has no reader, or the body itself is cut short.
  // E_POINTER where a session is needed and there is none; E_NOTIMPL for the type
  // Collection. A definition type that no class has shows the message "Invalid type" (on
  // Windows a box that waits for a person, see messages.h); the definition that the unit
  // holds reads the body then, and without one the call is E_POINTER. The result is true
  // where a call fails so.
  virtual HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                   ULONG* pdwBytesRead, VARIANT_BOOL* pbResult) = 0;

  // Writes the unit into a buffer of dwBufferSize bytes. True with the number of bytes
  // written, or false, with the count untouched, when the room ends or there is no body. A
  // unit of another kind, as reading may leave it, is its kind alone, 2 bytes.
  virtual HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                  ULONG* pdwBytesWritten, VARIANT_BOOL* pbResult) = 0;
};

}  // namespace halyard
