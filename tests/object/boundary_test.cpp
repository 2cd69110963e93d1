// The error boundary: which status each failure becomes, and what it says.
#include "object/boundary.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/support/raised.h"

namespace halyard::test {
namespace {

template <class Body>
HRESULT CallOf(Body&& body) {
  LeaveWords(OLESTR("Earlier"), OLESTR("another failure"));
  return Guarded("Structure", "Item", std::forward<Body>(body));
}

TEST(Boundary, BodyThatSucceedsAnswersItsStatus) {
  EXPECT_EQ(Guarded("Structure", "Item", [] {}), S_OK);
  EXPECT_EQ(Guarded("Structure", "Item", [] { return S_FALSE; }), S_FALSE);
}

TEST(Boundary, ErrorIsItsCodeAndItsReason) {
  EXPECT_EQ(CallOf([] { throw Error(E_ABORT, "somebody stopped it"); }), E_ABORT);
  EXPECT_EQ(LeftWords(), "Halyard.Structure: Structure.Item: somebody stopped it.");
}

TEST(Boundary, LackOfMemoryIsToldHoweverItIsNoticed) {
  const std::string words = "Halyard.Structure: Structure.Item: there is not enough memory.";
  EXPECT_EQ(CallOf([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(LeftWords(), words);
  EXPECT_EQ(CallOf([] { throw std::length_error("a string of more characters than there can be"); }),
            E_OUTOFMEMORY);
  EXPECT_EQ(LeftWords(), words);
}

TEST(Boundary, AnythingElseIsAFailureWithoutAReason) {
  EXPECT_EQ(CallOf([] { throw std::runtime_error("unexpected"); }), E_FAIL);
  const std::string words = LeftWords();
  EXPECT_EQ(words.rfind("Halyard.Structure: Structure.Item: ", 0), 0u) << words;
  EXPECT_EQ(words.find("unexpected"), std::string::npos);
  EXPECT_EQ(CallOf([] { throw 7; }), E_FAIL);
  EXPECT_EQ(LeftWords(), words);
}

TEST(Boundary, TriedBodiesSwallowErrorsButNotTheLackOfMemory) {
  EXPECT_EQ(Tried([] {}), S_OK);
  EXPECT_EQ(Tried([] { throw Error(E_ABORT); }), S_FALSE);
  EXPECT_EQ(Tried([] { throw Error(E_OUTOFMEMORY); }), S_FALSE);
  EXPECT_THROW(Tried([] { throw std::bad_alloc(); }), std::bad_alloc);
}

}  // namespace
}  // namespace halyard::test
