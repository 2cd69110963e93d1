#include "tests/recorder/windows_answers.h"

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/recorder/decimal_text.h"
#include "tests/recorder/notation.h"

namespace halyard::recorder {
namespace {

constexpr char kOverflow[] = "8002000A";
constexpr char kInvalid[] = "80070057";
constexpr char kSuccess[] = "00000000 ";

// A conversion: what is converted to what, references and objects taken away.
struct Conversion {
  std::string target;
  std::string source;
  std::string payload;
  std::string recorded;

  [[nodiscard]] bool Failed() const { return recorded[0] == '8'; }
  [[nodiscard]] bool IsReal() const { return source == "R4" || source == "R8" || source == "DATE"; }
  [[nodiscard]] bool ToInteger() const { return target.rfind("I", 0) == 0 || target.rfind("UI", 0) == 0; }

  // The payload without its quotes.
  [[nodiscard]] std::string Words() const {
    return payload.size() < 2 ? "" : payload.substr(1, payload.size() - 2);
  }

  // The floating-point number that the payload or a recorded answer writes in hex.
  static double RealOf(const std::string& type, const std::string& hex) {
    unsigned long long bits = 0;
    if (!ParseHex(hex, &bits)) return 0;
    double wide = 0;
    float narrow = 0;
    const auto narrow_bits = static_cast<std::uint32_t>(bits);
    std::memcpy(&wide, &bits, sizeof(wide));
    std::memcpy(&narrow, &narrow_bits, sizeof(narrow));
    return type == "R4" ? double{narrow} : wide;
  }
  [[nodiscard]] double Real() const { return RealOf(source, payload); }
};

using Rule = std::optional<Correction> (*)(const Conversion&);

std::optional<Correction> NotANumber(const Conversion& c) {
  if (!c.IsReal() || !std::isnan(c.Real()) || c.recorded == kOverflow) return std::nullopt;
  if (c.source == "DATE" && c.target == "BSTR") {
    return Correction{kInvalid, "no date of the years 100 to 9999"};
  }
  const bool to_date = c.target == "DATE" && c.source != "DATE";
  if (!c.ToInteger() && !to_date && c.target != "DECIMAL") return std::nullopt;
  return Correction{kOverflow,
                    "DISP_E_OVERFLOW where the value does not fit: what is no number fits nowhere"};
}

std::optional<Correction> Truncated16(const Conversion& c) {
  if (c.target != "UI2" || (c.source != "I8" && c.source != "UI8") || c.Failed()) return std::nullopt;
  if (std::strtoull(c.payload.c_str(), nullptr, 10) <= 0xFFFF) return std::nullopt;
  return Correction{kOverflow, "DISP_E_OVERFLOW where the value does not fit"};
}

std::optional<Correction> Large64(const Conversion& c) {
  constexpr double kTwoTo63 = 9223372036854775808.0;
  if (c.target != "I8" || !c.IsReal() || !c.Failed()) return std::nullopt;
  const double value = c.Real();
  if (!(value >= -kTwoTo63 && value < kTwoTo63)) return std::nullopt;
  return Correction{kSuccess + ("I8:" + std::to_string(std::llrint(value))), "the value fits into 64 bits"};
}

// The names of the C library that the automation library uses.
std::string SpecialName(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof(bits));
  const std::string sign = std::signbit(value) ? "-" : "";
  if (std::isinf(value)) return sign + "1.#INF";
  return bits == 0xFFF8000000000000u ? "-1.#IND" : sign + "1.#QNAN";
}

std::optional<Correction> RealText(const Conversion& c) {
  if (c.target != "BSTR" || (c.source != "R4" && c.source != "R8")) return std::nullopt;
  const double value = c.Real();
  const int digits = c.source == "R4" ? 7 : 15;
  if (!std::isfinite(value)) {
    return Correction{kSuccess + Text(SpecialName(value)), "the C library's 1.#INF, 1.#QNAN and -1.#IND"};
  }
  return Correction{kSuccess + Text(WidthLimitedText(value, digits)),
                    "plain as long as no more than " + std::to_string(digits) +
                        " integer digits or decimal places are needed"};
}

std::optional<Correction> RealDecimal(const Conversion& c) {
  if (c.target != "DECIMAL" || !c.IsReal() || !std::isfinite(c.Real()) || c.Failed()) return std::nullopt;
  const int digits = c.source == "R4" ? 7 : 15;
  return Correction{kSuccess + DecimalOfReal(c.Real(), digits),
                    "rounded to " + std::to_string(digits) + " significant digits"};
}

std::optional<Correction> BooleanDecimal(const Conversion& c) {
  if (c.target != "DECIMAL" || c.source != "BOOL" || c.payload == "0") return std::nullopt;
  const int value = std::atoi(c.payload.c_str());
  return Correction{kSuccess + DecimalOfWhole(value), "true is -1 as for the other number types"};
}

bool IsOutsideDates(double date) { return !(date > -657435.0 && date < 2958466.0); }

std::optional<Correction> FarDate(const Conversion& c) {
  if (c.target != "DATE" || c.source == "DATE" || c.source == "BSTR" || c.Failed()) return std::nullopt;
  if (!IsOutsideDates(Conversion::RealOf("R8", c.recorded.substr(14)))) return std::nullopt;
  return Correction{kOverflow, "DISP_E_OVERFLOW outside the years 100 to 9999"};
}

// One division of doubles, by a power of ten as a double.
std::optional<Correction> DecimalReal(const Conversion& c) {
  if ((c.target != "R8" && c.target != "DATE") || c.source != "DECIMAL" || c.Failed()) return std::nullopt;
  unsigned long long scale = 0;
  unsigned long long high = 0;
  unsigned long long low = 0;
  ParseHex(c.payload.substr(3, 2), &scale);
  ParseHex(c.payload.substr(6, 8), &high);
  ParseHex(c.payload.substr(15, 16), &low);
  double quotient = static_cast<double>(low) + static_cast<double>(high) * 18446744073709551616.0;
  quotient /= std::strtod(("1e" + std::to_string(scale)).c_str(), nullptr);
  if (c.payload[0] == '8' && quotient != 0) quotient = -quotient;
  if (c.target == "DATE" && IsOutsideDates(quotient)) return FarDate(c);
  return Correction{kSuccess + (c.target + ':' + HexOf(quotient)),
                    "the quotient of the number and its power of ten, rounded once"};
}

// A sign, digits, a point and an exponent, all of which the C library reads alike.
bool IsPlainNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return text.find_first_not_of("0123456789.eE+-") == std::string::npos && *end == '\0';
}

