// Random arguments: automation values, positions, texts.
#include <algorithm>

#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr double kReals[] = {
    0.0,           -0.0,         0.5,   1.5,     2.5,      -2.5,    3.75,    -100.25, 127.5,
    128.0,         255.49,       300.0, 32767.5, -32768.5, 65535.0, 70000.0, 1e5,     2147483647.5,
    -2147483648.5, 4294967295.0, 1e10,  0.001,   1.0 / 3,  1e38,    3.5e38,  1e300,   38061.521354166667};
constexpr LONG kNumbers[] = {0,      1,     -1,    2,     7,      100,      127,        128,
                             -128,   -129,  255,   256,   300,    32767,    32768,      -32768,
                             -32769, 65535, 65536, 70000, -70000, 99999999, 2147483647, -2147483647 - 1};
constexpr const OLECHAR* kTexts[] = {OLESTR(""),
                                     OLESTR("a"),
                                     OLESTR("abc"),
                                     OLESTR("12"),
                                     OLESTR("-7"),
                                     OLESTR(" 5 "),
                                     OLESTR("3.5"),
                                     OLESTR("1e3"),
                                     OLESTR("300"),
                                     OLESTR("70000"),
                                     OLESTR("99999999999"),
                                     OLESTR("True"),
                                     OLESTR("\u00E9\u4E2D\u20AC"),
                                     OLESTR("\u0100\u2212"),
                                     OLESTR("x"),
                                     OLESTR("y"),
                                     OLESTR("a longer text"),
                                     OLESTR("Long"),
                                     OLESTR("structure"),
                                     OLESTR("0"),
                                     OLESTR("1")};
constexpr double kDays[] = {0.0, 1.0, 0.25, 38061.521354166667, 36526.0, 2958465.0, -1.5, 40000.999988425923};

// Within the calendar, since Wine, unlike Windows, takes any float for a date. Doubles have
// the larger numbers.
float Single(double real) { return static_cast<float>(std::clamp(real, -6e5, 2.9e6)); }

Variant AnyScalar(World& world) {
  Random& random = world.random;
  switch (random.Below(14)) {
    case 0:
      return Variant();
    case 1:
      return Variant::Null();
    case 2:
      return Variant(static_cast<SHORT>(random.Between(-32768, 32767)));
    case 3:
      return Variant(static_cast<BYTE>(random.Below(256)));
    case 4:
      return Variant::FromBool(random.OneIn(2));
    case 5:
      return Variant(Single(random.Of(kReals)));
    case 6:
    case 7:
      return Variant(random.Of(kReals));
    case 8:
      return Variant::FromDate(random.Of(kDays));
    case 9:
    case 10:
      return Variant(WideView(AnyText(world)));
    default:
      return Variant(random.OneIn(2) ? random.Of(kNumbers) : LONG{random.Between(-9, 99)});
  }
}

}  // namespace

WideString AnyText(World& world) {
  if (world.random.OneIn(12)) return WideString(world.random.Below(50), OLESTR('t'));
  return world.random.Of(kTexts);
}

WideString AnyName(World& world) {
  constexpr const OLECHAR* kNames[] = {OLESTR("x"), OLESTR("y"), OLESTR("a"), OLESTR("abc"), OLESTR("X")};
  return world.random.OneIn(6) ? AnyText(world) : world.random.Of(kNames);
}

Variant AnyVariant(World& world) {
  if (!world.random.OneIn(8)) return AnyScalar(world);
  if (world.random.OneIn(4)) {
    const auto definition = world.AnyDefinition();
    return Variant(static_cast<IDispatch*>(definition.get()));
  }
  return Variant(static_cast<IDispatch*>(FreshValue(world).get()));
}

Variant AnyIndex(World& world) {
  Random& random = world.random;
  switch (random.Below(12)) {
    case 0:
      return Variant(random.Of(kNumbers));
    case 1:
      return AnyScalar(world);
    case 2:
      return Variant(static_cast<SHORT>(random.Below(4)));
    case 3:
    case 4:
      return Variant(WideView(AnyName(world)));
    default:
      return Variant(LONG{random.Between(0, 4)});
  }
}

}  // namespace halyard::differential
