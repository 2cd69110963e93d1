// IValueBase: what every value answers. A value holds data as its definition describes
// it, shows it as automation values, and writes itself into buffers.
//
// One interface serves all kinds, so calls that a kind has no use for do nothing or
// answer E_NOTIMPL; the header of each kind tells. Positions count from 0; a VT_BSTR
// index is a member name where there are members. Objects belong to the thread that
// made them. A null out pointer gives E_POINTER unless a call says otherwise.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IValueDefBase;

struct IValueBase : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0xDAA3FE88, 0x9078, 0x416E, {0x91, 0xFF, 0x33, 0x03, 0x80, 0xD6, 0x13, 0x97}};

  // The content of a member or element as an automation value; the caller clears what
  // it gets. Converts on the way in as VariantChangeType does and fails as that does,
  // but a simple value, by itself or as a member, drops what does not convert.
  virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) = 0;

  // The name of a member; empty where there is none. The caller frees it.
  virtual HRESULT STDMETHODCALLTYPE get_Name(VARIANT vIndex, BSTR* psName) = 0;

  // The number of members or elements; 0 for a single value.
  virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* pnCount) = 0;

  // Appends an element to an array of variable length.
  virtual HRESULT STDMETHODCALLTYPE Add(VARIANT vValue) = 0;

  // Takes an element out of an array of variable length; later ones move down.
  virtual HRESULT STDMETHODCALLTYPE Remove(VARIANT vIndex) = 0;

  // Empties an array of variable length.
  virtual HRESULT STDMETHODCALLTYPE RemoveAll() = 0;

  // The member or element as an object of its own, where it is one; the caller owns the
  // reference. A single value answers itself.
  virtual HRESULT STDMETHODCALLTYPE get_At(VARIANT vIndex, IValueBase** ppValue) = 0;

  // The whole content: the number or text of a single value, the object itself
  // (VT_DISPATCH) of a composite one. The caller clears it.
  virtual HRESULT STDMETHODCALLTYPE get_Value(VARIANT* pvValue) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Value(VARIANT vValue) = 0;

  // An independent value of the same definition and content; the caller owns it.
  virtual HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) = 0;

  // The type code (TypeCode).
  virtual HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) = 0;

  // The definition; the caller owns the reference. A value takes its definition once;
  // a second put changes nothing (a simple value, which keeps none, is retyped).
  virtual HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase* pInfo) = 0;

  // The definition's id; 0 for a simple value, which keeps none. E_POINTER where another
  // value has no definition.
  virtual HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) = 0;

  // The number of bytes that the value's encoding takes.
  virtual HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) = 0;

  // Takes the value from the first bytes of a buffer of dwBufferSize bytes; a null buffer
  // has none (E_POINTER for simple values, but for a String). True (-1) with the number of
  // bytes taken, or, when the buffer is too short, false (0) with the count untouched. S_OK
  // in both cases. Without a definition a structure takes nothing and answers true; other
  // kinds that need one answer E_POINTER.
  virtual HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                   ULONG* pdwBytesRead, VARIANT_BOOL* pbResult) = 0;

  // Writes the value into a buffer of dwBufferSize bytes, little-endian, without
  // padding. True with the number of bytes written, or, when the room ends, false with
  // the count untouched; what was written before the shortage stays in the buffer.
  virtual HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize,
                                                  ULONG* pdwBytesWritten, VARIANT_BOOL* pbResult) = 0;

  // The name of the type code, "Unknown" for a code without one; the caller frees it.
  virtual HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) = 0;
};

}  // namespace halyard