std::optional<Correction> NearestReal(const Conversion& c) {
  const bool narrow = c.target == "R4";
  if (c.source != "BSTR" || (!narrow && c.target != "R8" && c.target != "BOOL")) return std::nullopt;
  const std::string text = c.Words();
  if (c.recorded == "80020005" || !IsPlainNumber(text)) return std::nullopt;
  const double wide = std::strtod(text.c_str(), nullptr);
  const float single = std::strtof(text.c_str(), nullptr);
  const std::string reason = "the nearest number of the type, down to the smallest ones";
  if (narrow ? std::isinf(single) : std::isinf(wide)) return Correction{kOverflow, reason};
  if (c.target == "BOOL") return Correction{wide != 0 ? "00000000 BOOL:-1" : "00000000 BOOL:0", reason};
  return Correction{kSuccess + (narrow ? Real4(single) : Real8(wide)), reason};
}

std::optional<Correction> SmallText(const Conversion& c) {
  if (!c.ToInteger() || c.source != "BSTR" || c.recorded == "80020005" || !IsPlainNumber(c.Words())) {
    return std::nullopt;
  }
  if (std::fabs(std::strtod(c.Words().c_str(), nullptr)) >= 0.5) return std::nullopt;
  return Correction{kSuccess + c.target + ":0", "less than one half is rounded to zero"};
}

std::optional<Correction> FarDateText(const Conversion& c) {
  if (c.target != "BSTR" || c.source != "DATE" || c.recorded.find("/10000 ") == std::string::npos) {
    return std::nullopt;
  }
  return Correction{kInvalid, "rounds to a time outside the years 100 to 9999"};
}

std::optional<Correction> CorrectConversion(const Conversion& conversion) {
  constexpr Rule kRules[] = {NotANumber,  Truncated16, Large64,   RealText, RealDecimal, BooleanDecimal,
                             DecimalReal, NearestReal, SmallText, FarDate,  FarDateText};
  for (const Rule rule : kRules) {
    if (auto correction = rule(conversion)) return correction;
  }
  return std::nullopt;
}

// "convert TYPE VALUE" with the references and the object around the value taken away.
std::optional<Correction> CorrectConvert(const std::string& request, const std::string& recorded) {
  const std::size_t type = request.find(' ') + 1;
  const std::size_t value = request.find(' ', type) + 1;
  std::string source = request.substr(value);
  source.erase(0, source.find_first_not_of("&*"));
  while (source.rfind("DISPATCH:{", 0) == 0) source = source.substr(10, source.size() - 11);
  const std::size_t colon = source.find(':');
  if (colon == std::string::npos) return std::nullopt;
  return CorrectConversion(
      {request.substr(type, value - type - 1), source.substr(0, colon), source.substr(colon + 1), recorded});
}

// 0 is Sunday.
int Weekday(int year, int month, int day) {
  constexpr int kMonthTerms[12] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
  if (month < 3) --year;
  return (year + year / 4 - year / 100 + year / 400 + kMonthTerms[month - 1] + day) % 7;
}

std::optional<Correction> CorrectSplit(const std::string& request, const std::string& recorded) {
  if (recorded == "0") return std::nullopt;
  const double date = Conversion::RealOf("R8", request.substr(6));
  int year = 0;
  int month = 0;
  int weekday = 0;
  int day = 0;
  int rest = 0;
  std::sscanf(recorded.c_str(), "1 %d %d %d %d%n", &year, &month, &weekday, &day, &rest);
  if (std::isnan(date) || year > 9999) return Correction{"0", "no time of the years 100 to 9999"};
  const std::string answer = "1 " + std::to_string(year) + ' ' + std::to_string(month) + ' ' +
                             std::to_string(Weekday(year, month, day)) + ' ' + std::to_string(day) +
                             recorded.substr(static_cast<std::size_t>(rest));
  return Correction{answer, "the weekday of the day that is answered"};
}

std::optional<Correction> CorrectJoin(const std::string& recorded) {
  if (recorded == "0" || !IsOutsideDates(Conversion::RealOf("R8", recorded.substr(2)))) return std::nullopt;
  return Correction{"0", "no date of the years 100 to 9999"};
}

}  // namespace

std::optional<Correction> CorrectForWindows(const std::string& request, const std::string& recorded) {
  std::optional<Correction> correction = FindWindowsRow(request);
  if (!correction && request.rfind("convert ", 0) == 0) correction = CorrectConvert(request, recorded);
  if (!correction && request.rfind("split ", 0) == 0) correction = CorrectSplit(request, recorded);
  if (!correction && request.rfind("join ", 0) == 0) correction = CorrectJoin(recorded);
  if (correction && correction->answer == recorded) correction.reset();
  return correction;
}

}  // namespace halyard::recorder
