#include "rivals/capnp.h"

#include <limits>

namespace bench::capnproto {
namespace {

constexpr char kFileName[] = "schema.capnp";

// Every schema file starts with an id of its own choice.
constexpr char kIdLine[] = "@0xbf5147cbbecf40c1;\n";

}  // namespace

Schema::Schema(const std::string& text, const char* name) {
  auto folder = kj::newInMemoryDirectory(kj::nullClock());
  const std::string content = kIdLine + text;
  folder->openFile(kj::Path(kFileName), kj::WriteMode::CREATE)
      ->writeAll(kj::StringPtr(content.data(), content.size()));
  folder_ = kj::mv(folder);
  type_ = parser_.parseFromDirectory(*folder_, kj::Path(kFileName), nullptr).getNested(name).asStruct();
}

MessageWriter::MessageWriter(const std::string& path)
    : file_(Descriptor::ForWriting(path)), bare_(file_.number()), stream_(bare_) {}

MessageFile::MessageFile(const std::string& path)
    : file_(Descriptor::ForReading(path)), bare_(file_.number()), stream_(bare_) {}

capnp::ReaderOptions WithoutTraversalLimit() {
  capnp::ReaderOptions options;
  options.traversalLimitInWords = std::numeric_limits<uint64_t>::max();
  return options;
}

}  // namespace bench::capnproto
