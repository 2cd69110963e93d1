#include <cmath>
#include <random>

#include "tests/recorder/cases.h"
#include "tests/recorder/notation.h"

namespace halyard::recorder {
namespace {

constexpr int kSecondsPerDay = 86400;

// Fractions of a day: whole seconds, halves of seconds and their neighbours, and the
// last moments before midnight.
constexpr double kFractions[] = {
    0.0,
    0.25,
    0.5,
    0.75,
    0.999,
    0.99998,
    0.99999,
    0.999994212,
    0.999994213,
    0.999995,
    0.9999999,
    0.99999999999,
    0.9999999999999,
    1.0 / kSecondsPerDay,
    0.5 / kSecondsPerDay,
    0.4999 / kSecondsPerDay,
    0.5001 / kSecondsPerDay,
    1.5 / kSecondsPerDay,
    2.5 / kSecondsPerDay,
    59.5 / kSecondsPerDay,
    3599.5 / kSecondsPerDay,
    86399.0 / kSecondsPerDay,
    86399.4 / kSecondsPerDay,
    86399.5 / kSecondsPerDay,
    86399.6 / kSecondsPerDay,
    86399.999 / kSecondsPerDay,
    1e-5,
    1e-6,
    1e-9,
    1e-12,
};

constexpr double kDays[] = {
    0,       1,       -1,      2,       -2,      60,    61,      -365,    366,     25569,   36524,   36525,
    36526,   36584,   36585,   38061,   73050,   73051, 401768,  401769,  693961,  693962,  2958464, 2958465,
    2958466, -109205, -109206, -109571, -109572, -473,  -657433, -657434, -657435, 2958467, -36522,  -36523,
};

void AddBoth(double date, Requests* requests) {
  requests->push_back("split " + HexOf(date));
  requests->push_back(Convert("BSTR", Date(date)));
}

void AddYears(Requests* requests) {
  for (int year = 100; year <= 9999; year += year < 1500 || year > 2500 ? 83 : 17) {
    const double day = std::floor((year - 1900) * 365.2425) + 2 + year % 365;
    AddBoth(day + (day < 0 ? -0.25 : 0.25), requests);
    AddBoth(day, requests);
  }
}

void AddRandom(Requests* requests) {
  std::mt19937_64 random(18991230);
  for (int i = 0; i < 150; ++i) {
    const double unit = static_cast<double>(random() >> 11) / 9007199254740992.0;
    AddBoth(-657434.0 + unit * (2958465.0 + 657434.0), requests);
  }
  for (int i = 0; i < 100; ++i) {
    const auto seconds = static_cast<double>(random() % kSecondsPerDay);
    const auto day = static_cast<double>(random() % 80000) - 20000.0;
    const double fraction = seconds / kSecondsPerDay;
    AddBoth(day < 0 ? day - fraction : day + fraction, requests);
  }
}

void AddJoins(Requests* requests) {
  constexpr std::string_view kTimes[] = {
      "2004 3 15 12 30 45 0",    "2004 3 15 12 30 45 500",
      "2004 3 15 12 30 45 999",  "1899 12 30 0 0 0 0",
      "1899 12 29 0 0 0 0",      "1899 12 29 6 0 0 0",
      "1899 12 31 23 59 59 0",   "0 1 1 0 0 0 0",
      "1 1 1 0 0 0 0",           "29 1 1 0 0 0 0",
      "30 1 1 0 0 0 0",          "49 1 1 0 0 0 0",
      "50 1 1 0 0 0 0",          "99 12 31 0 0 0 0",
      "100 1 1 0 0 0 0",         "100 1 1 23 59 59 0",
      "101 2 28 1 2 3 0",        "9999 12 31 23 59 59 0",
      "9999 12 31 0 0 0 0",      "10000 1 1 0 0 0 0",
      "32767 1 1 0 0 0 0",       "32768 1 1 0 0 0 0",
      "65535 1 1 0 0 0 0",       "2000 2 29 0 0 0 0",
      "1900 2 29 0 0 0 0",       "1900 2 28 0 0 0 0",
      "2001 2 29 0 0 0 0",       "2001 2 30 0 0 0 0",
      "2001 2 31 0 0 0 0",       "2001 4 31 0 0 0 0",
      "2001 4 30 0 0 0 0",       "2004 0 15 0 0 0 0",
      "2004 13 15 0 0 0 0",      "2004 12 32 0 0 0 0",
      "2004 12 0 0 0 0 0",       "2004 1 0 0 0 0 0",
      "2004 3 0 0 0 0 0",        "2004 3 15 24 0 0 0",
      "2004 3 15 23 60 0 0",     "2004 3 15 23 59 60 0",
      "2004 3 15 23 59 59 1000", "2004 3 15 25 0 0 0",
      "2004 3 15 65535 0 0 0",   "2004 3 15 0 65535 0 0",
      "2004 3 15 0 0 65535 0",   "2004 3 65535 0 0 0 0",
      "2004 65535 1 0 0 0 0",    "2004 3 15 0 0 0 65535",
      "1601 1 1 0 0 0 0",        "1600 12 31 12 0 0 0",
      "0 0 0 0 0 0 0",           "1899 12 30 12 0 0 0",
      "1899 12 30 23 59 59 0",   "9999 12 32 0 0 0 0",
      "9999 13 1 0 0 0 0",       "100 1 0 0 0 0 0",
      "2004 3 15 23 120 0 0",    "2004 3 15 0 0 3600 0",
      "2004 3 31 24 0 0 0",      "9999 12 31 24 0 0 0",
      "100 1 1 65535 0 0 0",     "2004 1 1 65535 65535 65535 0",
      "50 2 29 0 0 0 0",
  };
  for (const std::string_view time : kTimes) requests->push_back("join " + std::string(time));
  std::mt19937_64 random(17520902);
  for (int i = 0; i < 150; ++i) {
    std::string time = "join " + std::to_string(100 + random() % 9900) + ' ' +
                       std::to_string(1 + random() % 12) + ' ' + std::to_string(1 + random() % 28) + ' ' +
                       std::to_string(random() % 24) + ' ' + std::to_string(random() % 60) + ' ' +
                       std::to_string(random() % 60) + " 0";
    requests->push_back(time);
  }
}

}  // namespace

void AddDates(Requests* requests) {
  for (const double day : kDays) {
    for (const double fraction : kFractions) AddBoth(day < 0 ? day - fraction : day + fraction, requests);
  }
  AddYears(requests);
  AddRandom(requests);
  AddJoins(requests);
  for (const char* bits : {"7FF0000000000000", "FFF0000000000000", "7FF8000000000000", "7FEFFFFFFFFFFFFF",
                           "8000000000000000", "0000000000000001"}) {
    requests->push_back(std::string("split ") + bits);
  }
}

}  // namespace halyard::recorder
