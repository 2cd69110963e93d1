#include "halyard/platform/native/variant.h"

#include <gtest/gtest.h>

#include <cstring>

#include "halyard/object/ptr.h"
#include "halyard/object/variant.h"
#include "platform/native/variant_type.h"
#include "tests/recorder/default_member.h"

namespace halyard {
namespace {

VARIANT Raw(VARTYPE type) {
  VARIANT variant{};
  variant.vt = type;
  return variant;
}

Ptr<IDispatch> NewObject() { return Ptr<IDispatch>::Adopt(recorder::NewDefaultMember("I4:5")); }

ULONG References(IDispatch* object) {
  object->AddRef();
  return object->Release();
}

TEST(VariantInit, EmptiesWithoutLooking) {
  VARIANT variant;
  std::memset(&variant, 0xCD, sizeof(variant));
  VariantInit(&variant);
  EXPECT_EQ(variant.vt, VT_EMPTY);
  VariantInit(nullptr);
}

TEST(VariantClear, GivesWhatItOwnsBack) {
  const Ptr<IDispatch> object = NewObject();
  VARIANT variant = Raw(VT_DISPATCH);
  variant.pdispVal = Ptr<IDispatch>(object).Detach();
  EXPECT_EQ(References(object.get()), 2u);
  EXPECT_EQ(VariantClear(&variant), S_OK);
  EXPECT_EQ(variant.vt, VT_EMPTY);
  EXPECT_EQ(References(object.get()), 1u);
  EXPECT_EQ(VariantClear(&variant), S_OK);
}

TEST(VariantClear, LeavesWhatItOnlyRefersTo) {
  Bstr text(u"mine");
  BSTR pointed = text.get();
  VARIANT variant = Raw(VT_BSTR | VT_BYREF);
  variant.pbstrVal = &pointed;
  EXPECT_EQ(VariantClear(&variant), S_OK);
  EXPECT_EQ(text.View(), u"mine");
}

TEST(VariantClear, RefusesWhatNoVariantIs) {
  EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG);
  VARIANT variant = Raw(0x0FFF);
  variant.llVal = 7;
  EXPECT_EQ(VariantClear(&variant), DISP_E_BADVARTYPE);
  EXPECT_EQ(variant.vt, 0x0FFF);
  EXPECT_EQ(variant.llVal, 7);
}

TEST(VariantClear, LeavesForeignArraysAndRecordsAlone) {
  int something = 0;
  VARIANT array = Raw(VT_ARRAY | VT_I4);
  array.parray = reinterpret_cast<SAFEARRAY*>(&something);
  EXPECT_EQ(VariantClear(&array), DISP_E_BADVARTYPE);
  VARIANT record = Raw(VT_RECORD);
  record.record.pvRecord = &something;
  EXPECT_EQ(VariantClear(&record), DISP_E_BADVARTYPE);
  VARIANT copy = Raw(VT_EMPTY);
  EXPECT_EQ(VariantCopy(&copy, &array), DISP_E_BADVARTYPE);
  EXPECT_EQ(VariantCopy(&copy, &record), DISP_E_BADVARTYPE);
  EXPECT_EQ(VariantChangeType(&copy, &array, 0, VT_I4), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(copy.vt, VT_EMPTY);
}

TEST(VariantCopy, CopiesTextsInDepth) {
  const Variant source(WideView(u"a\0b", 3));
  Variant copy;
  ASSERT_EQ(VariantCopy(copy.Out(), &source.get()), S_OK);
  EXPECT_NE(copy->bstrVal, source->bstrVal);
  EXPECT_EQ(ViewOf(copy->bstrVal), WideView(u"a\0b", 3));
}

TEST(VariantCopy, KeepsOddTexts) {
  VARIANT source = Raw(VT_BSTR);
  source.bstrVal = SysAllocStringByteLen("12345", 5);
  Variant copy;
  ASSERT_EQ(VariantCopy(copy.Out(), &source), S_OK);
  EXPECT_EQ(SysStringByteLen(copy->bstrVal), 5u);
  VariantClear(&source);
}

TEST(VariantCopy, SharesObjects) {
  const Ptr<IDispatch> object = NewObject();
  const Variant source(object.get());
  Variant copy;
  ASSERT_EQ(VariantCopy(copy.Out(), &source.get()), S_OK);
  EXPECT_EQ(copy->pdispVal, object.get());
  EXPECT_EQ(References(object.get()), 3u);
}

TEST(VariantCopy, FreesWhatTheDestinationHeld) {
  const Ptr<IDispatch> object = NewObject();
  Variant destination(object.get());
  const Variant source(LONG{7});
  ASSERT_EQ(VariantCopy(&destination.get(), &source.get()), S_OK);
  EXPECT_EQ(References(object.get()), 1u);
  EXPECT_EQ(destination->lVal, 7);
}

TEST(VariantCopy, ToItselfChangesNothing) {
  Variant text(u"same");
  const BSTR before = text->bstrVal;
  EXPECT_EQ(VariantCopy(&text.get(), &text.get()), S_OK);
  EXPECT_EQ(text->bstrVal, before);
  EXPECT_EQ(ViewOf(text->bstrVal), u"same");
}

TEST(VariantCopy, RefusesNullAndUnknownTypes) {
  Variant variant;
  const VARIANT unknown = Raw(15);
  EXPECT_EQ(VariantCopy(nullptr, &variant.get()), E_INVALIDARG);
  EXPECT_EQ(VariantCopy(&variant.get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(VariantCopy(&variant.get(), &unknown), DISP_E_BADVARTYPE);
  VARIANT bad_destination = Raw(15);
  const Variant text(u"kept by nobody");
  EXPECT_EQ(VariantCopy(&bad_destination, &text.get()), DISP_E_BADVARTYPE);
}

TEST(VariantCopyInd, FollowsReferences) {
  LONG number = 70000;
  VARIANT by_ref = Raw(VT_I4 | VT_BYREF);
  by_ref.plVal = &number;
  VARIANT by_variant = Raw(VT_VARIANT | VT_BYREF);
  by_variant.pvarVal = &by_ref;
  Variant copy;
  ASSERT_EQ(VariantCopyInd(copy.Out(), &by_variant), S_OK);
  EXPECT_EQ(copy.type(), VT_I4);
  EXPECT_EQ(copy->lVal, 70000);
}

TEST(VariantCopyInd, ReplacesAReferenceByItsOwnTarget) {
  Variant target(u"text");
  VARIANT variant = Raw(VT_VARIANT | VT_BYREF);
  variant.pvarVal = &target.get();
  ASSERT_EQ(VariantCopyInd(&variant, &variant), S_OK);
  EXPECT_EQ(variant.vt, VT_BSTR);
  EXPECT_EQ(ViewOf(variant.bstrVal), u"text");
  EXPECT_NE(variant.bstrVal, target->bstrVal);
  VariantClear(&variant);
}

TEST(VariantCopyInd, OverwritesTheVariantThatItReads) {
  Variant target(u"text");
  VARIANT reference = Raw(VT_VARIANT | VT_BYREF);
  reference.pvarVal = &target.get();
  ASSERT_EQ(VariantCopyInd(&target.get(), &reference), S_OK);
  EXPECT_EQ(ViewOf(target->bstrVal), u"text");
}

TEST(VariantCopyInd, RefusesReferencesToNothing) {
  for (VARTYPE type = VT_I2; type <= VT_UINT; ++type) {
    const VARIANT null_reference = Raw(static_cast<VARTYPE>(type | VT_BYREF));
    Variant copy(LONG{7});
    EXPECT_TRUE(FAILED(VariantCopyInd(&copy.get(), &null_reference))) << type;
    EXPECT_TRUE(FAILED(VariantChangeType(&copy.get(), &null_reference, 0, VT_BSTR))) << type;
    EXPECT_EQ(copy->lVal, 7);
  }
}

TEST(VariantCopyInd, RefusesAReferenceToItself) {
  VARIANT circle = Raw(VT_VARIANT | VT_BYREF);
  circle.pvarVal = &circle;
  Variant copy;
  EXPECT_EQ(VariantCopyInd(copy.Out(), &circle), E_INVALIDARG);
  EXPECT_EQ(VariantChangeType(copy.Out(), &circle, 0, VT_I4), E_INVALIDARG);
}

TEST(Decimal, LiesOverTheVariant) {
  VARIANT variant{};
  StoreDecimal(variant, DECIMAL{0, 3, DECIMAL_NEG, 1, 2});
  EXPECT_EQ(variant.vt, VT_DECIMAL);
  const DECIMAL value = DecimalIn(variant);
  EXPECT_EQ(value.wReserved, 0);
  EXPECT_EQ(value.scale, 3);
  EXPECT_EQ(value.sign, DECIMAL_NEG);
  EXPECT_EQ(value.Hi32, 1u);
  EXPECT_EQ(value.Lo64, 2u);
}

}  // namespace
}  // namespace halyard
