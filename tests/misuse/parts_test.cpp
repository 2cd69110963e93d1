// Objects of the library as parts of a client's objects, which answer for them.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/support/composites.h"
#include "tests/support/streams.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

// An object that passes every question but that for IUnknown to the part inside it, and
// may do something else meanwhile.
class Whole : public IUnknown {
 public:
  explicit Whole(REFCLSID clsid) {
    Check(CoCreateInstance(clsid, this, CLSCTX_ALL, IidOf<IUnknown>, inner_.OutVoid()));
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (riid == IidOf<IUnknown>) {
      *ppvObject = static_cast<IUnknown*>(this);
      AddRef();
      return S_OK;
    }
    const HRESULT hr = inner_->QueryInterface(riid, ppvObject);
    const bool is_public = riid == IidOf<IDispatch> || riid == IidOf<IOrmSession> || riid == IidOf<IUnit>;
    if (!is_public && when_asked) std::exchange(when_asked, nullptr)();
    return hr;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  // The part as one of its interfaces.
  template <class I>
  Ptr<I> As() {
    return Ptr<IUnknown>(this).As<I>();
  }

  // Runs once, when the part is asked what no client asks.
  std::function<void()> when_asked;
  ULONG references = 1;  // the test's own

 private:
  Ptr<IUnknown> inner_;
};

TEST(PartOfAClient, SessionThatPutsAnotherOneWhileItIsPut) {
  Whole whole(kOrmSessionClass);
  const auto other = CreateObject<IOrmSession>(kOrmSessionClass);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  whole.when_asked = [&] { EXPECT_EQ(unit->put_Session(other.get()), S_OK); };
  EXPECT_EQ(unit->put_Session(whole.As<IOrmSession>().get()), S_OK);
  EXPECT_EQ(whole.references, 2u);
  Ptr<IOrmSession> session;
  EXPECT_EQ(unit->get_Session(session.Out()), S_OK);
  EXPECT_TRUE(session == whole.As<IOrmSession>());
  session.Reset();
  EXPECT_EQ(unit->put_Session(nullptr), S_OK);
  EXPECT_EQ(whole.references, 1u);
}

TEST(PartOfAClient, UnitThatWritesAnotherOneWhileItIsWritten) {
  Whole whole(kUnitClass);
  const auto definition = StructureDefinition({{OLESTR("Number"), kLong}}, 1);
  const auto other = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(other->put_Info(definition.get()), S_OK);
  EXPECT_EQ(whole.As<IUnit>()->put_Info(definition.get()), S_OK);
  const TempFile place;
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  whole.when_asked = [&] { EXPECT_TRUE(WriteUnit(file, other.get())); };
  EXPECT_TRUE(WriteUnit(file, whole.As<IUnit>().get()));
  EXPECT_EQ(whole.references, 2u) << "the file holds another unit than the one that it wrote last";
  EXPECT_TRUE(WriteUnit(file, other.get()));
  EXPECT_EQ(whole.references, 1u);
}

TEST(PartOfAClient, MemberIsLetGoOfWhenItBecomesNull) {
  Whole whole(kSimpleValueClass);
  const auto definition = StructureDefinition({{OLESTR("Text"), kString}}, 1);
  EXPECT_EQ(definition->put_CanBeNull(I4(0).get(), VARIANT_TRUE), S_OK);
  const auto record = NewValue(definition);
  EXPECT_EQ(record->put_Item(I4(0).get(), Variant(whole.As<IDispatch>().get()).get()), S_OK);
  EXPECT_EQ(whole.references, 2u);
  EXPECT_EQ(record->put_Item(I4(0).get(), Variant::Null().get()), S_OK);
  EXPECT_EQ(whole.references, 1u);
}

}  // namespace
}  // namespace halyard::test
