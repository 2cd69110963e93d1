// Late binding where there is no type library: the default member and nothing else.
#include <gtest/gtest.h>

#include "halyard/classes.h"
#include "tests/support/definitions.h"

namespace halyard::test {
namespace {

Ptr<IDispatch> Seven() {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  return value;
}

HRESULT Invoke(const Ptr<IDispatch>& object, DISPID id, WORD flags, UINT arguments, VARIANT* result) {
  DISPPARAMS params{};
  params.cArgs = arguments;
  return object->Invoke(id, IidOf<IUnknown>, 0, flags, &params, result, nullptr, nullptr);
}

TEST(NativeDispatch, HasNoTypeInformation) {
  const auto object = Seven();
  EXPECT_EQ(Get(object, &IDispatch::GetTypeInfoCount), 0u);
  EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
  ITypeInfo* info = Garbage<ITypeInfo*>();
  EXPECT_EQ(object->GetTypeInfo(0, 0, &info), E_NOTIMPL);
  EXPECT_EQ(info, nullptr);
  EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST(NativeDispatch, KnowsNoNames) {
  WideString text(OLESTR("Item"));
  LPOLESTR name = text.data();
  DISPID id = Garbage<DISPID>();
  EXPECT_EQ(Seven()->GetIDsOfNames(IidOf<IUnknown>, &name, 1, 0, &id), E_NOTIMPL);
  EXPECT_EQ(id, Garbage<DISPID>());
}

TEST(NativeDispatch, AnswersTheDefaultMemberAlone) {
  const auto object = Seven();
  Variant result;
  EXPECT_EQ(Invoke(object, DISPID_VALUE, DISPATCH_PROPERTYGET, 0, result.Out()), S_OK);
  EXPECT_EQ(Describe(result), "I4 7");
  EXPECT_EQ(Invoke(object, DISPID_VALUE, DISPATCH_PROPERTYGET, 1, result.Out()), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Invoke(object, DISPID_VALUE, DISPATCH_PROPERTYGET, 0, nullptr), E_POINTER);
  EXPECT_EQ(Invoke(object, DISPID_VALUE, DISPATCH_PROPERTYPUT, 0, result.Out()), E_NOTIMPL);
  EXPECT_EQ(Invoke(object, 1, DISPATCH_PROPERTYGET, 0, result.Out()), E_NOTIMPL);
}

}  // namespace
}  // namespace halyard::test
