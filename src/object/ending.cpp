#include "object/ending.h"

#include <new>

namespace halyard {
namespace {

// Ends within ends that run on the stack, before further ones wait.
constexpr int kDeepestEnd = 64;

// An object whose end waits for the stack to be free.
struct Waiting {
  void* object;
  void (*end)(void* object);
  Waiting* next;
};

// Plain data, because objects may end after a thread's other variables are gone.
thread_local int t_depth = 0;
thread_local Waiting* t_waiting = nullptr;

// False when there is no memory to wait in.
bool Wait(void* object, void (*end)(void* object)) noexcept {
  auto* waiting = new (std::nothrow) Waiting{object, end, t_waiting};
  if (waiting != nullptr) t_waiting = waiting;
  return waiting != nullptr;
}

void EndWaiting() noexcept {
  while (Waiting* waiting = t_waiting) {
    t_waiting = waiting->next;
    const Waiting taken = *waiting;
    delete waiting;
    taken.end(taken.object);
  }
}

}  // namespace

void EndObject(void* object, void (*end)(void* object)) noexcept {
  if (t_depth >= kDeepestEnd && Wait(object, end)) return;
  ++t_depth;
  end(object);
  if (t_depth == 1) EndWaiting();
  --t_depth;
}

}  // namespace halyard
