// docs/format.md describes what the library writes and reads: each of its examples is
// compared with the code, and none stands there unchecked.
#include "tests/docs/format_examples.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>

namespace halyard::test {
namespace {

constexpr char kDocument[] = "docs/format.md";

std::vector<ExampleCheck> AllChecks() {
  std::vector<ExampleCheck> all;
  for (const auto& chapter : {DefinitionExamples(), ValueExamples(), FileExamples()}) {
    std::copy(chapter.begin(), chapter.end(), std::back_inserter(all));
  }
  return all;
}

TEST(FormatDocument, HasACheckForEachExampleAndAnExampleForEachCheck) {
  std::set<std::string> described;
  for (const auto& [name, bytes] : ExamplesIn(kDocument)) described.insert(name);
  std::set<std::string> checked;
  for (const ExampleCheck& check : AllChecks()) checked.insert(check.name);
  EXPECT_EQ(described, checked);
}

class FormatExample : public testing::TestWithParam<ExampleCheck> {};

TEST_P(FormatExample, IsWhatTheLibraryWritesAndReads) {
  const auto examples = ExamplesIn(kDocument);
  const auto example = examples.find(GetParam().name);
  ASSERT_NE(example, examples.end());
  GetParam().check(ToHex(example->second));
}

std::string TestName(const testing::TestParamInfo<ExampleCheck>& info) {
  std::string name = info.param.name;
  for (char& c : name) {
    if (c == '-') c = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(FormatDocument, FormatExample, testing::ValuesIn(AllChecks()), TestName);

}  // namespace
}  // namespace halyard::test
