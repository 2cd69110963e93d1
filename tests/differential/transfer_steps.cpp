// Steps that move columns of numbers, and arrays from the factory.
#include <algorithm>

#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr const OLECHAR* kPaths[] = {
    OLESTR(""),        OLESTR("x"),      OLESTR("y"),   OLESTR("a"),     OLESTR(".x"),     OLESTR("[0]"),
    OLESTR("x[0]"),    OLESTR("x[1]"),   OLESTR("x.y"), OLESTR("y.x"),   OLESTR("a[0].x"), OLESTR("[1].x"),
    OLESTR("x[-1]"),   OLESTR("x[a,y]"), OLESTR("]"),   OLESTR("x["),    OLESTR("0.1"),    OLESTR("nope"),
    OLESTR("x[0][1]"), OLESTR("x[99]"),  OLESTR("abc"), OLESTR("abc.x"), OLESTR("abc[2]"), OLESTR("x[nope]")};
constexpr std::size_t kBufferSize = 70000 * 8;
constexpr LONG kMostElements = 65536;

WideString Number(LONG number) {
  const std::string digits = std::to_string(number);
  return WideString(digits.begin(), digits.end());
}

// Goes on with a path that has come to a definition, into members and elements, until it
// reaches something without parts.
WideString PathInto(World& world, const Ptr<IValueDefBase>& definition) {
  constexpr int kMostSteps = 5;
  WideString path;
  auto current = definition;
  for (int steps = 0; current && steps < kMostSteps; ++steps) {
    Ptr<IValueDefBase> next;
    if (const auto structure = current.As<IStructureDef>()) {
      LONG count = 0;
      static_cast<void>(structure->get_MemberCount(&count));
      if (count == 0) break;
      const LONG member = world.random.Between(0, std::min(count, LONG{8}) - 1);
      Bstr name;
      static_cast<void>(structure->get_MemberName(member, name.Out()));
      static_cast<void>(structure->get_Members(Variant(member).get(), next.Out()));
      path += OLESTR(".") + WideString(name.View());
    } else if (const auto inner = current.As<IArrayDef>()) {
      static_cast<void>(inner->get_ValueType(next.Out()));
      path += OLESTR("[") + Number(world.random.Between(0, 2)) + OLESTR("]");
    }
    current = next;
  }
  return path;
}

// Mostly a path that leads somewhere in the array's elements.
WideString AnyPath(World& world, const Ptr<IArray>& array) {
  if (world.random.OneIn(4)) return world.random.Of(kPaths);
  Ptr<IValueDefBase> info;
  if (FAILED(array->get_Info(info.Out()))) return {};
  Ptr<IValueDefBase> element;
  if (const auto definition = info.As<IArrayDef>())
    static_cast<void>(definition->get_ValueType(element.Out()));
  return PathInto(world, element);
}

void Transfer(World& world, const Ptr<IArray>& array) {
  LONG count = 0;
  static_cast<void>(array->get_Count(&count));
  if (count < 0 || count > kMostElements) return;
  const Bstr path(AnyPath(world, array));
  const Variant type =
      world.random.OneIn(8) ? AnyVariant(world) : Variant(static_cast<SHORT>(world.random.Between(4, 12)));
  const bool build = world.random.OneIn(2);
  Bytes buffer(kBufferSize, 0);
  // Small numbers of any width: no real among them lies outside the whole types.
  for (std::size_t i = 0; i < 256; ++i) buffer[i] = static_cast<unsigned char>(world.random.Below(3) * 32);
  VARIANT_BOOL result = 77;
  const HRESULT status = Answered([&] {
    return build ? array->BuildNumericArray(path.get(), type.get(), buffer.data(), &result)
                 : array->ReadNumericArray(path.get(), type.get(), buffer.data(), &result);
  });
  const Bytes shown(buffer.begin(), buffer.begin() + 64);
  world.Tell(std::string(build ? "BuildNumericArray " : "ReadNumericArray ") + Show(path.get()) + " " +
                 Show(type.get()),
             Status(status) + " " + ShowNumber(result) + " [" + test::ToHex(shown) + "]");
  if (!build) world.Tell("tree", Tree(array));
}

void MakeArray(World& world) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const Variant element =
      world.random.OneIn(2) ? AnyVariant(world) : Variant(static_cast<SHORT>(world.random.Between(0, 15)));
  Ptr<IDispatch> array;
  world.Tell("CreateArray " + Show(element.get()),
             Made(&array, [&](IDispatch** out) { return help->CreateArray(element.get(), out); }));
  world.Keep(array.As<IValueBase>());
}

// A shell over a block that is gone when the step ends, and so is the array.
void UseShell(World& world) {
  constexpr LONG kElements = 4;
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  const SHORT type = static_cast<SHORT>(world.random.Between(0, 14));
  const auto width = static_cast<USHORT>(world.random.OneIn(3) ? 4 : 1u << world.random.Below(4));
  Bytes block(64, 0xEE);
  Ptr<ISimpleFixedArray> array;
  world.Tell("CreateShellArray " + ShowNumber(type) + " " + ShowNumber(width), Made(&array, [&](auto** out) {
               return help->CreateShellArray(Variant(type).get(), width, kElements, block.data(), out);
             }));
  if (!array) return;
  for (int i = 0; i < 3; ++i) {
    const Variant index = AnyIndex(world);
    const Variant content = AnyVariant(world);
    world.Tell("shell " + Show(index.get()) + " = " + Show(content.get()),
               Status([&] { return array->put_Item(index.get(), content.get()); }));
  }
  WriteAnything(world, "shell", array.get());
  ReadAnything(world, "shell", array.get());
  Ptr<IValueBase> copy;
  world.Tell("shell.Copy", Made(&copy, [&](IValueBase** out) { return array->Copy(out); }));
  world.Keep(copy);
  world.Tell("block", test::ToHex(block));
}

}  // namespace

void TransferStep(World& world) {
  const auto array = world.AnyValue().As<IArray>();
  if (array && !world.random.OneIn(4)) return Transfer(world, array);
  if (world.random.OneIn(2)) return MakeArray(world);
  UseShell(world);
}

}  // namespace halyard::differential
