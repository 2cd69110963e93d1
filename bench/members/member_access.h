// MemberAccess: what a participant of W5 does. It holds a record of ten 32-bit members
// and writes or reads one after another, by position or by name. Call number k uses
// member k modulo 10 and, when it writes, writes the number k.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/action.h"

namespace bench {

inline constexpr std::int32_t kMemberCount = 10;

// The members' names, of the kind that records have.
inline const std::vector<std::string> kMemberNames = {"Id",    "Depth", "Course", "Speed",  "Heading",
                                                      "Pitch", "Roll",  "Height", "Status", "Quality"};

class MemberAccess {
 public:
  virtual ~MemberAccess() = default;
  virtual void PutByPosition(std::int32_t calls) = 0;
  virtual void PutByName(std::int32_t calls) = 0;

  // The sum of the numbers read.
  virtual std::int64_t GetByPosition(std::int32_t calls) = 0;
  virtual std::int64_t GetByName(std::int32_t calls) = 0;
};

using MemberAccessMaker = std::unique_ptr<MemberAccess> (*)();

// Adds the four tasks of W5.
void AddMemberAccess(Actions& actions, const char* participant, MemberAccessMaker make);

// Calls `access(member, k)` for each of so many calls: the order that all participants use.
template <class Access>
void ForEachCall(std::int32_t calls, Access access) {
  for (std::int32_t k = 0; k < calls; k += kMemberCount) {
    for (std::int32_t member = 0; member < kMemberCount; ++member) access(member, k + member);
  }
}

}  // namespace bench
