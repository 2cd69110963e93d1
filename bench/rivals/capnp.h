// Cap'n Proto, as a program uses it that gets its schema as text at run time: the schema
// parser, dynamic structs, and streams through a buffer of 64 KB.
#pragma once

#include <capnp/dynamic.h>
#include <capnp/message.h>
#include <capnp/schema-parser.h>
#include <capnp/serialize.h>
#include <kj/filesystem.h>
#include <kj/io.h>

#include <string>

#include "support/descriptor.h"

namespace bench::capnproto {

// A schema given as text, without its id line, and one of the structs in it.
class Schema {
 public:
  Schema(const std::string& text, const char* name);
  ~Schema() noexcept = default;  // the parser's own may throw, says its declaration

  const capnp::StructSchema& type() const { return type_; }
  capnp::StructSchema::Field Field(const char* name) const { return type_.getFieldByName(name); }

 private:
  kj::Own<const kj::Directory> folder_;
  capnp::SchemaParser parser_;
  capnp::StructSchema type_;
};

// A file of messages that is written.
class MessageWriter {
 public:
  explicit MessageWriter(const std::string& path);
  void Write(capnp::MessageBuilder& message) { capnp::writeMessage(stream_, message); }
  void Close() { stream_.flush(); }

 private:
  Descriptor file_;
  kj::FdOutputStream bare_;
  kj::BufferedOutputStreamWrapper stream_;
};

// A file of messages that is read: `capnp::InputStreamMessageReader message(file.stream())`.
class MessageFile {
 public:
  explicit MessageFile(const std::string& path);
  kj::BufferedInputStream& stream() { return stream_; }

 private:
  Descriptor file_;
  kj::FdInputStream bare_;
  kj::BufferedInputStreamWrapper stream_;
};

// Options of a reader that may walk over a message as often as it likes: the limit for
// hostile messages is of no use among our own.
capnp::ReaderOptions WithoutTraversalLimit();

}  // namespace bench::capnproto
