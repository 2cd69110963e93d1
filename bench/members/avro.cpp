#include "rivals/avro.h"

#include "members/rivals.h"

namespace bench {
namespace {

using avro::Require;

std::string Schema() {
  std::string fields;
  for (const std::string& name : kMemberNames) {
    if (!fields.empty()) fields += ", ";
    fields += R"({"name": ")" + name + R"(", "type": "int"})";
  }
  return R"({"type": "record", "name": "Record", "fields": [)" + fields + "]}";
}

class AvroMembers final : public MemberAccess {
 public:
  void PutByPosition(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(At(member), k); });
  }
  void PutByName(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(Called(member), k); });
  }
  std::int64_t GetByPosition(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += avro::Int(At(member)); });
    return sum;
  }
  std::int64_t GetByName(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += avro::Int(Called(member)); });
    return sum;
  }

 private:
  static void Put(avro_value_t field, std::int32_t number) { Require(avro_value_set_int(&field, number)); }

  avro_value_t At(std::int32_t member) { return record_.Field(static_cast<std::size_t>(member)); }

  avro_value_t Called(std::int32_t member) {
    const std::string& name = kMemberNames[static_cast<std::size_t>(member)];
    avro_value_t field;
    Require(avro_value_get_by_name(record_.get(), name.c_str(), &field, nullptr));
    return field;
  }

  const avro::Type type_{Schema()};
  avro::Value record_{type_};
};

}  // namespace

std::unique_ptr<MemberAccess> MakeAvroMembers() { return std::make_unique<AvroMembers>(); }

}  // namespace bench
