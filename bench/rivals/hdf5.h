// HDF5: compound types that are put together at run time, and packet tables of them.
#pragma once

#include <hdf5.h>
#include <hdf5_hl.h>

#include <string>

#include "support/demand.h"

namespace bench::hdf5 {

// Records that go to or come from a table in one call.
inline constexpr std::size_t kBatch = 1024;

// Throws where a call answered a negative number, as HDF5 does on failure.
template <class T>
T Require(T answer) {
  Demand(answer >= 0, "HDF5 refuses a call");
  return answer;
}

// The owner of a handle, with the function that closes it.
class Handle {
 public:
  Handle(hid_t number, herr_t (*close)(hid_t)) : number_(Require(number)), close_(close) {}
  ~Handle() { close_(number_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  hid_t get() const { return number_; }

 private:
  hid_t number_;
  herr_t (*close_)(hid_t);
};

// A new compound type of that size in bytes, without members.
hid_t NewCompound(std::size_t size);

// Adds a member at an offset.
void AddMember(const Handle& compound, const char* name, std::size_t offset, hid_t type);

// A file with one packet table in it.
class TableFile {
 public:
  // Makes the file and an empty table of records of that type.
  TableFile(const std::string& path, const Handle& type);

  // Opens such a file.
  explicit TableFile(const std::string& path);

  void Append(std::size_t count, const void* records) { Require(H5PTappend(table_.get(), count, records)); }
  void ReadNext(std::size_t count, void* records) { Require(H5PTget_next(table_.get(), count, records)); }

 private:
  Handle file_;
  Handle table_;
};

}  // namespace bench::hdf5
