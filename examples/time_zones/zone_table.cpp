#include "time_zones/zone_table.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace time_zones {
namespace {

constexpr double kLargestLatitude = 90;
constexpr double kLargestLongitude = 180;

// A fault of one line, worded as the end of a sentence; ReadZoneTable adds the place.
class LineFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

int Number(std::string_view digits) {
  int result = 0;
  for (const char c : digits) result = 10 * result + (c - '0');
  return result;
}

// One angle: a sign, `degree_digits` digits of degrees, two of minutes and, optionally,
// two of seconds. False where the text is anything else.
bool ParseAngle(std::string_view text, std::size_t degree_digits, double limit, double& angle) {
  if (text.empty() || (text[0] != '+' && text[0] != '-')) return false;
  const std::string_view digits = text.substr(1);
  const bool has_seconds = digits.size() == degree_digits + 4;
  if (!has_seconds && digits.size() != degree_digits + 2) return false;
  if (!std::all_of(digits.begin(), digits.end(), IsDigit)) return false;
  const int minutes = Number(digits.substr(degree_digits, 2));
  const int seconds = has_seconds ? Number(digits.substr(degree_digits + 2)) : 0;
  if (minutes > 59 || seconds > 59) return false;
  angle = Number(digits.substr(0, degree_digits)) + minutes / 60.0 + seconds / 3600.0;
  if (angle > limit) return false;
  if (text[0] == '-') angle = -angle;
  return true;
}

void ParseCoordinates(std::string_view text, ZoneRow& row) {
  const std::size_t second_sign = text.find_first_of("+-", 1);
  if (second_sign == std::string_view::npos ||
      !ParseAngle(text.substr(0, second_sign), 2, kLargestLatitude, row.latitude) ||
      !ParseAngle(text.substr(second_sign), 3, kLargestLongitude, row.longitude)) {
    throw LineFault("the coordinates '" + std::string(text) +
                    "' are not of the form +DDMM+DDDMM or +DDMMSS+DDDMMSS");
  }
}

void ParseCountries(std::string_view text, ZoneRow& row) {
  for (const std::string_view code : Split(text, ',')) {
    if (code.size() != 2 || !IsCapital(code[0]) || !IsCapital(code[1])) {
      throw LineFault("the country codes '" + std::string(text) +
                      "' are not two capitals each, with commas between");
    }
    ++row.country_count;
  }
  row.countries = text;
}

ZoneRow ParseLine(std::string_view line) {
  const std::vector<std::string_view> columns = Split(line, '\t');
  if (columns.size() < 3 || columns.size() > 4) {
    throw LineFault("there are " + std::to_string(columns.size()) + " columns instead of three or four");
  }
  ZoneRow row;
  ParseCountries(columns[0], row);
  ParseCoordinates(columns[1], row);
  if (columns[2].empty()) throw LineFault("the zone has no name");
  row.name = columns[2];
  if (columns.size() == 4) row.comment = columns[3];
  return row;
}

}  // namespace

std::vector<ZoneRow> ReadZoneTable(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot open the table " + path.string());
  std::vector<ZoneRow> rows;
  int line_number = 0;
  for (std::string line; std::getline(file, line);) {
    ++line_number;
    if (line.empty() || line[0] == '#') continue;
    try {
      rows.push_back(ParseLine(line));
      rows.back().number = static_cast<int>(rows.size());
    } catch (const LineFault& fault) {
      throw std::runtime_error(path.string() + ", line " + std::to_string(line_number) + ": " + fault.what());
    }
  }
  if (file.bad()) throw std::runtime_error("cannot read the table " + path.string());
  if (rows.empty()) throw std::runtime_error("the table " + path.string() + " has no row");
  return rows;
}

}  // namespace time_zones
