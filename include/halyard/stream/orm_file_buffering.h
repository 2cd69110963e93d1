// IOrmFileBuffering: lets a file of units keep written records back and hand many of
// them to the system at once. An additional interface of the file object (OrmFile); late
// binding serves IOrmFile through either.
//
// Without it every record is handed to the system by the call that writes it, so that a
// record which was reported as written survives the end of the process. With a buffer it
// may not: it waits until the buffer is full, and is lost where the process ends before.
// The header of a file waits, too, so Open and Attach may answer true before the system has
// seen anything. Records are kept whole: what the system was handed ends with a whole
// record. A record larger than the buffer goes past it, and so may one of more than 64000
// bytes, where going past costs less than waiting. A file that is not open takes nothing.
//
// What waits is handed over by Flush, by Close, by the next Open or Attach, before
// anything is read, and when the object ends. Where the system does not take it, the
// waiting records are lost, and every later write and Flush answers false as long as the
// object has that handle. The next Close, Open or Attach fails with E_FAIL, to tell it:
// Close and Open have closed the handle then, Open has opened nothing, and Attach has not
// taken the new handle; the one after it does. The end of the object can tell nobody: call
// Flush or Close before it.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IOrmFileBuffering : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0x24B3B1F6, 0xAE09, 0x4107, {0x9A, 0x76, 0xEA, 0x84, 0x01, 0x7C, 0xF6, 0x31}};

  // The size of the buffer in bytes, 0 (the beginning) for none. It belongs to the
  // object, whatever file it has open, and takes memory with the first record written.
  // A put hands over what waits; E_INVALIDARG for a negative size, E_FAIL, with the new
  // size taken, where records were lost, as Flush tells it.
  virtual HRESULT STDMETHODCALLTYPE get_BufferSize(LONG* pnBytes) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_BufferSize(LONG nBytes) = 0;

  // Hands over what waits; false where records were lost, now or since the file was
  // opened. True where nothing waits.
  virtual HRESULT STDMETHODCALLTYPE Flush(VARIANT_BOOL* pbResult) = 0;
};

}  // namespace halyard
