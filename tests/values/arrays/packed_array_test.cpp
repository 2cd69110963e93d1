// Arrays of structures of fixed layout keep what they have read packed until somebody
// asks for an element. Nobody may be able to tell: every step is made on two arrays, on
// one as it was read and on one all of whose elements were asked for before, and both
// must answer alike.
#include <gtest/gtest.h>

#include <functional>

#include "halyard/object/live_objects.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/message_recorder.h"

namespace halyard::test {
namespace {

constexpr const char* kThree =
    "03 00 00 00 01 00 00 00 00 00 C0 3F 11 02 00 00 00 00 00 20 40 22 03 00 00 00 00 00 60 40 33";
constexpr const char* kTwo = "02 00 00 00 07 00 00 00 00 00 80 3F 77 08 00 00 00 00 00 00 40 88";

// a Long, b ShortReal, c Byte: 9 bytes.
Ptr<IStructureDef> Structure(SHORT id = 0) {
  const auto definition =
      StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kShortReal}, {OLESTR("c"), kByte}});
  EXPECT_EQ(definition->put_Id(id), S_OK);
  Calculate(definition);
  return definition;
}

// An array with its element definition, and what it answered so far.
struct Twin {
  Ptr<IStructureDef> element;
  Ptr<IArrayDef> definition;
  Ptr<IArray> array;
  std::string told;

  void Tell(const std::string& text) { told += text + "\n"; }
};

void AskForAll(Twin& twin) {
  LONG count = 0;
  EXPECT_EQ(twin.array->get_Count(&count), S_OK);
  for (LONG i = 0; i < count; ++i) {
    Ptr<IValueBase> element;
    static_cast<void>(twin.array->get_At(I4(i).get(), element.Out()));
  }
}

std::string ToldBy(const Outcome& outcome) {
  return std::to_string(outcome.status) + " " + std::to_string(outcome.result) + " " +
         std::to_string(outcome.count);
}

void Read(Twin& twin, const Bytes& bytes) { twin.Tell("read " + ToldBy(ReadFrom(twin.array, bytes))); }

void Write(Twin& twin, std::size_t room) {
  const Written written = WriteTo(twin.array, room);
  twin.Tell("write " + ToldBy(written.outcome) + " " + ToHex(written.bytes));
}

// All that can be asked of an array without changing it.
void TellAll(Twin& twin) {
  Write(twin, 60);
  ULONG size = 0;
  twin.Tell("size " + std::to_string(twin.array->get_PacketSize(&size)) + " " + std::to_string(size));
  LONG count = 0;
  EXPECT_EQ(twin.array->get_Count(&count), S_OK);
  for (const char* member : {"a", "b", "c", "d"}) {
    Bytes numbers(8 * 10, 0xEE);
    VARIANT_BOOL done = 77;
    const HRESULT status = twin.array->BuildNumericArray(Bstr(WideString(member, member + 1)).get(),
                                                         I2(kReal).get(), numbers.data(), &done);
    twin.Tell(std::string(member) + " " + std::to_string(status) + " " + std::to_string(done) + " " +
              ToHex(numbers));
  }
  for (LONG i = 0; i < count; ++i) {
    Ptr<IValueBase> element;
    const HRESULT status = twin.array->get_At(I4(i).get(), element.Out());
    if (FAILED(status) || !element) {
      twin.Tell("no element, " + std::to_string(status));
      continue;
    }
    for (LONG member = -1; member < 5; ++member) {
      Variant item;
      const HRESULT got = element->get_Item(I4(member).get(), item.Out());
      twin.Tell(std::to_string(got) + " " + Describe(item));
    }
  }
}

using Step = std::function<void(Twin&)>;

// Makes the steps on both twins and compares what they tell, also after every single one.
void ExpectAlike(LONG fixed_count, std::string_view first, std::initializer_list<Step> steps) {
  const MessageRecorder messages;
  for (std::size_t asked = 0; asked <= steps.size(); ++asked) {
    Twin twins[2];
    for (Twin& twin : twins) {
      const bool objects = &twin == &twins[1];
      twin.element = Structure();
      twin.definition = ArrayDefinition(twin.element, fixed_count);
      twin.array = NewArray(twin.definition);
      Read(twin, Hex(first));
      if (objects) AskForAll(twin);
      std::size_t made = 0;
      for (const Step& step : steps) {
        step(twin);
        if (objects) AskForAll(twin);
        // Everything is looked at after one of the steps, a different one each time.
        if (++made == asked) TellAll(twin);
      }
      TellAll(twin);
    }
    EXPECT_EQ(twins[0].told, twins[1].told) << "asked after step " << asked;
  }
}

Step ReadHex(std::string hex) {
  return [hex](Twin& twin) { Read(twin, Hex(hex)); };
}

