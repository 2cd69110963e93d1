#include <cmath>
#include <cstdlib>
#include <random>

#include "tests/recorder/cases.h"
#include "tests/recorder/notation.h"

namespace halyard::recorder {
namespace {

constexpr std::string_view kMantissas[] = {
    "1", "-2.5", "1.23456789012345", "9.99999999999999", "9.999999999999999", "-1.2345678", "6.02214076"};

void AddPowers(Requests* requests) {
  for (int exponent = -324; exponent <= 308; ++exponent) {
    // Around the places where the forms change, everything; far out, samples.
    const bool is_close = exponent >= -20 && exponent <= 20;
    if (!is_close && exponent % 7 != 0) continue;
    for (const std::string_view mantissa : kMantissas) {
      const std::string text = std::string(mantissa) + 'e' + std::to_string(exponent);
      const double value = std::strtod(text.c_str(), nullptr);
      if (std::isinf(value)) continue;
      requests->push_back(Convert("BSTR", Real8(value)));
      const double size = std::fabs(value);
      if (size < 3.4e38 && size > 1e-46)
        requests->push_back(Convert("BSTR", Real4(static_cast<float>(value))));
      if (std::abs(exponent) > 40) continue;
      for (const std::string_view target : {"R4", "CY", "DECIMAL", "I8"}) {
        requests->push_back(Convert(target, Real8(value)));
      }
      requests->push_back(Convert("DECIMAL", Real4(static_cast<float>(value))));
      requests->push_back(Convert("CY", Real4(static_cast<float>(value))));
    }
  }
}

// Decimal fractions with few digits, where width decides between the two forms.
void AddShortFractions(Requests* requests) {
  for (int places = 1; places <= 17; ++places) {
    for (int digits = 1; digits <= places && digits <= 16; ++digits) {
      const std::string text = std::string("1234567891234567").substr(0, static_cast<std::size_t>(digits)) +
                               "e-" + std::to_string(places);
      const double value = std::strtod(text.c_str(), nullptr);
      requests->push_back(Convert("BSTR", Real8(value)));
      if (digits <= 8 && places <= 10) {
        requests->push_back(Convert("BSTR", Real4(static_cast<float>(value))));
      }
    }
  }
}

void AddRandom(Requests* requests) {
  std::mt19937_64 random(20040315);
  for (int i = 0; i < 100; ++i) {
    const int exponent = static_cast<int>(random() % 40) - 20;
    const double value =
        std::ldexp(static_cast<double>(random() >> 11) / 9007199254740992.0 - 0.5, exponent * 3);
    for (const std::string_view target : {"BSTR", "R4", "CY", "DECIMAL", "I4"}) {
      requests->push_back(Convert(target, Real8(value)));
    }
  }
}

}  // namespace

void AddMagnitudes(Requests* requests) {
  AddPowers(requests);
  AddShortFractions(requests);
  AddRandom(requests);
}

}  // namespace halyard::recorder
