// Every slot of every class, called once through the vtable and once through IDispatch,
// each as the registered type library describes it: both ways must come to the same.
#include <gtest/gtest.h>

#include "tests/server/support/class_rows.h"
#include "tests/server/support/component.h"
#include "tests/server/support/sample_objects.h"
#include "tests/server/support/slot_call.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

class SlotCalls : public RegisteredComponent, public testing::WithParamInterface<const OLECHAR*> {};

Ptr<ITypeInfo> OwnTypeInfo(const Ptr<IDispatch>& object) {
  Ptr<ITypeInfo> info;
  Check(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Out()), object);
  return info;
}

// The object as the interface that its type information describes.
Ptr<IUnknown> AsDescribed(const Ptr<IDispatch>& object, REFIID iid) {
  Ptr<IUnknown> result;
  Check(object->QueryInterface(iid, result.OutVoid()));
  return result;
}

void CallEverySlot(WideView class_name) {
  const Ptr<ITypeInfo> info = OwnTypeInfo(SampleObject(class_name));
  const IID iid = FactsOf(info).guid;
  const std::vector<FunctionDescription> functions = AllFunctions(VtableHalf(info));
  EXPECT_FALSE(functions.empty());
  for (const FunctionDescription& function : functions) {
    SCOPED_TRACE(function.name);
    const SlotOutcome early = CallThroughVtable(AsDescribed(SampleObject(class_name), iid).get(), function);
    const SlotOutcome late = CallThroughDispatch(SampleObject(class_name).get(), function);
    EXPECT_EQ(late, early);
  }
}

TEST_P(SlotCalls, AreTheSameThroughVtableAndDispatch) { CallEverySlot(GetParam()); }

std::vector<const OLECHAR*> ClassNames() {
  std::vector<const OLECHAR*> names;
  for (const ClassRowExpected& row : kExpectedClasses) names.push_back(row.name);
  return names;
}

INSTANTIATE_TEST_SUITE_P(OfEveryClass, SlotCalls, testing::ValuesIn(ClassNames()),
                         [](const auto& name) { return Plain(WideView(name.param)); });

}  // namespace
}  // namespace halyard::test
