#include <cmath>
#include <limits>

#include "tests/recorder/cases.h"
#include "tests/recorder/notation.h"

namespace halyard::recorder {
namespace {

// The types whose answer depends on the value.
constexpr std::string_view kTargets[] = {"I1",   "I2", "I4", "I8", "INT",  "UI1",     "UI2",  "UI4", "UI8",
                                         "UINT", "R4", "R8", "CY", "DATE", "DECIMAL", "BSTR", "BOOL"};

// The types whose answer depends on the type of the source alone.
constexpr std::string_view kOtherTargets[] = {"EMPTY", "NULL", "ERROR", "DISPATCH", "UNKNOWN", "VARIANT"};

void AddToAll(const std::string& value, Requests* requests) {
  for (const std::string_view target : kTargets) requests->push_back(Convert(target, value));
}

struct IntegerRange {
  std::string_view name;
  long long min;
  unsigned long long max;
};

constexpr IntegerRange kIntegers[] = {
    {"I1", -128, 127},
    {"I2", -32768, 32767},
    {"I4", std::numeric_limits<int>::min(), std::numeric_limits<int>::max()},
    {"INT", std::numeric_limits<int>::min(), std::numeric_limits<int>::max()},
    {"I8", std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max()},
    {"UI1", 0, 255},
    {"UI2", 0, 65535},
    {"UI4", 0, 4294967295},
    {"UINT", 0, 4294967295},
    {"UI8", 0, std::numeric_limits<unsigned long long>::max()},
};

constexpr long long kNegatives[] = {
    -1,
    -2,
    -100,
    -128,
    -129,
    -32768,
    -32769,
    -657434,
    -657435,
    -2147483647,
    -2147483648,
    -2147483649,
    -922337203685477,
    -922337203685478,
    std::numeric_limits<long long>::min(),
};

constexpr unsigned long long kPositives[] = {
    0,
    1,
    2,
    100,
    127,
    128,
    255,
    256,
    32767,
    32768,
    65535,
    65536,
    16777217,
    2147483647,
    2147483648,
    2958465,
    2958466,
    4294967295,
    4294967296,
    9007199254740993,
    922337203685477,
    922337203685478,
    9223372036854775807,
    9223372036854775808u,
    9223372036854774784u,
    9223372036854775296u,
    18446744073709551615u,
};

void AddIntegers(Requests* requests) {
  for (const IntegerRange& range : kIntegers) {
    const std::string prefix = std::string(range.name) + ':';
    for (const long long value : kNegatives) {
      if (value >= range.min) AddToAll(prefix + std::to_string(value), requests);
    }
    for (const unsigned long long value : kPositives) {
      if (value <= range.max) AddToAll(prefix + std::to_string(value), requests);
    }
  }
}

constexpr double kReals[] = {
    0.0,
    0.25,
    0.5,
    0.75,
    1.0,
    1.25,
    1.5,
    2.5,
    3.5,
    0.1,
    0.2,
    0.3,
    1.1,
    100.45,
    1234.5678,
    0.00005,
    0.00015,
    0.00025,
    0.00004999,
    127.0,
    127.4,
    127.5,
    127.6,
    128.0,
    128.4,
    128.5,
    128.6,
    254.5,
    255.0,
    255.4,
    255.5,
    255.6,
    32766.5,
    32767.4,
    32767.5,
    32768.4,
    32768.5,
    32768.6,
    65534.5,
    65535.4,
    65535.5,
    65535.6,
    657434.0,
    657434.5,
    657435.0,
    657434.99999,
    2958465.0,
    2958465.5,
    2958465.99999,
    2958466.0,
    2147483646.5,
    2147483647.0,
    2147483647.4,
    2147483647.5,
    2147483648.0,
    2147483648.4,
    2147483648.5,
    2147483648.6,
    4294967294.5,
    4294967295.0,
    4294967295.4,
    4294967295.5,
    4294967296.0,
    4503599627370496.5,
    9007199254740992.0,
    9007199254740993.0,
    922337203685477.0,
    922337203685477.5,
    922337203685478.0,
    922337203685477.58,
    1e15,
    123456789012345.6,
    1e18,
    9223372036854774784.0,
    9223372036854775808.0,
    9223372036854777856.0,
    18446744073709549568.0,
    18446744073709551616.0,
    18446744073709555712.0,
    1e20,
    1e27,
    1e28,
    7.9e28,
    79228162514264337593543950335.0,
    7.9228162514264e28,
    7.9228162514265e28,
    8e28,
    1e29,
    1e38,
    3.4028234e38,
    3.4028235677973366e38,
    3.5e38,
    1e-4,
    1e-5,
    1e-10,
    1e-14,
    1e-20,
    1e-27,
    1e-28,
    5e-29,
    4.9e-29,
    1e-29,
    1e-38,
    1.401298464324817e-45,
    7e-46,
    1e-50,
    1e300,
    1.7976931348623157e308,
    4.9406564584124654e-324,
    2.2250738585072014e-308,
    0.49999999999999994,
    0.50000000000000011,
    1.4999999999999998,
    2.5000000000000004,
    3.14159265358979,
    3.141592653589793,
    2.718281828459045,
    123456789.123456789,
    38000.5,
    38061.521354166667,
};

// Bits of what is no number: infinities, the quiet and signalling kinds, both signs.
constexpr std::uint64_t kSpecialBits[] = {
    0x7FF0000000000000u, 0xFFF0000000000000u, 0x7FF8000000000000u,
    0xFFF8000000000000u, 0x7FF8000000000001u, 0xFFF8000000000001u,
};
constexpr std::uint32_t kSpecialFloatBits[] = {
    0x7F800000u, 0xFF800000u, 0x7FC00000u, 0xFFC00000u, 0x7FC00001u, 0x7F7FFFFFu,
    0xFF7FFFFFu, 0x00000001u, 0x00800000u, 0x80000000u, 0x80000001u,
};

void AddReals(Requests* requests) {
  bool as_float = false;
  for (const double value : kReals) {
    // Every number as a double; every other one as a float too, the rest as dates.
    as_float = !as_float;
    for (const double sign : {1.0, -1.0}) {
      AddToAll(Real8(sign * value), requests);
      if (as_float && value <= 3.4028235e38) AddToAll(Real4(static_cast<float>(sign * value)), requests);
      if (!as_float && value < 3e6) AddToAll(Date(sign * value), requests);
    }
  }
  for (const std::uint64_t bits : kSpecialBits) {
    AddToAll("R8:" + FormatHex(bits, 16), requests);
    AddToAll("DATE:" + FormatHex(bits, 16), requests);
  }
  for (const std::uint32_t bits : kSpecialFloatBits) AddToAll("R4:" + FormatHex(bits, 8), requests);
}

constexpr long long kMoney[] = {
    0,
    1,
    49,
    50,
    99,
    100,
    1000,
    1234,
    4999,
    5000,
    5001,
    9999,
    10000,
    12345,
    15000,
    25000,
    24999,
    25001,
    35000,
    1234567,
    1274999,
    1275000,
    1285000,
    1285001,
    2545000,
    2555000,
    327675000,
    327685000,
    655355000,
    655345000,
    6574340000,
    6574350000,
    29584650000,
    29584660000,
    21474836475000,
    21474836485000,
    21474836474999,
    42949672954999,
    42949672955000,
    99999999999999,
    123456789012345678,
    9223372036854775807,
};

void AddMoney(Requests* requests) {
  for (const long long value : kMoney) {
    AddToAll("CY:" + std::to_string(value), requests);
    if (value != 0) AddToAll("CY:" + std::to_string(-value), requests);
  }
  AddToAll("CY:" + std::to_string(std::numeric_limits<long long>::min()), requests);
}

// Scale, high and low part of decimals.
constexpr std::string_view kDecimals[] = {
    "00.00000000.0000000000000000", "02.00000000.0000000000000000", "00.00000000.0000000000000001",
    "01.00000000.0000000000000005", "01.00000000.000000000000000F", "01.00000000.0000000000000019",
    "01.00000000.0000000000000023", "02.00000000.0000000000000096", "02.00000000.0000000000000031",
    "02.00000000.0000000000000033", "00.00000000.000000000000007F", "01.00000000.00000000000004FB",
    "01.00000000.0000000000000505", "00.00000000.00000000000000FF", "01.00000000.00000000000009FB",
    "00.00000000.0000000000007FFF", "01.00000000.000000000004FFFB", "01.00000000.0000000000050005",
    "00.00000000.000000000000FFFF", "01.00000000.000000000009FFFB", "00.00000000.000000007FFFFFFF",
    "01.00000000.00000004FFFFFFFB", "01.00000000.0000000500000005", "00.00000000.00000000FFFFFFFF",
    "01.00000000.00000009FFFFFFFB", "00.00000000.0020000000000001", "00.00000000.7FFFFFFFFFFFFFFF",
    "00.00000000.8000000000000000", "00.00000000.FFFFFFFFFFFFFFFF", "01.00000000.FFFFFFFFFFFFFFFF",
    "04.00000000.7FFFFFFFFFFFFFFF", "05.00000004.FFFFFFFFFFFFFFFB", "01.00000009.FFFFFFFFFFFFFFFB",
    "01.00000004.FFFFFFFFFFFFFFFB", "01.00000005.0000000000000005", "00.00000001.0000000000000000",
    "00.FFFFFFFF.FFFFFFFFFFFFFFFF", "01.FFFFFFFF.FFFFFFFFFFFFFFFF", "0E.FFFFFFFF.FFFFFFFFFFFFFFFF",
    "1C.FFFFFFFF.FFFFFFFFFFFFFFFF", "1C.00000000.0000000000000001", "0A.00000000.0000000000000001",
    "05.00000000.0000000000000005", "05.00000000.000000000000000F", "05.00000000.0000000000000019",
    "06.00000000.0000000000000032", "0F.00000000.000B29430A256D21", "1B.204FCE5E.3E250260FFFFFFFF",
    "1C.0A18F07D.736B90BE55555555", "03.00000000.00000000000004D2", "03.00000000.0000000000000000",
    "0F.0000000D.E0B6B3A763FFFFFF", "0B.00000013.0EC917A2D6A4F1F3", "00.0000000A.3F1C2B9D8E7F6A5B",
    "00.00000000.000000000002D248", "00.00000000.000000000002D249",
};

void AddDecimals(Requests* requests) {
  for (const std::string_view parts : kDecimals) {
    AddToAll("DECIMAL:00." + std::string(parts), requests);
    AddToAll("DECIMAL:80." + std::string(parts), requests);
  }
}

constexpr std::string_view kOthers[] = {
    "EMPTY",
    "NULL",
    "BOOL:-1",
    "BOOL:0",
    "BOOL:1",
    "BOOL:2",
    "BOOL:256",
    "BOOL:-32768",
    "ERROR:00000000",
    "ERROR:00000001",
    "ERROR:80020004",
    "ERROR:8007000E",
    "DISPATCH:null",
    "UNKNOWN:null",
    "BSTR:null",
    "BSTR:\"\"",
    "I4:1",
    "UI8:1",
    "R4:3F800000",
    "R8:3FF0000000000000",
    "CY:1",
    "DATE:3FF0000000000000",
    "DECIMAL:00.00.00000000.0000000000000001",
    "BSTR:\"1\"",
    "BSTR:\"abc\"",
    "BSTR:\"2.5\"",
    "BSTR:\"1/2/2003\"",
};

}  // namespace

void AddTypePairs(Requests* requests) {
  for (const std::string_view value : kOthers) {
    AddToAll(std::string(value), requests);
    for (const std::string_view target : kOtherTargets)
      requests->push_back(Convert(target, std::string(value)));
  }
  AddIntegers(requests);
  AddReals(requests);
  AddMoney(requests);
  AddDecimals(requests);
}

}  // namespace halyard::recorder
