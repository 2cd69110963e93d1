#include "members/halyard.h"

#include "support/client.h"

namespace bench {

using namespace halyard;

namespace {

Ptr<IValueBase> NewRecord() {
  const auto definition = NewStructure(1);
  for (const std::string& name : kMemberNames) AddMember(definition, name, kLong);
  Calculate(definition);
  return NewValue(definition);
}

std::vector<Variant> NewNames() {
  std::vector<Variant> names;
  for (const std::string& name : kMemberNames) names.push_back(TextValue(name));
  return names;
}

class HalyardMembers final : public MemberAccess {
 public:
  void PutByPosition(std::int32_t calls) override {
    ForEachCall(calls, [&](LONG member, LONG k) { Check(record_->put_Item(Position(member), Number(k))); });
  }

  void PutByName(std::int32_t calls) override {
    ForEachCall(calls, [&](LONG member, LONG k) { Check(record_->put_Item(NameOf(member), Number(k))); });
  }

  std::int64_t GetByPosition(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](LONG member, LONG) { sum += Get(Position(member)); });
    return sum;
  }

  std::int64_t GetByName(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](LONG member, LONG) { sum += Get(NameOf(member)); });
    return sum;
  }

 private:
  const VARIANT& NameOf(LONG member) const { return names_[static_cast<std::size_t>(member)].get(); }

  LONG Get(const VARIANT& index) { return NumberOf(*record_, index).lVal; }

  const Ptr<IValueBase> record_ = NewRecord();
  const std::vector<Variant> names_ = NewNames();
};

}  // namespace

std::unique_ptr<MemberAccess> MakeHalyardMembers() { return std::make_unique<HalyardMembers>(); }

}  // namespace bench
