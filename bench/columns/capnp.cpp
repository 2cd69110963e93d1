#include "rivals/capnp.h"

#include "columns/rivals.h"

namespace bench {
namespace {

using capnp::DynamicList;
using capnp::DynamicStruct;

constexpr char kSchemaText[] = R"(
struct Table { soundings @0 :List(Sounding); }
struct Sounding {
  id @0 :Int32; x @1 :Float64; y @2 :Float64; z @3 :Float64;
  depth @4 :Float32; flags @5 :Int16; kind @6 :UInt8;
}
)";

class CapnpColumns final : public ColumnTable {
 public:
  ~CapnpColumns() noexcept override = default;  // a message's own may throw, says its declaration

  void Fill(std::int32_t count) override {
    count_ = static_cast<unsigned>(count);
    auto soundings = table_.init(soundings_, count_).as<DynamicList>();
    for (unsigned i = 0; i < count_; ++i) {
      const Sounding one = SoundingAt(static_cast<std::int32_t>(i));
      auto record = soundings[i].as<DynamicStruct>();
      record.set("id", one.id);
      record.set("x", one.x);
      record.set("y", one.y);
      record.set("z", one.z);
      record.set("depth", one.depth);
      record.set("flags", one.flags);
      record.set("kind", one.kind);
    }
  }

  void DepthToReals(double* numbers) override { Take<float>(depth_, numbers); }
  void XToReals(double* numbers) override { Take<double>(x_, numbers); }
  void FlagsToLongs(std::int32_t* numbers) override { Take<std::int16_t>(flags_, numbers); }

  void RealsToDepth(const double* numbers) override {
    auto soundings = table_.get(soundings_).as<DynamicList>();
    for (unsigned i = 0; i < count_; ++i) {
      soundings[i].as<DynamicStruct>().set(depth_, static_cast<float>(*numbers++));
    }
  }

 private:
  template <class Member, class Number>
  void Take(capnp::StructSchema::Field field, Number* numbers) {
    const DynamicList::Reader soundings = table_.asReader().get(soundings_).as<DynamicList>();
    for (unsigned i = 0; i < count_; ++i) {
      *numbers++ = soundings[i].as<DynamicStruct>().get(field).as<Member>();
    }
  }

  const capnproto::Schema schema_{kSchemaText, "Table"};
  const capnp::StructSchema::Field soundings_ = schema_.Field("soundings");
  const capnp::StructSchema sounding_type_ = soundings_.getType().asList().getStructElementType();
  const capnp::StructSchema::Field x_ = sounding_type_.getFieldByName("x");
  const capnp::StructSchema::Field depth_ = sounding_type_.getFieldByName("depth");
  const capnp::StructSchema::Field flags_ = sounding_type_.getFieldByName("flags");
  capnp::MallocMessageBuilder message_;
  DynamicStruct::Builder table_ = message_.initRoot<DynamicStruct>(schema_.type());
  unsigned count_ = 0;
};

}  // namespace

std::unique_ptr<ColumnTable> MakeCapnpColumns() { return std::make_unique<CapnpColumns>(); }

}  // namespace bench
