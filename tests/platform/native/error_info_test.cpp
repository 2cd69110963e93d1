#include "halyard/platform/native/error_info.h"

#include <gtest/gtest.h>

#include <thread>

#include "halyard/object/bstr.h"
#include "halyard/object/ptr.h"

namespace halyard {
namespace {

constexpr GUID kSomeInterface = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

Ptr<ICreateErrorInfo> NewErrorInfo() {
  Ptr<ICreateErrorInfo> info;
  EXPECT_EQ(CreateErrorInfo(info.Out()), S_OK);
  return info;
}

Ptr<IErrorInfo> Described(const OLECHAR* description) {
  const Ptr<ICreateErrorInfo> info = NewErrorInfo();
  EXPECT_EQ(info->SetDescription(const_cast<LPOLESTR>(description)), S_OK);
  return info.As<IErrorInfo>();
}

Ptr<IErrorInfo> TakeErrorInfo() {
  Ptr<IErrorInfo> info;
  GetErrorInfo(0, info.Out());
  return info;
}

WideString Description(const Ptr<IErrorInfo>& info) {
  Bstr text;
  EXPECT_EQ(info->GetDescription(text.Out()), S_OK);
  return WideString(text.View());
}

TEST(ErrorInfo, AnswersWhatWasSet) {
  const Ptr<ICreateErrorInfo> maker = NewErrorInfo();
  WideString source = u"Halyard.Unit";
  WideString description = u"the unit ends early";
  WideString help_file = u"halyard.chm";
  EXPECT_EQ(maker->SetGUID(kSomeInterface), S_OK);
  EXPECT_EQ(maker->SetSource(source.data()), S_OK);
  EXPECT_EQ(maker->SetDescription(description.data()), S_OK);
  EXPECT_EQ(maker->SetHelpFile(help_file.data()), S_OK);
  EXPECT_EQ(maker->SetHelpContext(42), S_OK);
  source[0] = description[0] = help_file[0] = u'?';

  const Ptr<IErrorInfo> info = maker.As<IErrorInfo>();
  ASSERT_TRUE(info);
  GUID guid = IID_NULL;
  DWORD context = 0;
  Bstr text;
  EXPECT_EQ(info->GetGUID(&guid), S_OK);
  EXPECT_TRUE(guid == kSomeInterface);
  EXPECT_EQ(info->GetSource(text.Out()), S_OK);
  EXPECT_EQ(text.View(), u"Halyard.Unit");
  EXPECT_EQ(Description(info), u"the unit ends early");
  EXPECT_EQ(info->GetHelpFile(text.Out()), S_OK);
  EXPECT_EQ(text.View(), u"halyard.chm");
  EXPECT_EQ(info->GetHelpContext(&context), S_OK);
  EXPECT_EQ(context, 42u);
}

TEST(ErrorInfo, IsEmptyAtFirstAndForgetsOldTexts) {
  const Ptr<ICreateErrorInfo> maker = NewErrorInfo();
  const Ptr<IErrorInfo> info = maker.As<IErrorInfo>();
  BSTR text = reinterpret_cast<BSTR>(0x1);
  EXPECT_EQ(info->GetSource(&text), S_OK);
  EXPECT_EQ(text, nullptr);

  WideString first = u"first";
  WideString second = u"second";
  EXPECT_EQ(maker->SetDescription(first.data()), S_OK);
  EXPECT_EQ(maker->SetDescription(second.data()), S_OK);
  EXPECT_EQ(Description(info), u"second");
  EXPECT_EQ(maker->SetDescription(nullptr), S_OK);
  EXPECT_EQ(info->GetDescription(&text), S_OK);
  EXPECT_EQ(text, nullptr);
}

TEST(ErrorInfo, IsOneObjectBehindBothInterfaces) {
  const Ptr<ICreateErrorInfo> maker = NewErrorInfo();
  const Ptr<IErrorInfo> info = maker.As<IErrorInfo>();
  EXPECT_EQ(maker.As<IUnknown>().get(), info.As<IUnknown>().get());
  EXPECT_FALSE(info.As<ISupportErrorInfo>());
}

TEST(ErrorInfo, RefusesNullArguments) {
  const Ptr<ICreateErrorInfo> maker = NewErrorInfo();
  const Ptr<IErrorInfo> info = maker.As<IErrorInfo>();
  EXPECT_EQ(CreateErrorInfo(nullptr), E_INVALIDARG);
  EXPECT_EQ(GetErrorInfo(0, nullptr), E_INVALIDARG);
  EXPECT_EQ(info->GetGUID(nullptr), E_INVALIDARG);
  EXPECT_EQ(info->GetSource(nullptr), E_INVALIDARG);
  EXPECT_EQ(info->GetDescription(nullptr), E_INVALIDARG);
  EXPECT_EQ(info->GetHelpFile(nullptr), E_INVALIDARG);
  EXPECT_EQ(info->GetHelpContext(nullptr), E_INVALIDARG);
  EXPECT_EQ(info->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(ErrorSlot, HandsTheObjectOverOnce) {
  const Ptr<IErrorInfo> info = Described(u"once");
  ASSERT_EQ(SetErrorInfo(0, info.get()), S_OK);
  Ptr<IErrorInfo> taken;
  EXPECT_EQ(GetErrorInfo(0, taken.Out()), S_OK);
  EXPECT_EQ(taken.get(), info.get());
  EXPECT_EQ(GetErrorInfo(0, taken.Out()), S_FALSE);
  EXPECT_FALSE(taken);
}

TEST(ErrorSlot, KeepsTheLastObjectAndCanBeEmptied) {
  ASSERT_EQ(SetErrorInfo(0, Described(u"first").get()), S_OK);
  ASSERT_EQ(SetErrorInfo(0, Described(u"second").get()), S_OK);
  EXPECT_EQ(Description(TakeErrorInfo()), u"second");
  ASSERT_EQ(SetErrorInfo(0, Described(u"third").get()), S_OK);
  ASSERT_EQ(SetErrorInfo(0, nullptr), S_OK);
  EXPECT_FALSE(TakeErrorInfo());
}

TEST(ErrorSlot, RefusesReservedArguments) {
  ASSERT_EQ(SetErrorInfo(0, nullptr), S_OK);
  const Ptr<IErrorInfo> info = Described(u"no");
  Ptr<IErrorInfo> taken;
  EXPECT_EQ(SetErrorInfo(1, info.get()), E_INVALIDARG);
  EXPECT_EQ(GetErrorInfo(1, taken.Out()), E_INVALIDARG);
  EXPECT_FALSE(TakeErrorInfo());
}

TEST(ErrorSlot, IsOneForEachThread) {
  ASSERT_EQ(SetErrorInfo(0, Described(u"here").get()), S_OK);
  std::thread other([] {
    EXPECT_FALSE(TakeErrorInfo());
    EXPECT_EQ(SetErrorInfo(0, Described(u"left behind by a thread that ends").get()), S_OK);
  });
  other.join();
  EXPECT_EQ(Description(TakeErrorInfo()), u"here");
}

}  // namespace
}  // namespace halyard
