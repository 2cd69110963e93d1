#include "rivals/capnp.h"

#include <optional>

#include "series/rivals.h"

namespace bench {
namespace {

using capnp::DynamicList;
using capnp::DynamicStruct;

// A message is one struct at least.
constexpr char kSchemaText[] = "struct Series { numbers @0 :List(Float64); }";

class CapnpSeries final : public SeriesFile {
 public:
  ~CapnpSeries() noexcept override = default;  // a message's own may throw, says its declaration

  void Hold(const std::vector<double>& numbers) override {
    auto root = held_.initRoot<DynamicStruct>(schema_.type());
    auto list = root.init(numbers_, static_cast<unsigned>(numbers.size())).as<DynamicList>();
    for (unsigned i = 0; i < list.size(); ++i) list.set(i, numbers[i]);
  }

  void Write(const std::string& path) override {
    capnp::writeMessageToFd(Descriptor::ForWriting(path).number(), held_);
  }

  void Read(const std::string& path) override {
    const Descriptor file = Descriptor::ForReading(path);
    read_ = kj::heap<capnp::StreamFdMessageReader>(file.number(), capnproto::WithoutTraversalLimit());
    list_ = read_->getRoot<DynamicStruct>(schema_.type()).get(numbers_).as<DynamicList>();
  }

  double NumberRead(std::size_t position) const override {
    return list_[static_cast<unsigned>(position)].as<double>();
  }

  void Drop() override { read_ = nullptr; }

 private:
  const capnproto::Schema schema_{kSchemaText, "Series"};
  const capnp::StructSchema::Field numbers_ = schema_.Field("numbers");
  capnp::MallocMessageBuilder held_;
  kj::Own<capnp::StreamFdMessageReader> read_;
  DynamicList::Reader list_;
};

}  // namespace

std::unique_ptr<SeriesFile> MakeCapnpSeries() { return std::make_unique<CapnpSeries>(); }

}  // namespace bench
