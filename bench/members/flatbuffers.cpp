#include <flatbuffers/flatbuffers.h>
#include <flatbuffers/idl.h>
#include <flatbuffers/reflection.h>

#include "members/rivals.h"
#include "support/demand.h"

namespace bench {
namespace {

// The schema as text, and a record in which no field has its default: fields that are left
// out cannot be set in place.
std::string SchemaText() {
  std::string fields;
  for (const std::string& name : kMemberNames) fields += name + ":int; ";
  return "table Record { " + fields + "} root_type Record;";
}

std::string RecordText() {
  std::string fields;
  for (const std::string& name : kMemberNames) fields += (fields.empty() ? "" : ", ") + name + ": 1";
  return "{ " + fields + " }";
}

class FlatbuffersMembers final : public MemberAccess {
 public:
  FlatbuffersMembers() {
    Demand(parser_.Parse(SchemaText().c_str()), "the schema is not accepted");
    parser_.Serialize();
    const std::uint8_t* const bytes = parser_.builder_.GetBufferPointer();
    schema_bytes_.assign(bytes, bytes + parser_.builder_.GetSize());
    fields_ = reflection::GetSchema(schema_bytes_.data())->root_table()->fields();
    for (const std::string& name : kMemberNames) by_position_.push_back(Find(name));
    Demand(parser_.Parse(RecordText().c_str()), "the record is not accepted");
    table_ = flatbuffers::GetAnyRoot(parser_.builder_.GetBufferPointer());
  }

  void PutByPosition(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(At(member), k); });
  }
  void PutByName(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Put(Called(member), k); });
  }
  std::int64_t GetByPosition(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Get(At(member)); });
    return sum;
  }
  std::int64_t GetByName(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Get(Called(member)); });
    return sum;
  }

 private:
  using Field = const reflection::Field*;

  Field Find(const std::string& name) const { return fields_->LookupByKey(name.c_str()); }
  Field At(std::int32_t member) const { return by_position_[static_cast<std::size_t>(member)]; }
  Field Called(std::int32_t member) const { return Find(kMemberNames[static_cast<std::size_t>(member)]); }

  void Put(Field field, std::int32_t number) {
    Demand(flatbuffers::SetField(table_, *field, number), "a field cannot be set");
  }
  std::int32_t Get(Field field) const { return flatbuffers::GetFieldI<std::int32_t>(*table_, *field); }

  flatbuffers::Parser parser_;
  std::vector<std::uint8_t> schema_bytes_;
  const flatbuffers::Vector<flatbuffers::Offset<reflection::Field>>* fields_ = nullptr;
  std::vector<Field> by_position_;
  flatbuffers::Table* table_ = nullptr;
};

}  // namespace

std::unique_ptr<MemberAccess> MakeFlatbuffersMembers() { return std::make_unique<FlatbuffersMembers>(); }

}  // namespace bench
