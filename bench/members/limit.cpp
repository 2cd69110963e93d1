#include "members/limit.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <unordered_map>

namespace bench {
namespace {

class OffsetMembers final : public MemberAccess {
 public:
  OffsetMembers() {
    for (std::size_t i = 0; i < kMemberNames.size(); ++i) {
      names_.emplace_back(kMemberNames[i].begin(), kMemberNames[i].end());
      offsets_.push_back(i * sizeof(std::int32_t));
      offset_of_name_[names_.back()] = offsets_.back();
    }
  }

  void PutByPosition(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Store(offsets_[Index(member)], k); });
  }

  void PutByName(std::int32_t calls) override {
    ForEachCall(calls, [&](std::int32_t member, std::int32_t k) { Store(OffsetOfName(member), k); });
  }

  std::int64_t GetByPosition(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Load(offsets_[Index(member)]); });
    return sum;
  }

  std::int64_t GetByName(std::int32_t calls) override {
    std::int64_t sum = 0;
    ForEachCall(calls, [&](std::int32_t member, std::int32_t) { sum += Load(OffsetOfName(member)); });
    return sum;
  }

 private:
  static std::size_t Index(std::int32_t member) { return static_cast<std::size_t>(member); }

  std::size_t OffsetOfName(std::int32_t member) const {
    return offset_of_name_.find(names_[Index(member)])->second;
  }

  // The compiler must believe that somebody looks at the block after each store, and that
  // somebody may have changed it before each load.
  void Store(std::size_t offset, std::int32_t value) {
    std::memcpy(block_.data() + offset, &value, sizeof value);
    benchmark::ClobberMemory();
  }
  std::int32_t Load(std::size_t offset) const {
    std::int32_t value;
    benchmark::ClobberMemory();
    std::memcpy(&value, block_.data() + offset, sizeof value);
    return value;
  }

  std::vector<char> block_ = std::vector<char>(kMemberNames.size() * sizeof(std::int32_t));
  std::vector<std::size_t> offsets_;
  std::vector<std::u16string> names_;
  std::unordered_map<std::u16string, std::size_t> offset_of_name_;
};

}  // namespace

std::unique_ptr<MemberAccess> MakeOffsetMembers() { return std::make_unique<OffsetMembers>(); }

}  // namespace bench
