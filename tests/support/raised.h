// Checks of calls that fail.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "halyard/object/bstr.h"
#include "halyard/object/ptr.h"
#include "tests/support/variants.h"

namespace halyard::test {

// Shows a status as people read it: 0x80004003.
std::string StatusText(HRESULT status);

// Whether `call` fails with that code and leaves an error object with a description and
// a source: EXPECT_TRUE(Raises(E_POINTER, [&] { return value->Copy(...); })).
template <class Call>
testing::AssertionResult Raises(HRESULT code, Call&& call);

// What the last failing call said, as "Source: Description", and nothing where no error
// object was left. The words are taken: they are not there a second time.
std::string LeftWords();

// Leaves an error object as a failing call does.
void LeaveWords(const OLECHAR* source, const OLECHAR* description);

// The part of Raises that looks at the outcome.
testing::AssertionResult CheckRaised(HRESULT expected, HRESULT status);

template <class Call>
testing::AssertionResult Raises(HRESULT code, Call&& call) {
  static_cast<void>(SetErrorInfo(0, nullptr));
  return CheckRaised(code, call());
}

}  // namespace halyard::test