Step Store(const char* member, SHORT type, std::initializer_list<double> values) {
  const std::vector<double> copy(values);
  return [=](Twin& twin) {
    std::vector<double> numbers = copy;
    VARIANT_BOOL done = 77;
    const HRESULT status =
        twin.array->ReadNumericArray(Bstr(WideString(member, member + 1)).get(), I2(type).get(),
                                     reinterpret_cast<unsigned char*>(numbers.data()), &done);
    twin.Tell("store " + std::to_string(status) + " " + std::to_string(done));
  };
}

Step ElementGets(LONG position, const OLECHAR* member, LONG value) {
  return [=](Twin& twin) {
    const auto element = At(twin.array, position);
    ASSERT_TRUE(element);
    EXPECT_EQ(element->put_Item(Text(member).get(), I4(value).get()), S_OK);
  };
}

Step Removes(LONG position) {
  return [=](Twin& twin) { EXPECT_EQ(twin.array->Remove(I4(position).get()), S_OK); };
}

Step Adds() {
  return [](Twin& twin) {
    Ptr<IValueBase> element;
    static_cast<void>(twin.element->CreateDataObject(element.Out()));
    const Variant content = Object(element);
    twin.Tell("add " + std::to_string(twin.array->Add(content.get())));
  };
}

Step Calculates() {
  return [](Twin& twin) {
    ULONG size = 0;
    twin.Tell("calculated " + std::to_string(twin.definition->CalculateDataSize(&size)));
  };
}

TEST(PackedArray, ReadsAndWritesAlike) {
  ExpectAlike(0, kThree, {ReadHex(kTwo), ReadHex(kThree), ReadHex("00 00 00 00"), ReadHex(kTwo)});
}

TEST(PackedArray, ShortBuffersAreReadAlike) {
  const Bytes bytes = Hex(kThree);
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const std::string cut = ToHex(Prefix(bytes, size));
    ExpectAlike(0, cut, {ReadHex(kThree)});
    ExpectAlike(0, kTwo, {ReadHex(cut), ReadHex(kThree)});
    ExpectAlike(0, kThree, {ReadHex(cut), Adds()});
  }
}

TEST(PackedArray, ShortBuffersAreWrittenAlike) {
  for (std::size_t room = 0; room < 34; ++room)
    ExpectAlike(0, kThree, {[room](Twin& twin) { Write(twin, room); }});
}

TEST(PackedArray, ElementsChangeAlikeThroughTheArrayAndByThemselves) {
  ExpectAlike(0, kThree,
              {ElementGets(1, OLESTR("a"), 99), Store("b", kReal, {1, 2, 3}), ElementGets(2, OLESTR("c"), 5),
               Store("a", kReal, {-1, 70000, 3e9}), Store("c", kReal, {300, 1, 2}), ReadHex(kTwo)});
}

TEST(PackedArray, ElementsComeAndGoAlike) {
  ExpectAlike(0, kThree,
              {Removes(1), Adds(), ElementGets(2, OLESTR("a"), 4), Removes(0), ReadHex(kThree), Removes(2),
               Adds(), Adds(), Removes(0), Store("a", kReal, {7, 8, 9, 10})});
  ExpectAlike(0, kThree, {Removes(0), Removes(0), Removes(0), Adds(), ReadHex(kThree)});
  ExpectAlike(0, kThree, {[](Twin& twin) { EXPECT_EQ(twin.array->RemoveAll(), S_OK); }, ReadHex(kTwo)});
}

TEST(PackedArray, SlotsAreReplacedAndEmptiedAlike) {
  const Step replace = [](Twin& twin) { PutItem(twin.array, 1, Object(NewValue(twin.element))); };
  const Step empty = [](Twin& twin) {
    PutItem(twin.array, 1, Variant(static_cast<IDispatch*>(Structure().get())));
  };
  ExpectAlike(0, kThree, {replace, Store("a", kReal, {4, 5, 6}), empty, ReadHex(kThree)});
  ExpectAlike(0, kThree, {empty, Store("a", kReal, {4, 5, 6}), Removes(0)});
}

TEST(PackedArray, CopiesAreAlike) {
  const Step copy = [](Twin& twin) {
    Ptr<IValueBase> made;
    twin.Tell("copy " + std::to_string(twin.array->Copy(made.Out())));
    if (made) twin.array = made.As<IArray>();
  };
  ExpectAlike(0, kThree, {copy, ElementGets(0, OLESTR("a"), 5), copy, Removes(0), copy, ReadHex(kTwo)});
  ExpectAlike(4, "", {copy, Store("a", kReal, {4, 5, 6, 7}), copy});
}

