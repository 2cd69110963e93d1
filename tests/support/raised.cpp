#include "tests/support/raised.h"

#include <array>
#include <cstdio>
#include <string>

namespace halyard::test {

std::string StatusText(HRESULT status) {
  std::array<char, 16> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "0x%08X", static_cast<unsigned>(status));
  return buffer.data();
}

testing::AssertionResult CheckRaised(HRESULT expected, HRESULT status) {
  if (status != expected) {
    return testing::AssertionFailure()
           << "the status is " << StatusText(status) << ", not " << StatusText(expected);
  }
  Ptr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Out()) != S_OK || !info) {
    return testing::AssertionFailure() << "the call left no error object";
  }
  Bstr description;
  if (info->GetDescription(description.Out()) != S_OK || description.View().empty()) {
    return testing::AssertionFailure() << "the error object has no description";
  }
  Bstr source;
  if (info->GetSource(source.Out()) != S_OK || source.View().empty()) {
    return testing::AssertionFailure() << "the error object has no source";
  }
  return testing::AssertionSuccess();
}

std::string LeftWords() {
  Ptr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Out()) != S_OK || !info) return {};
  Bstr source;
  Bstr description;
  EXPECT_EQ(info->GetSource(source.Out()), S_OK);
  EXPECT_EQ(info->GetDescription(description.Out()), S_OK);
  return Plain(source.get()) + ": " + Plain(description.get());
}

void LeaveWords(const OLECHAR* source, const OLECHAR* description) {
  Ptr<ICreateErrorInfo> info;
  ASSERT_EQ(CreateErrorInfo(info.Out()), S_OK);
  WideString source_text(source);
  WideString description_text(description);
  EXPECT_EQ(info->SetSource(source_text.data()), S_OK);
  EXPECT_EQ(info->SetDescription(description_text.data()), S_OK);
  EXPECT_EQ(SetErrorInfo(0, info.As<IErrorInfo>().get()), S_OK);
}

}  // namespace halyard::test
