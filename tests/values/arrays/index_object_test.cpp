// An index or a value that is an object: its value is asked for while the array is at work,
// and its code may change the array.
#include <functional>

#include "tests/support/get.h"

namespace halyard::test {
namespace {

// Stands for a position; whoever asks for it lets `while_asked` run first.
class IndexObject final : public IDispatch {
 public:
  IndexObject(LONG position, std::function<void()> while_asked)
      : position_(position), while_asked_(std::move(while_asked)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    const bool known = riid == IidOf<IUnknown> || riid == IidOf<IDispatch>;
    *ppvObject = known ? static_cast<IDispatch*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // Lives on the stack of its test.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* pVarResult, EXCEPINFO*,
                                   UINT*) override {
    while_asked_();
    *pVarResult = Variant(position_).Detach();
    return S_OK;
  }

 private:
  LONG position_;
  std::function<void()> while_asked_;
};

Ptr<IValueBase> NewArray(SHORT element_type) {
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_DataType(element_type));
  ULONG size = 0;
  Check(definition->CalculateDataSize(&size));
  Ptr<IValueBase> array;
  Check(definition->CreateDataObject(array.Out()));
  for (LONG i = 0; i < 3; ++i) Check(array->Add(Variant(i).get()));
  return array;
}

class IndexObjectTest : public ::testing::TestWithParam<SHORT> {
 protected:
  LONG CountAfter(const Ptr<IValueBase>& array) { return Get(array, &IValueBase::get_Count); }
};

TEST_P(IndexObjectTest, StandsForItsPosition) {
  const auto array = NewArray(GetParam());
  IndexObject index(1, [] {});
  EXPECT_EQ(array->Remove(Variant(static_cast<IDispatch*>(&index)).get()), S_OK);
  EXPECT_EQ(CountAfter(array), 2);
}

TEST_P(IndexObjectTest, ThatEmptiesTheArrayLeavesNothingToRemove) {
  const auto array = NewArray(GetParam());
  IndexObject index(2, [&] { Check(array->RemoveAll()); });
  EXPECT_EQ(array->Remove(Variant(static_cast<IDispatch*>(&index)).get()), E_INVALIDARG);
  EXPECT_EQ(CountAfter(array), 0);
}

TEST_P(IndexObjectTest, ThatShortensTheArrayLeavesNothingToRead) {
  const auto array = NewArray(GetParam());
  IndexObject index(2, [&] { Check(array->Remove(Variant(LONG{0}).get())); });
  Variant content;
  EXPECT_EQ(array->get_Item(Variant(static_cast<IDispatch*>(&index)).get(), content.Out()), E_INVALIDARG);
  EXPECT_EQ(CountAfter(array), 2);
}

TEST_P(IndexObjectTest, IsStoredAsItsPosition) {
  const auto array = NewArray(GetParam());
  IndexObject value(7, [] {});
  EXPECT_EQ(array->put_Item(Variant(LONG{2}).get(), Variant(static_cast<IDispatch*>(&value)).get()), S_OK);
  EXPECT_EQ(array->Add(Variant(static_cast<IDispatch*>(&value)).get()), S_OK);
  for (const LONG position : {2, 3}) {
    Variant content = Get(array, &IValueBase::get_Item, Variant(position));
    EXPECT_EQ(Variant::Converted(content.get(), VT_I4)->lVal, 7) << position;
  }
}

TEST_P(IndexObjectTest, ValueThatEmptiesTheArrayLeavesNothingToPut) {
  const auto array = NewArray(GetParam());
  IndexObject value(7, [&] { Check(array->RemoveAll()); });
  EXPECT_EQ(array->put_Item(Variant(LONG{2}).get(), Variant(static_cast<IDispatch*>(&value)).get()),
            E_INVALIDARG);
  EXPECT_EQ(CountAfter(array), 0);
}

TEST_P(IndexObjectTest, ValueThatEmptiesTheArrayIsNotAdded) {
  const auto array = NewArray(GetParam());
  IndexObject value(7, [&] { Check(array->RemoveAll()); });
  EXPECT_EQ(array->Add(Variant(static_cast<IDispatch*>(&value)).get()), E_INVALIDARG);
  EXPECT_EQ(CountAfter(array), 0);
}

TEST_P(IndexObjectTest, ValueThatShortensTheArrayLeavesNoElementToAdd) {
  const auto array = NewArray(GetParam());
  IndexObject value(7, [&] { Check(array->Remove(Variant(LONG{0}).get())); });
  EXPECT_EQ(array->Add(Variant(static_cast<IDispatch*>(&value)).get()), E_INVALIDARG);
  EXPECT_EQ(CountAfter(array), 3);
}

INSTANTIATE_TEST_SUITE_P(Arrays, IndexObjectTest, ::testing::Values(SHORT{kLong}, SHORT{kString}));

}  // namespace
}  // namespace halyard::test
