// IOrmFile: a file of units, or a stream behind a handle, written or read one record at
// a time. docs/format.md describes every byte.
//
// File: 4 bytes signature "Orm" and zero, 4 bytes version (single 1.0), then records of
// a length (4 bytes) and one unit. The object owns its handle, opened or attached, and
// closes it on Close, on the next Open and at its end.
//
// A record is handed to the system with one write by the call that writes it, unless a
// buffer was asked for (orm_file_buffering.h).
//
// The file has a current unit, through which everything passes: its own, the one that was
// read last, or the one that WriteUnit was given. Where that was null there is none until
// the next Read, and WriteData, WriteInfo, OpenForRead and AttachForRead are E_POINTER.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IValueBase;
struct IValueDefBase;
struct IOrmSession;
struct IUnit;

struct IOrmFile : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0x64A0B51C, 0xFCF7, 0x490A, {0x9E, 0x77, 0x4E, 0x91, 0xD3, 0x97, 0x12, 0xA1}};

  // Opens an existing file and checks its header: false when it cannot be opened or is
  // no file of units (it stays open then, until Close). Others may read the file meanwhile, not write it.
  // With bCreateNewSession (the default of scripts) definitions read earlier are forgotten.
  virtual HRESULT STDMETHODCALLTYPE OpenForRead(BSTR sFileName, VARIANT_BOOL bCreateNewSession,
                                                VARIANT_BOOL* pbResult) = 0;

  // Makes the file, or empties it, and writes the header; false when that fails. Nobody
  // else may open the file meanwhile.
  virtual HRESULT STDMETHODCALLTYPE OpenForWrite(BSTR sFileName, VARIANT_BOOL* pbResult) = 0;

  // The session; the caller owns the reference. A put shares the object; it counts for
  // the units read from then on.
  virtual HRESULT STDMETHODCALLTYPE get_Session(IOrmSession** ppSession) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Session(IOrmSession* pSession) = 0;

  // Closes the handle; the session stays. E_FAIL, with the handle closed, where records
  // that waited to be written were lost (see orm_file_buffering.h).
  virtual HRESULT STDMETHODCALLTYPE Close() = 0;

  // Writes a value as one data record; false when that fails, as on a closed file.
  // E_POINTER for null, open or closed, and failures of the value.
  virtual HRESULT STDMETHODCALLTYPE WriteData(IValueBase* pData, VARIANT_BOOL* pbResult) = 0;

  // Reads one record and answers its value (the caller owns it): null for a record that
  // holds a definition, which goes into the session, and for a value that cannot be
  // resolved. E_POINTER at the end of the file: find the end with ReadUnit or ReadInfo.
  virtual HRESULT STDMETHODCALLTYPE ReadData(IValueBase** ppData) = 0;

  // Writes a definition as one info record, likewise.
  virtual HRESULT STDMETHODCALLTYPE WriteInfo(IValueDefBase* pData, VARIANT_BOOL* pbResult) = 0;

  // Reads one record and answers its definition (the caller owns it): null for a data
  // record and at the end of the file.
  virtual HRESULT STDMETHODCALLTYPE ReadInfo(IValueDefBase** ppData) = 0;

  // Writes a unit as one record; false when that fails. E_POINTER for null and for a unit
  // without a body. The unit stays the file's current unit, which the next WriteData or
  // WriteInfo changes.
  virtual HRESULT STDMETHODCALLTYPE WriteUnit(IUnit* pData, VARIANT_BOOL* pbResult) = 0;

  // Reads one record as a unit (the caller owns it); null at the end of the file and
  // for a record that is cut short. After a record that is cut short, or that the system
  // does not give as a whole, every read finds the end until the file is opened again:
  // nothing is taken from inside a record. E_OUTOFMEMORY may have passed over its record.
  virtual HRESULT STDMETHODCALLTYPE ReadUnit(IUnit** ppData) = 0;

  // Reads from a handle of the caller, at its position, as OpenForRead does from a file.
  // The file owns the handle from now on, also after false, and does not close one that
  // it held before. On Windows it is a file handle, elsewhere a file descriptor; -1 is none.
  virtual HRESULT STDMETHODCALLTYPE AttachForRead(LONG nHandle, VARIANT_BOOL bCreateNewSession,
                                                  VARIANT_BOOL* pbResult) = 0;

  // Writes the header and further records to a handle of the caller, likewise.
  virtual HRESULT STDMETHODCALLTYPE AttachForWrite(LONG nHandle, VARIANT_BOOL* pbResult) = 0;
};

}  // namespace halyard
