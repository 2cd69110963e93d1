// The byte map in a terminal: 16 bytes a row, each field a box as wide as its bytes.
#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/layout_map.h"
#include "tools/halyard/style.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kByteWidth = 4;  // characters for a byte, the border at its left included
constexpr std::size_t kLabelWidth = 6;

std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

// The name in a box, centred; a piece that continues a field has none.
std::string Box(const MapCell& cell, const Segment& segment, const Style& style) {
  const std::size_t width = cell.bytes * kByteWidth - 1;
  const std::string name = cell.begins ? Shortened(Printable(segment.name), width) : "";
  const std::size_t room = width - std::min(width, DisplayWidth(name));
  return fmt::format("{:{}}{}{:{}}", "", room / 2, style.Coloured(name, cell.segment), "", room - room / 2);
}

std::string Ruler() {
  std::string line = Repeated(" ", kLabelWidth);
  for (ULONG i = 0; i < kMapColumns; ++i)
    line += fmt::format("{:>{}}", i, i == 0 ? kByteWidth - 1 : kByteWidth);
  return line + "\n";
}

// Draws what a row adds to the line above or below it.
void AddBorder(std::string& line, const MapRow* row) {
  if (row == nullptr) return;
  for (const MapCell& cell : row->cells) {
    const std::size_t start = kLabelWidth + cell.column * kByteWidth;
    const std::size_t end = start + cell.bytes * kByteWidth;
    if (line.size() <= end) line.resize(end + 1, ' ');
    for (std::size_t i = start; i <= end; ++i) {
      if (line[i] == ' ') line[i] = '-';
    }
    line[start] = line[end] = '+';
  }
}

// The line between two rows of boxes, either of which may be missing.
std::string Border(const MapRow* above, const MapRow* below) {
  std::string line;
  AddBorder(line, above);
  AddBorder(line, below);
  return line + "\n";
}

std::string RowText(const MapRow& row, const std::vector<Segment>& segments, const Style& style) {
  if (row.is_gap) return fmt::format("{:{}}:\n", "", kLabelWidth);
  const Segment& first = segments[row.cells.front().segment];
  if (first.is_varying()) {
    return fmt::format("{:>{}}  <{}> {}\n", row.label, kLabelWidth - 2,
                       style.Coloured(Printable(first.name), row.cells.front().segment),
                       style.Quiet(Printable(fmt::format("{}: {}", first.type, first.note))));
  }
  std::string line = fmt::format("{:>{}}  ", row.label, kLabelWidth - 2);
  for (const MapCell& cell : row.cells) line += "|" + Box(cell, segments[cell.segment], style);
  return line + "|\n";
}

}  // namespace

std::string MapText(const DefinitionView& structure, const Style& style) {
  const std::vector<Segment> segments = SegmentsOf(structure);
  const std::vector<MapRow> rows = MapOf(segments);
  std::string text = style.Quiet(Ruler());
  const MapRow* above = nullptr;  // the row of boxes that ends where the next row begins
  for (const MapRow& row : rows) {
    const bool is_boxes = !row.is_gap && !segments[row.cells.front().segment].is_varying();
    const MapRow* below = is_boxes ? &row : nullptr;
    if (above != nullptr || below != nullptr) text += Border(above, below);
    text += RowText(row, segments, style);
    above = below;
  }
  if (above != nullptr) text += Border(above, nullptr);
  return text;
}

}  // namespace halyard::tool
