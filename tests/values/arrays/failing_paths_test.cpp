// Definitions of somebody else that fail while a member path is resolved against them.
#include <gtest/gtest.h>

#include "tests/support/foreign_composites.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

// A structure with one member, whatever its name is asked for.
class OneMember final : public ForeignStructureDefinition {
 public:
  OneMember() { type.value = kStructure; }

  Answer<LONG> position{0};
  ObjectAnswer<IValueDefBase> member{SimpleDefinition(kLong)};
  HRESULT member_name_status = S_OK;

  HRESULT STDMETHODCALLTYPE MemberIndex(BSTR, LONG* out) override { return position.To(out); }
  HRESULT STDMETHODCALLTYPE get_Members(VARIANT, IValueDefBase** out) override { return member.To(out); }
  HRESULT STDMETHODCALLTYPE get_MemberName(LONG, BSTR* out) override {
    *out = FAILED(member_name_status) ? nullptr : Bstr(OLESTR("Only")).Detach();
    return member_name_status;
  }
};

// An array of Long.
class Longs final : public ForeignArrayDefinition {
 public:
  Longs() {
    type.value = kArray;
    data_type.value = kLong;
  }

  ObjectAnswer<IValueDefBase> element{SimpleDefinition(kLong)};

  HRESULT STDMETHODCALLTYPE get_ValueType(IValueDefBase** out) override { return element.To(out); }
};

// Both transfers of an array of such elements fail, without a message, and move nothing.
void ExpectFailure(const Ptr<IArray>& array, const OLECHAR* path, HRESULT status) {
  const MessageRecorder messages;
  Transferred built{};
  EXPECT_TRUE(Raises(status, [&] { return (built = Build(array, path, I2(kLong), 4)).status; }))
      << Plain(WideView(path));
  EXPECT_EQ(built.result, VARIANT_FALSE) << Plain(WideView(path));
  EXPECT_EQ(built.bytes, Unwritten(4));
  Transferred read{};
  EXPECT_TRUE(Raises(status, [&] { return (read = Read(array, path, I2(kLong), "01 00 00 00")).status; }))
      << Plain(WideView(path));
  EXPECT_EQ(read.result, VARIANT_FALSE) << Plain(WideView(path));
  EXPECT_EQ(messages.Shown(), "");
}

// The path is understood while the definition answers, and fails when it does not.
void ExpectFailureOf(HRESULT& answer, const Ptr<IArray>& array, const OLECHAR* path) {
  EXPECT_EQ(Build(array, path, I2(kLong), 4).result, VARIANT_TRUE) << Plain(WideView(path));
  answer = E_ABORT;
  ExpectFailure(array, path, E_ABORT);
  answer = S_OK;
}

TEST(FailingPath, AnswersOfAStructure) {
  const auto structure = NewForeign<OneMember>();
  const auto array = NewArray(ArrayDefinition(structure));
  ExpectFailureOf(structure->type.status, array, OLESTR(""));
  ExpectFailureOf(structure->type.status, array, OLESTR("n"));
  ExpectFailureOf(structure->position.status, array, OLESTR("n"));
  ExpectFailureOf(structure->position.status, array, OLESTR("[n]"));
  ExpectFailureOf(structure->member.status, array, OLESTR("n"));
}

TEST(FailingPath, AnswersOfANestedArray) {
  const auto nested = NewForeign<Longs>();
  const auto structure = NewForeign<OneMember>();
  structure->member.value = nested;
  const auto array = NewArray(ArrayDefinition(structure));
  ExpectFailureOf(nested->type.status, array, OLESTR("n[0]"));
  ExpectFailureOf(nested->data_type.status, array, OLESTR("n[0]"));
  ExpectFailureOf(nested->count.status, array, OLESTR("n[0]"));
  ExpectFailureOf(nested->element.status, array, OLESTR("n[0]"));
}

TEST(FailingPath, NameOfTheMemberThatIsNoArray) {
  const auto structure = NewForeign<OneMember>();
  const auto array = NewArray(ArrayDefinition(structure));
  {
    MessageRecorder messages;
    EXPECT_EQ(Build(array, OLESTR("n[0]"), I2(kLong), 4).result, VARIANT_FALSE);
    EXPECT_EQ(messages.Shown(), ": Invalild array Only(type Long)\n");
  }
  structure->member_name_status = E_ABORT;
  ExpectFailure(array, OLESTR("n[0]"), E_ABORT);
}

TEST(FailingPath, MissingDefinitions) {
  const auto structure = NewForeign<OneMember>();
  const auto nested = NewForeign<Longs>();
  const auto array = NewArray(ArrayDefinition(structure));
  structure->member.value = nested;
  nested->element.value = nullptr;
  ExpectFailure(array, OLESTR("n[0]"), E_POINTER);
  structure->member.value = nullptr;
  ExpectFailure(array, OLESTR("n"), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
