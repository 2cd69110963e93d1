#include "time_zones/show_rows.h"

#include <algorithm>

#include "time_zones/client.h"
#include "time_zones/zone_record.h"

namespace time_zones {

using namespace halyard;

namespace {

using Row = std::vector<std::string>;

constexpr std::size_t kWidestCell = 30;
constexpr char kCut[] = "...";

// The number of characters of a UTF-8 text: of its bytes, those that begin one.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string Cut(std::string text) {
  if (Width(text) <= kWidestCell) return text;
  while (Width(text) > kWidestCell - (sizeof kCut - 1)) text.pop_back();
  return text + kCut;
}

void AddTitles(const Ptr<IStructureDef>& definition, Row& titles) {
  for (LONG i = 0; i < CountMembers(definition); ++i) {
    if (const auto nested = MemberDefinition(definition, i).As<IStructureDef>()) {
      AddTitles(nested, titles);
    } else {
      titles.push_back(MemberName(definition, i));
    }
  }
}

void AddCells(const Ptr<IStructureDef>& definition, const Ptr<IValueBase>& record, Row& cells) {
  for (LONG i = 0; i < CountMembers(definition); ++i) {
    const std::string name = MemberName(definition, i);
    if (const auto nested = MemberDefinition(definition, i).As<IStructureDef>()) {
      AddCells(nested, MemberObject(record, name), cells);
    } else {
      cells.push_back(Cut(Readable(GetMember(record, name))));
    }
  }
}

void Print(const std::vector<Row>& table, std::ostream& out) {
  std::vector<std::size_t> widths(table.front().size());
  for (const Row& row : table) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  for (const Row& row : table) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool last = i + 1 == row.size();
      out << row[i] << (last ? "\n" : std::string(widths[i] - Width(row[i]) + 2, ' '));
    }
  }
}

}  // namespace

void ShowRows(const Ptr<IStructureDef>& definition, const std::vector<Ptr<IValueBase>>& records,
              std::size_t limit, std::ostream& out) {
  std::vector<Row> table(1);
  AddTitles(definition, table.front());
  for (std::size_t i = 0; i < std::min(limit, records.size()); ++i) {
    AddCells(definition, records[i], table.emplace_back());
  }
  Print(table, out);
}

}  // namespace time_zones
