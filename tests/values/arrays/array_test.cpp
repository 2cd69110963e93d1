// The array of values: its definition, its elements as objects, adding and removing.
// Its bytes are in array_bytes_test.cpp.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/composites.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr LONG kLeast = std::numeric_limits<LONG>::min();
constexpr LONG kMost = std::numeric_limits<LONG>::max();

Ptr<IStructureDef> Point(SHORT id = 0) {
  return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kShort}}, id);
}

Ptr<IEnumerationDef> Colour(SHORT id = 0) {
  return EnumerationDefinition(kShort, {{OLESTR("Red"), 5}, {OLESTR("Green"), 9}}, id);
}

Ptr<IArray> Points(LONG count = 0) { return NewArray(ArrayDefinition(Point(), count, 17)); }

Ptr<IArray> Colours(LONG count = 0) { return NewArray(ArrayDefinition(Colour(), count)); }

// A point with that x.
Ptr<IValueBase> PointAt(LONG x) {
  const auto value = NewValue(Point());
  PutItem(value, OLESTR("x"), I4(x));
  return value;
}

// Object elements with these x.
Ptr<IArray> PointsAt(std::initializer_list<LONG> xs) {
  const auto array = Points();
  for (const LONG x : xs) Add(array, Object(PointAt(x)));
  return array;
}

std::string X(const Ptr<IArray>& array, LONG position) { return Item(At(array, position), OLESTR("x")); }

TEST(Array, FixedArrayStartsWithAllItsElements) {
  const auto array = Points(3);
  EXPECT_EQ(ClassOf(array.get()), "Array");
  EXPECT_EQ(Count(array), 3);
  for (LONG i = 0; i < 3; ++i) EXPECT_EQ(X(array, i), "I4 0");
  EXPECT_FALSE(SameObject(At(array, 0).get(), At(array, 1).get()));
}

TEST(Array, FixedArrayNeitherGrowsNorShrinks) {
  const auto array = Points(3);
  const auto first = At(array, 0);
  Add(array, Object(PointAt(1)));
  Add(array, I4(1));
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Count(array), 3);
  EXPECT_TRUE(SameObject(At(array, 0).get(), first.get()));
}

TEST(Array, VariableArrayStartsEmpty) {
  const auto array = Points();
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array");
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 17);
}

TEST(Array, NameIsEmptyWhateverTheIndex) {
  const auto array = PointsAt({1});
  EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(0)), "");
  EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(-5)), "");
}

TEST(Array, ItemIsTheValueOfTheElement) {
  const auto points = PointsAt({1, 2});
  const auto item = Get(points, &IValueBase::get_Item, I4(1));
  ASSERT_EQ(item.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(item->pdispVal, At(points, 1).get()));
  EXPECT_EQ(Items(Colours(2)), "I4 5, I4 5");
}

TEST(Array, IndicesAreConverted) {
  const auto array = Colours(3);
  PutItem(array, 2, I4(9));
  for (const Variant& index : {I2(2), Ui1(2), R8(2.4), Text(OLESTR("2"))}) {
    EXPECT_EQ(Describe(Get(array, &IValueBase::get_Item, index)), "I4 9");
    EXPECT_TRUE(SameObject(Get(array, &IValueBase::get_At, index).get(), At(array, 2).get()));
    EXPECT_EQ(array->put_Item(index.get(), I4(9).get()), S_OK);
  }
}

TEST(Array, IndexThatIsNoNumberIsRaised) {
  const auto array = PointsAt({1});
  const Variant index = Text(OLESTR("x"));
  Variant content;
  Ptr<IValueBase> element;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->get_Item(index.get(), content.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->put_Item(index.get(), I4(1).get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->get_At(index.get(), element.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->Remove(index.get()); }));
}

