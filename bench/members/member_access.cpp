#include "members/member_access.h"

#include <benchmark/benchmark.h>

#include "support/demand.h"

namespace bench {
namespace {

constexpr std::int32_t kCalls = 1000000;

// What ten reads add up to after kCalls writes.
constexpr std::int64_t SumAfterAllPuts() {
  std::int64_t sum = 0;
  for (std::int32_t k = kCalls - kMemberCount; k < kCalls; ++k) sum += k;
  return sum;
}

using Put = void (MemberAccess::*)(std::int32_t);
using Get = std::int64_t (MemberAccess::*)(std::int32_t);

void AddPut(Actions& actions, const char* task, const char* participant, MemberAccessMaker make, Put put,
            Get get) {
  actions.push_back({"W5", task, participant, kCalls, [make, put, get] {
                       const std::shared_ptr<MemberAccess> access = make();
                       ((*access).*put)(kCalls);
                       Demand(((*access).*get)(kMemberCount) == SumAfterAllPuts(),
                              "a member is not what was put");
                       return Prepared{{}, [access, put] { ((*access).*put)(kCalls); }};
                     }});
}

void AddGet(Actions& actions, const char* task, const char* participant, MemberAccessMaker make, Put put,
            Get get) {
  actions.push_back(
      {"W5", task, participant, kCalls, [make, put, get] {
         const std::shared_ptr<MemberAccess> access = make();
         ((*access).*put)(kCalls);
         Demand(((*access).*get)(kCalls) == SumAfterAllPuts() * (kCalls / kMemberCount),
                "a member reads otherwise than it was put");
         return Prepared{{}, [access, get] { benchmark::DoNotOptimize(((*access).*get)(kCalls)); }};
       }});
}

}  // namespace

void AddMemberAccess(Actions& actions, const char* participant, MemberAccessMaker make) {
  AddPut(actions, "put by position", participant, make, &MemberAccess::PutByPosition,
         &MemberAccess::GetByPosition);
  AddGet(actions, "get by position", participant, make, &MemberAccess::PutByPosition,
         &MemberAccess::GetByPosition);
  AddPut(actions, "put by name", participant, make, &MemberAccess::PutByName, &MemberAccess::GetByName);
  AddGet(actions, "get by name", participant, make, &MemberAccess::PutByName, &MemberAccess::GetByName);
}

}  // namespace bench