TEST(PackedArray, AnEditedDefinitionCountsAlike) {
  const Step grow = [](Twin& twin) { AddMember(twin.element, OLESTR("d"), SimpleDefinition(kShort).get()); };
  const Step shrink = [](Twin& twin) { EXPECT_EQ(twin.element->Remove(I4(0).get()), S_OK); };
  const Step clear = [](Twin& twin) { EXPECT_EQ(twin.element->RemoveAll(), S_OK); };
  const Step rename = [](Twin& twin) {
    EXPECT_EQ(twin.element->put_MemberName(0, Bstr(OLESTR("d")).get()), S_OK);
  };
  const Step add_text = [](Twin& twin) {
    AddMember(twin.element, OLESTR("d"), SimpleDefinition(kString).get());
  };
  for (const Step& edit : {grow, shrink, clear, rename, add_text}) {
    ExpectAlike(0, kThree, {edit, Calculates(), ReadHex(kTwo), Adds(), ReadHex(kThree)});
    ExpectAlike(0, kThree, {edit, ReadHex(kTwo), Calculates(), Store("b", kReal, {1, 2, 3})});
    ExpectAlike(0, kThree, {edit, Calculates(), ReadHex("00 00 00 00"), ReadHex(kThree), Adds()});
    ExpectAlike(3, std::string_view(kThree).substr(12),
                {edit, Calculates(), ReadHex(kTwo), Store("b", kReal, {1, 2, 3})});
  }
}

TEST(PackedArray, AnotherElementDefinitionCountsAlike) {
  const Step replace = [](Twin& twin) {
    twin.element = StructureDefinition({{OLESTR("a"), kReal}, {OLESTR("c"), kByte}});
    Calculate(twin.element);
    EXPECT_EQ(twin.definition->put_ValueType(twin.element.get()), S_OK);
  };
  ExpectAlike(0, kThree, {replace, ReadHex(kTwo), Adds(), Store("a", kReal, {4, 5, 6})});
  ExpectAlike(0, kTwo, {replace, ReadHex(kThree), ReadHex("00 00 00 00"), ReadHex(kThree)});
  ExpectAlike(3, "01 00 00 00", {replace, Store("a", kReal, {4, 5, 6}), ReadHex(kThree)});
}

TEST(PackedArray, FixedArraysAreAlike) {
  ExpectAlike(3, std::string_view(kThree).substr(12), {Store("a", kReal, {4, 5, 6}), ReadHex("01 00")});
  ExpectAlike(3, "", {Store("c", kReal, {4, 5, 6}), Adds(), Removes(0), ReadHex("01 00 00 00")});
  ExpectAlike(3, "01 00 00 00 00 00 C0 3F 11 02",
              {Store("d", kReal, {4, 5, 6}), Store("b", kReal, {1, 2, 3})});
}

TEST(PackedArray, AnElementIsTheSameObjectEachTime) {
  const auto array = NewArray(ArrayDefinition(Structure()));
  ASSERT_EQ(ReadFrom(array, kThree), Moved(31));
  const auto element = At(array, 1);
  EXPECT_EQ(At(array, 1), element);
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(At(array, 0), element);
  EXPECT_EQ(ReadFrom(array, kTwo), Moved(22));
  EXPECT_EQ(At(array, 0), element);
  EXPECT_EQ(Describe(Get(element, &IValueBase::get_Item, I4(0))), "I4 7");
}

TEST(PackedArray, RowsBehindAnObjectMoveDownWhenItGoes) {
  const auto element = StructureDefinition({{OLESTR("x"), kShort}});
  const auto array = NewArray(ArrayDefinition(element));
  Add(array, Object(NewValue(element)));
  ASSERT_EQ(ReadFrom(array, "04 00 00 00 01 00 02 00 03 00 04 00"), Moved(12));
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  ASSERT_EQ(Encoded(array), "03 00 00 00 02 00 03 00 04 00");
  EXPECT_EQ(Item(At(array, 0), OLESTR("x")), "I2 2");
  EXPECT_EQ(Item(At(array, 2), OLESTR("x")), "I2 4");
}

TEST(PackedArray, AnElementOutlivesItsArray) {
  auto array = NewArray(ArrayDefinition(Structure()));
  ASSERT_EQ(ReadFrom(array, kThree), Moved(31));
  const auto element = At(array, 2);
  array.Reset();
  EXPECT_EQ(Encoded(element), "03 00 00 00 00 00 60 40 33");
}

#ifndef _WIN32

TEST(PackedArray, ElementsThatNobodyAskedForAreNoObjects) {
  const auto array = NewArray(ArrayDefinition(Structure()));
  const LONG before = LiveObjects();
  Bytes bytes = LittleEndian(1000, 4);
  bytes.resize(4 + 1000 * 9, 1);
  ASSERT_EQ(ReadFrom(array, bytes), Moved(9004));
  EXPECT_EQ(LiveObjects(), before);
  EXPECT_TRUE(At(array, 500));
  EXPECT_EQ(LiveObjects(), before + 1);
}

#endif

}  // namespace
}  // namespace halyard::test