TEST(Array, PositionsOutOfRangeAreInvalid) {
  const auto array = PointsAt({1, 2});
  for (const LONG position : {LONG{2}, LONG{65536}, LONG{-1}, kMost, kLeast}) {
    const Variant index = I4(position);
    Variant content;
    Ptr<IValueBase> element;
    EXPECT_EQ(array->get_Item(index.get(), content.Out()), E_INVALIDARG) << position;
    EXPECT_EQ(array->put_Item(index.get(), Object(PointAt(1)).get()), E_INVALIDARG) << position;
    EXPECT_EQ(array->get_At(index.get(), element.Out()), E_INVALIDARG) << position;
    EXPECT_EQ(array->Remove(index.get()), E_INVALIDARG) << position;
  }
  EXPECT_EQ(Count(array), 2);
}

TEST(Array, PutItemSetsTheValueOfTheElement) {
  const auto array = Colours(2);
  const auto element = At(array, 1);
  PutItem(array, 1, Text(OLESTR("9")));
  EXPECT_EQ(ValueOf(element), "I4 9");
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(array, 1, Text(OLESTR("Green"))); }));
}

TEST(Array, PutItemOfAnObjectReplacesTheElement) {
  for (const LONG fixed : {0, 2}) {
    const auto array = NewArray(ArrayDefinition(Point(), fixed));
    if (fixed == 0) Add(array, Object(PointAt(0)));
    const auto point = PointAt(7);
    PutItem(array, 0, Object(point));
    EXPECT_TRUE(SameObject(At(array, 0).get(), point.get()));
  }
}

TEST(Array, PutItemOfAnObjectThatIsNoValueEmptiesTheSlot) {
  const auto array = PointsAt({1, 2});
  PutItem(array, 0, Variant(static_cast<IDispatch*>(Point().get())));
  EXPECT_EQ(Count(array), 2);
  EXPECT_FALSE(At(array, 0));
  Variant content;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Item(I4(0).get(), content.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return TryPutItem(array, 0, I4(1)); }));
  PutItem(array, 0, Object(PointAt(3)));
  EXPECT_EQ(X(array, 0), "I4 3");
}

TEST(Array, PutItemOfNoObjectEmptiesTheSlot) {
  const auto array = PointsAt({1});
  PutItem(array, 0, Variant(static_cast<IDispatch*>(nullptr)));
  EXPECT_EQ(Count(array), 1);
  EXPECT_FALSE(At(array, 0));
}

TEST(Array, PutItemRaisesAFailingQuery) {
  const auto array = PointsAt({1});
  const auto stranger = NewForeign<ForeignValue>();
  stranger->query_status = E_ABORT;
  const Variant content(static_cast<IDispatch*>(stranger.get()));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return TryPutItem(array, 0, content); }));
}

// A value that empties an array as soon as it is asked what it is.
class Emptying : public ForeignValue {
 public:
  Ptr<IArray> array;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (array && riid == IidOf<IValueBase>) {
      EXPECT_EQ(array->RemoveAll(), S_OK);
    }
    return ForeignValue::QueryInterface(riid, ppvObject);
  }
};

TEST(Array, PutItemOfAnObjectThatEmptiesTheArrayIsInvalid) {
  const auto array = PointsAt({1, 2});
  const auto object = NewForeign<Emptying>();
  object->array = array;
  const Variant content(static_cast<IDispatch*>(object.get()));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return TryPutItem(array, 1, content); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(Array, AddSharesAnObjectOfTheElementTypeAndId) {
  for (const SHORT id : {SHORT{0}, SHORT{33}}) {
    const auto definition = Point(id);
    const auto array = NewArray(ArrayDefinition(definition));
    const auto point = NewValue(definition);
    Add(array, Object(point));
    EXPECT_TRUE(SameObject(At(array, 0).get(), point.get()));
    PutItem(point, OLESTR("x"), I4(11));
    EXPECT_EQ(X(array, 0), "I4 11");
  }
}

TEST(Array, AddSharesAnObjectOfAnotherDefinitionWithTheSameId) {
  const auto array = Points();
  const auto other = NewValue(StructureDefinition({{OLESTR("other"), kByte}}));
  Add(array, Object(other));
  EXPECT_TRUE(SameObject(At(array, 0).get(), other.get()));
}

TEST(Array, AddOfAnotherObjectMakesAFreshElement) {
  const auto points = Points();
  const auto other = NewValue(Point(99));
  PutItem(other, OLESTR("x"), I4(11));
  Add(points, Object(other));
  EXPECT_FALSE(SameObject(At(points, 0).get(), other.get()));
  EXPECT_EQ(X(points, 0), "I4 0") << "a structure takes no content from another object";
}

TEST(Array, FreshElementTakesTheNumberOfTheObject) {
  const auto colours = Colours();
  const auto other = NewValue(Colour(99));
  PutValue(other, I4(9));
  Add(colours, Object(other));
  const auto number = SimpleValue(kLong);
  PutValue(number, I4(42));
  Add(colours, Object(number));
  EXPECT_EQ(Items(colours), "I4 9, I4 42");
}

TEST(Array, AddOfAnObjectThatTheElementCannotTakeAppendsNothing) {
  const auto colours = Colours();
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return colours->Add(Object(PointAt(1)).get()); }));
  EXPECT_EQ(Count(colours), 0);
}

