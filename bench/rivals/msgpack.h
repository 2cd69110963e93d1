// msgpack-cxx: records packed into a buffered file and read back as objects.
#pragma once

#include <msgpack.hpp>

#include <string>

#include "support/buffered_file.h"
#include "support/demand.h"

namespace bench::messagepack {

// What a packer writes to.
class Output {
 public:
  explicit Output(const std::string& path) : file_(path) {}
  void write(const char* bytes, std::size_t size) { file_.Put(bytes, size); }
  void Close() { file_.Flush(); }

 private:
  BufferedWriter file_;
};

using Packer = msgpack::packer<Output>;

// Reads one object after another.
class Input {
 public:
  explicit Input(const std::string& path) : file_(Descriptor::ForReading(path)) {}

  // The next object; it lives until the next call.
  const msgpack::object& Next() {
    while (!unpacker_.next(handle_)) {
      unpacker_.reserve_buffer(kFileBufferSize);
      const std::size_t count = file_.Read(unpacker_.buffer(), unpacker_.buffer_capacity());
      Demand(count > 0, "the file ends too early");
      unpacker_.buffer_consumed(count);
    }
    return handle_.get();
  }

 private:
  Descriptor file_;
  msgpack::unpacker unpacker_;
  msgpack::object_handle handle_;
};

}  // namespace bench::messagepack
