// IValueDefBase: what every definition answers. A definition describes values: their
// type, identity, name and size, and how the description itself lies in a buffer.
//
// Who uses it: clients that define data, structures and arrays that hold member and
// element definitions, units and sessions that carry definitions. Objects belong to
// the thread that made them. A null out pointer gives E_POINTER unless a call says
// otherwise; failures of other objects come back as their own codes.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IValueBase;

struct IValueDefBase : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0xD687351F, 0x48D4, 0x4CC2, {0x88, 0x37, 0xD3, 0xFB, 0xF5, 0xD9, 0xCF, 0xB0}};

  // How many parts the definition has: members of a structure, elements of an
  // enumeration, the fixed element count of an array; 0 for a simple value.
  virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) = 0;

  // The type code (TypeCode) of the values described. Putting a type means something
  // to simple definitions only; the composite ones accept it and keep their own.
  virtual HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Type(SHORT nType) = 0;

  // The identity of the definition among those of its type in a session. 0 means that
  // it has none and cannot be registered. Simple definitions always read 0.
  virtual HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Id(SHORT nId) = 0;

  // The name of the definition, kept as narrow text; the caller frees the string.
  // Simple definitions have none and read as the empty string.
  virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* psName) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Name(BSTR sName) = 0;

  // The size of a value in bytes, as far as the definition fixes it; 0 for values that
  // carry their own length. A structure answers what it last calculated, the other
  // definitions what follows from what they hold now.
  virtual HRESULT STDMETHODCALLTYPE get_DataSize(ULONG* pdwSize) = 0;

  // Works out the size anew; a structure keeps it, and with it the place of each member.
  // Call it after the last change and before values are created.
  virtual HRESULT STDMETHODCALLTYPE CalculateDataSize(ULONG* pdwSize) = 0;

  // The number of bytes that WriteToBuffer needs for this definition.
  virtual HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) = 0;

  // Makes a value of this definition; the caller owns it.
  virtual HRESULT STDMETHODCALLTYPE CreateDataObject(IValueBase** ppResult) = 0;

  // Takes the definition from the first bytes of a buffer of dwBufferSize bytes. True
  // (-1) with the number of bytes taken, or, when the buffer is too short, false (0)
  // with the count untouched and the fields read so far kept. S_OK in both cases.
  virtual HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                   ULONG* pdwBytesRead, VARIANT_BOOL* pbResult) = 0;

  // Writes the definition into a buffer of dwBufferSize bytes, little-endian, without
  // padding. True with the number of bytes written, or, when the room ends, false with
  // the count untouched and the fields written so far left in the buffer. E_POINTER for a
  // null buffer, which a reader takes for an empty one.
  virtual HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                  ULONG* pdwBytesWritten, VARIANT_BOOL* pbResult) = 0;

  // The name of the type code, "Unknown" for a code without one; the caller frees it.
  virtual HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) = 0;
};

}  // namespace halyard