TEST(Array, AddOfNoObjectFails) {
  const auto array = Points();
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Add(Variant(static_cast<IDispatch*>(nullptr)).get()); }));
  const Variant definition(static_cast<IDispatch*>(Point().get()));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Add(definition.get()); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(Array, AddOfANumberToCompositeElementsDoesNothing) {
  for (const auto& array : {Points(), Colours(), NewArray(ArrayDefinition(SimpleArrayDefinition(kLong)))}) {
    Add(array, I4(5));
    Add(array, Text(OLESTR("5")));
    Add(array, Variant());
    EXPECT_EQ(Count(array), 0);
  }
}

TEST(Array, RemoveMovesLaterElementsDown) {
  const auto array = PointsAt({1, 2, 3});
  EXPECT_EQ(array->Remove(I4(1).get()), S_OK);
  EXPECT_EQ(Count(array), 2);
  EXPECT_EQ(X(array, 0), "I4 1");
  EXPECT_EQ(X(array, 1), "I4 3");
}

TEST(Array, RemovedElementsAreReleased) {
  const auto array = NewArray(ArrayDefinition(Point()));
  std::weak_ptr<void> lives[3];
  for (auto& life : lives) {
    const auto stranger = NewForeign<ForeignValue>();
    stranger->type.value = kStructure;
    life = stranger->Life();
    Add(array, Object(stranger));
  }
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_TRUE(lives[0].expired());
  EXPECT_FALSE(lives[1].expired());
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_TRUE(lives[1].expired() && lives[2].expired());
  EXPECT_EQ(Count(array), 0);
}

TEST(Array, ValueIsTheArrayItself) {
  const auto array = PointsAt({1});
  const auto value = Get(array, &IValueBase::get_Value);
  ASSERT_EQ(value.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(value->pdispVal, array.get()));
  PutValue(array, I4(5));
  EXPECT_EQ(Count(array), 1);
}

TEST(Array, HasNoNumberOfItsOwn) {
  Variant result;
  EXPECT_EQ(ConvertObject(Points(2).get(), VT_I4, &result), DISP_E_TYPEMISMATCH);
}

TEST(Array, CopyIsDeep) {
  const auto array = PointsAt({1, 2});
  const auto copy = Get(array, &IValueBase::Copy).As<IArray>();
  ASSERT_TRUE(copy);
  EXPECT_EQ(Count(copy), 2);
  PutItem(At(copy, 1), OLESTR("x"), I4(20));
  EXPECT_EQ(X(array, 1), "I4 2");
  EXPECT_EQ(X(copy, 1), "I4 20");
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), Get(array, &IValueBase::get_Info).get()));
  Add(copy, Object(PointAt(3)));
  EXPECT_EQ(Count(array), 2);
}

TEST(Array, CopyOfAnEmptySlotFails) {
  const auto array = PointsAt({1, 2});
  PutItem(array, 1, Variant(static_cast<IDispatch*>(Point().get())));
  Ptr<IValueBase> copy;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Copy(copy.Out()); }));
}

TEST(Array, NullOutArgumentsAreRejected) {
  const auto array = PointsAt({1});
  EXPECT_EQ(array->get_Item(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Name(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(array->get_At(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(array->Copy(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(array->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(array->get_TypeString(nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
