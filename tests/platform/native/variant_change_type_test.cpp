// What the recorded table cannot hold: conversions in place, failures, circles, and
// texts that mean this year.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "halyard/object/ptr.h"
#include "halyard/object/variant.h"
#include "halyard/platform/native/date.h"
#include "halyard/platform/native/dispatch.h"
#include "platform/native/variant_type.h"

namespace halyard {
namespace {

// An object whose value is itself.
class Circle final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    ++calls;
    result->vt = VT_DISPATCH;
    result->pdispVal = this;
    AddRef();
    return S_OK;
  }

  ULONG references = 1;
  int calls = 0;
};

TEST(VariantChangeType, ConvertsInPlace) {
  Variant value(u"12.5");
  ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_R8), S_OK);
  EXPECT_EQ(value.type(), VT_R8);
  EXPECT_EQ(value->dblVal, 12.5);
  ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_BSTR), S_OK);
  EXPECT_EQ(ViewOf(value->bstrVal), u"12.5");
  ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_BSTR), S_OK);
  EXPECT_EQ(ViewOf(value->bstrVal), u"12.5");
}

TEST(VariantChangeType, FreesWhatTheDestinationHeld) {
  Variant destination(u"old");
  const Variant source(LONG{7});
  ASSERT_EQ(VariantChangeType(&destination.get(), &source.get(), 0, VT_BSTR), S_OK);
  EXPECT_EQ(ViewOf(destination->bstrVal), u"7");
}

TEST(VariantChangeType, LeavesTheDestinationAloneWhenItFails) {
  Variant value(u"abc");
  EXPECT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_I2), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(ViewOf(value->bstrVal), u"abc");
  const Variant large(LONG{70000});
  EXPECT_EQ(VariantChangeType(&value.get(), &large.get(), 0, VT_I2), DISP_E_OVERFLOW);
  EXPECT_EQ(ViewOf(value->bstrVal), u"abc");
}

TEST(VariantChangeType, RefusesNull) {
  Variant value;
  EXPECT_EQ(VariantChangeType(nullptr, &value.get(), 0, VT_I4), E_INVALIDARG);
  EXPECT_EQ(VariantChangeType(&value.get(), nullptr, 0, VT_I4), E_INVALIDARG);
}

TEST(VariantChangeType, EndsForAnObjectThatIsItsOwnValue) {
  Circle circle;
  {
    const Variant object(static_cast<IDispatch*>(&circle));
    Variant value;
    EXPECT_EQ(VariantChangeType(value.Out(), &object.get(), 0, VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_GT(circle.calls, 1);
  }
  EXPECT_EQ(circle.references, 1u);
}

TEST(VariantChangeType, ReportsAnObjectWithoutTheInterface) {
  Circle circle;
  const Variant object(static_cast<IDispatch*>(&circle));
  Variant value;
  EXPECT_EQ(VariantChangeType(value.Out(), &object.get(), 0, VT_UNKNOWN), E_NOINTERFACE);
  EXPECT_EQ(value.type(), VT_EMPTY);
}

TEST(VariantChangeType, RefusesDecimalsWithTooManyPlaces) {
  VARIANT variant{};
  StoreDecimal(variant, DECIMAL{0, 29, 0, 0, 1});
  for (const VARTYPE type : {VT_I4, VT_R8, VT_CY, VT_BSTR, VT_BOOL}) {
    Variant value;
    EXPECT_EQ(VariantChangeType(value.Out(), &variant, 0, type), E_INVALIDARG) << type;
  }
}

TEST(VariantChangeType, ReadsLongTextsExactly) {
  // A number next to the middle between two doubles, decided by its last digit.
  const WideString middle = u"9007199254740993" + (u"." + WideString(700, u'0'));
  for (const auto& [text, expected] :
       {std::pair{middle, 9007199254740992.0}, {middle + u"1", 9007199254740994.0}}) {
    Variant value(text);
    ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_R8), S_OK);
    EXPECT_EQ(value->dblVal, expected);
  }
  Variant digits(WideString(100000, u'1'));
  EXPECT_EQ(VariantChangeType(&digits.get(), &digits.get(), 0, VT_R8), DISP_E_OVERFLOW);
  Variant small(u"0." + WideString(1500, u'0') + u"25e1501");
  ASSERT_EQ(VariantChangeType(&small.get(), &small.get(), 0, VT_R8), S_OK);
  EXPECT_EQ(small->dblVal, 2.5);
}

TEST(VariantChangeType, BringsEveryTextOfADoubleBackToFifteenDigits) {
  for (double value = 1e-300; value < 1e300; value *= 1.7e11) {
    Variant variant(value);
    ASSERT_EQ(VariantChangeType(&variant.get(), &variant.get(), 0, VT_BSTR), S_OK);
    ASSERT_EQ(VariantChangeType(&variant.get(), &variant.get(), 0, VT_R8), S_OK);
    EXPECT_NEAR(variant->dblVal / value, 1.0, 1e-14);
  }
}

TEST(VariantChangeType, TakesTextsWithoutAYearForThisYear) {
  Variant value(u"3/15");
  ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_DATE), S_OK);
  SYSTEMTIME time{};
  ASSERT_EQ(VariantTimeToSystemTime(value->date, &time), 1);
  EXPECT_EQ(time.wMonth, 3);
  EXPECT_EQ(time.wDay, 15);
  EXPECT_GE(time.wYear, 2024);

  Variant with_year(WideString(u"3/15/") +
                    WideString(std::u16string{static_cast<char16_t>(u'0' + time.wYear / 1000),
                                              static_cast<char16_t>(u'0' + time.wYear / 100 % 10),
                                              static_cast<char16_t>(u'0' + time.wYear / 10 % 10),
                                              static_cast<char16_t>(u'0' + time.wYear % 10)}));
  ASSERT_EQ(VariantChangeType(&with_year.get(), &with_year.get(), 0, VT_DATE), S_OK);
  EXPECT_EQ(with_year->date, value->date);
}

TEST(VariantChangeType, TakesOneLetterForAHalfOfTheDay) {
  for (const auto& [text, expected] :
       {std::pair{u"1p", 13.0 / 24}, {u"1 p", 13.0 / 24}, {u"12:00a", 0.0}, {u"6:00 a", 0.25}}) {
    Variant value(text);
    ASSERT_EQ(VariantChangeType(&value.get(), &value.get(), 0, VT_DATE), S_OK);
    EXPECT_DOUBLE_EQ(value->date, expected);
  }
}

}  // namespace
}  // namespace halyard
