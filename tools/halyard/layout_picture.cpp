// The byte map as scalable vector graphics.
#include <fmt/format.h>

#include <array>

#include "tools/halyard/layout_map.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr unsigned kByteWidth = 44;
constexpr unsigned kRowHeight = 34;
constexpr unsigned kLeft = 70;
constexpr unsigned kTitleHeight = 56;
constexpr unsigned kMargin = 20;
constexpr unsigned kTextRise = 12;
constexpr unsigned kWidth = kLeft + kMapColumns * kByteWidth + kMargin;
constexpr unsigned kCharacterWidth = 8;

constexpr std::array<const char*, 6> kFills = {"#cfe8ff", "#ffe3b3", "#d3f2d0",
                                               "#f3d3f0", "#ffd4cf", "#dcdcf7"};

std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : Printable(text)) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string Text(unsigned x, unsigned y, std::string_view anchor, std::string_view style,
                 std::string_view text) {
  return fmt::format("<text x=\"{}\" y=\"{}\" text-anchor=\"{}\" class=\"{}\">{}</text>\n", x, y, anchor,
                     style, Escaped(text));
}

class Picture {
 public:
  void Add(const DefinitionView& structure) {
    y_ += kMargin;
    body_ += Text(kMargin, y_ + kTextRise, "start", "title",
                  fmt::format("{}, id {}, {} bytes{}", structure.Title(), structure.id, structure.data_size,
                              structure.is_fixed ? "" : " and more"));
    for (ULONG i = 0; i < kMapColumns; ++i) {
      body_ += Text(kLeft + i * kByteWidth + kByteWidth / 2, y_ + kTitleHeight - kTextRise, "middle", "small",
                    std::to_string(i));
    }
    y_ += kTitleHeight;
    const std::vector<Segment> segments = SegmentsOf(structure);
    for (const MapRow& row : MapOf(segments)) AddRow(row, segments);
  }

  [[nodiscard]] std::string Document() const {
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" viewBox=\"0 0 {0} {1}\">\n"
        "<style>text{{font-family:sans-serif;font-size:14px}}.title{{font-weight:bold;font-size:17px}}"
        ".small{{font-size:11px;fill:#666}}rect{{stroke:#444}}</style>\n"
        "<rect width=\"{0}\" height=\"{1}\" fill=\"white\" stroke=\"none\"/>\n{2}</svg>\n",
        kWidth, y_ + kMargin, body_);
  }

 private:
  void AddRow(const MapRow& row, const std::vector<Segment>& segments) {
    const unsigned middle = y_ + kRowHeight / 2 + 5;
    body_ += Text(kLeft - 10, middle, "end", "small", row.is_gap ? ":" : row.label);
    for (const MapCell& cell : row.cells) AddCell(cell, segments[cell.segment], middle);
    y_ += kRowHeight;
  }

  void AddCell(const MapCell& cell, const Segment& segment, unsigned middle) {
    const unsigned x = kLeft + cell.column * kByteWidth;
    const unsigned width = (segment.is_varying() ? kMapColumns : cell.bytes) * kByteWidth;
    const std::string about = segment.is_varying()
                                  ? fmt::format("{} {}: {}", segment.name, segment.type, segment.note)
                                  : fmt::format("{} {}, {} bytes", segment.name, segment.type, segment.bytes);
    body_ += fmt::format(
        "<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" fill=\"{}\"{}><title>{}</title></rect>\n", x, y_,
        width, kRowHeight, kFills[cell.segment % kFills.size()],
        segment.is_varying() ? " stroke-dasharray=\"5 3\"" : "", Escaped(about));
    if (!cell.begins) return;
    const std::string& name = segment.is_varying() ? about : segment.name;
    body_ += Text(x + width / 2, middle, "middle", "", Shortened(name, width / kCharacterWidth));
  }

  std::string body_;
  unsigned y_ = 0;
};

}  // namespace

std::string MapPicture(const std::vector<DefinitionPtr>& structures) {
  Picture picture;
  for (const DefinitionPtr& structure : structures) picture.Add(*structure);
  return picture.Document();
}

}  // namespace halyard::tool
