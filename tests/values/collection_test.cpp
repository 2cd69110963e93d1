// The collection: a declared type whose values hold nothing.
#include <gtest/gtest.h>

#include "halyard/values/collection.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> NewCollection() { return CreateObject<ICollectionImpl>(kCollectionClass); }

TEST(Collection, HasAType) {
  const auto value = NewCollection();
  EXPECT_EQ(Get(value, &IValueBase::get_Type), kCollection);
  EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Collection");
}

TEST(Collection, AnswersItsInterfaces) {
  const auto value = NewCollection();
  EXPECT_TRUE(value.As<ICollectionImpl>());
  EXPECT_TRUE(value.As<ICollection>());
  EXPECT_TRUE(value.As<IDispatch>());
  EXPECT_TRUE(value.As<IObjectSafety>());
}

TEST(Collection, ReadingCallsAreNotImplementedAndTouchNothing) {
  const auto value = NewCollection();
  const Variant index = I4(0);
  VARIANT content = Garbage<VARIANT>();
  auto* text = Garbage<BSTR>();
  LONG count = 77;
  SHORT id = 77;
  auto* object = Garbage<IValueBase*>();
  auto* info = Garbage<IValueDefBase*>();
  EXPECT_EQ(value->get_Item(index.get(), &content), E_NOTIMPL);
  EXPECT_EQ(value->get_Value(&content), E_NOTIMPL);
  EXPECT_EQ(content.vt, Garbage<VARTYPE>());
  EXPECT_EQ(value->get_Name(index.get(), &text), E_NOTIMPL);
  EXPECT_EQ(text, Garbage<BSTR>());
  EXPECT_EQ(value->get_Count(&count), E_NOTIMPL);
  EXPECT_EQ(count, 77);
  EXPECT_EQ(value->get_At(index.get(), &object), E_NOTIMPL);
  EXPECT_EQ(value->Copy(&object), E_NOTIMPL);
  EXPECT_EQ(object, Garbage<IValueBase*>());
  EXPECT_EQ(value->get_Info(&info), E_NOTIMPL);
  EXPECT_EQ(info, Garbage<IValueDefBase*>());
  EXPECT_EQ(value->get_Id(&id), E_NOTIMPL);
  EXPECT_EQ(id, 77);
}

TEST(Collection, ChangingCallsAreNotImplemented) {
  const auto value = NewCollection();
  EXPECT_EQ(value->put_Item(I4(0).get(), I4(1).get()), E_NOTIMPL);
  EXPECT_EQ(value->Add(I4(1).get()), E_NOTIMPL);
  EXPECT_EQ(value->Remove(I4(0).get()), E_NOTIMPL);
  EXPECT_EQ(value->RemoveAll(), E_NOTIMPL);
  EXPECT_EQ(value->put_Value(I4(1).get()), E_NOTIMPL);
  EXPECT_EQ(value->put_Info(SimpleDefinition(kLong).get()), E_NOTIMPL);
  EXPECT_EQ(value->put_Info(nullptr), E_NOTIMPL);
}

TEST(Collection, PacketSizeIsZeroThoughNotImplemented) {
  ULONG size = kUntouched;
  EXPECT_EQ(NewCollection()->get_PacketSize(&size), E_NOTIMPL);
  EXPECT_EQ(size, 0u);
}

TEST(Collection, BufferCallsAreNotImplementedAndTouchNothing) {
  const auto value = NewCollection();
  const Outcome untouched{E_NOTIMPL, Garbage<VARIANT_BOOL>(), kUntouched};
  EXPECT_EQ(ReadFrom(value, "01 02 03 04"), untouched);
  const Written written = WriteTo(value, 4);
  EXPECT_EQ(written.outcome, untouched);
  EXPECT_EQ(written.bytes, Bytes(4, GuardedBuffer::kFiller));
}

TEST(Collection, NullOutArgumentsAreRejected) {
  const auto value = NewCollection();
  EXPECT_EQ(value->get_Item(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Name(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(value->get_At(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(value->get_TypeString(nullptr), E_POINTER);
  ExpectNullBufferArgumentsRejected(value);
}

TEST(Collection, CopyDoesNotLookAtItsOutArgument) { EXPECT_EQ(NewCollection()->Copy(nullptr), E_NOTIMPL); }

}  // namespace
}  // namespace halyard::test
