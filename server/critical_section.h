// A critical section of the system as an object, and the hold on one.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

class CriticalSection {
 public:
  CriticalSection() noexcept { InitializeCriticalSection(&section_); }
  ~CriticalSection() { DeleteCriticalSection(&section_); }
  CriticalSection(const CriticalSection&) = delete;
  CriticalSection& operator=(const CriticalSection&) = delete;

  void Enter() noexcept { EnterCriticalSection(&section_); }
  void Leave() noexcept { LeaveCriticalSection(&section_); }

 private:
  CRITICAL_SECTION section_;
};

class CriticalSectionHold {
 public:
  explicit CriticalSectionHold(CriticalSection& section) noexcept : section_(section) { section_.Enter(); }
  ~CriticalSectionHold() { section_.Leave(); }
  CriticalSectionHold(const CriticalSectionHold&) = delete;
  CriticalSectionHold& operator=(const CriticalSectionHold&) = delete;

 private:
  CriticalSection& section_;
};

}  // namespace halyard
