#include "tests/support/trees.h"

namespace halyard::test {
namespace {

constexpr LONG kElements = 2;

LONG Parts(const Ptr<IValueBase>& value) { return Get(value, &IValueBase::get_Count); }

// The member or element as an object; none where it is not one or is null.
Ptr<IValueBase> PartAt(const Ptr<IValueBase>& value, LONG position) {
  Ptr<IValueBase> part;
  static_cast<void>(value->get_At(I4(position).get(), part.Out()));
  return part;
}

void FillParts(const Ptr<IValueBase>& value, LONG seed) {
  for (LONG i = 0; i < Parts(value); ++i) {
    if (const auto part = PartAt(value, i)) {
      FillTree(part, seed + i + 1);
    } else {
      EXPECT_EQ(value->put_Item(I4(i).get(), I4((seed + i) % 100).get()), S_OK);
    }
  }
}

void AddElements(const Ptr<IValueBase>& value, bool objects) {
  if (Parts(value) != 0) return;
  const auto info = Get(value, &IValueBase::get_Info).As<IArrayDef>();
  for (LONG i = 0; i < kElements; ++i) {
    const Variant element = objects ? Object(NewValue(Get(info, &IArrayDef::get_ValueType))) : I4(i);
    EXPECT_EQ(value->Add(element.get()), S_OK);
  }
}

std::string ShowParts(const Ptr<IValueBase>& value) {
  std::string result;
  for (LONG i = 0; i < Parts(value); ++i) {
    if (i != 0) result += ", ";
    const std::string name = Get(value, &IValueBase::get_Name, I4(i));
    if (!name.empty()) result += name + "=";
    const auto part = PartAt(value, i);
    result += part ? ShowTree(part) : Describe(Get(value, &IValueBase::get_Item, I4(i)));
  }
  return result;
}

}  // namespace

void FillTree(const Ptr<IValueBase>& value, LONG seed) {
  const std::string kind = ClassOf(value.get());
  if (kind == "SimpleValue" || kind == "Enumeration") return PutValue(value, I4(seed % 100));
  if (kind.find("Array") != std::string::npos) AddElements(value, kind == "Array");
  FillParts(value, seed);
}

std::string ShowTree(const Ptr<IValueBase>& value) {
  const std::string kind = ClassOf(value.get());
  if (kind == "SimpleValue" || kind == "Enumeration") return ValueOf(value);
  const bool is_array = kind.find("Array") != std::string::npos;
  return (is_array ? "[" : "{") + ShowParts(value) + (is_array ? "]" : "}");
}

}  // namespace halyard::test
