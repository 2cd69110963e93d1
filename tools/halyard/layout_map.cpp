#include "tools/halyard/layout_map.h"

#include <fmt/format.h>

#include <algorithm>

namespace halyard::tool {
namespace {

constexpr ULONG kLongField = 4 * kMapColumns;  // its middle is not drawn row by row

std::string NoteOf(const DefinitionView& definition) {
  switch (definition.type) {
    case kString:
      return "2 bytes length, then the text";
    case kArray:
      return definition.element_count == 0 || definition.element->type == kString
                 ? "4 bytes count, then the elements"
                 : fmt::format("{} elements", definition.element_count);
    default:
      return fmt::format("{} bytes", definition.data_size);
  }
}

void AddSegments(const DefinitionView& structure, const std::string& prefix, std::vector<Segment>& segments);

void AddMember(const MemberView& member, const std::string& prefix, std::vector<Segment>& segments) {
  const DefinitionView& definition = *member.definition;
  const std::string name = prefix + member.name;
  if (member.is_field()) {
    segments.push_back({name, definition.TypeText(), member.size, ""});
  } else if (member.can_be_null) {
    segments.push_back({name, definition.TypeText(), 0,
                        "1 byte: 1 where it is null, else 0 and then " + NoteOf(definition)});
  } else if (definition.type == kStructure) {
    AddSegments(definition, name + ".", segments);
  } else if (definition.type == kEnumeration) {
    segments.push_back({name, definition.TypeText(), definition.data_size, ""});
  } else {
    segments.push_back({name, definition.TypeText(), 0, NoteOf(definition)});
  }
}

void AddSegments(const DefinitionView& structure, const std::string& prefix, std::vector<Segment>& segments) {
  for (const MemberView& member : structure.members) AddMember(member, prefix, segments);
}

class MapBuilder {
 public:
  explicit MapBuilder(const std::vector<Segment>& segments) : segments_(segments) {}

  std::vector<MapRow> Build() {
    for (std::size_t i = 0; i < segments_.size(); ++i) {
      if (segments_[i].is_varying()) {
        AddVarying(i);
      } else {
        AddField(i);
      }
    }
    CloseRow();
    return std::move(rows_);
  }

 private:
  void AddVarying(std::size_t segment) {
    CloseRow();
    rows_.push_back({Label(offset_), {{segment, 0, 0, true, true}}, false});
    is_relative_ = true;
    offset_ = row_start_ = 0;
  }

  void AddField(std::size_t segment) {
    const ULONG size = segments_[segment].bytes;
    for (ULONG done = 0; done < size;) {
      const ULONG column = (offset_ - row_start_);
      const ULONG count = std::min(size - done, kMapColumns - column);
      row_.cells.push_back({segment, column, count, done == 0, done + count == size});
      done += count;
      offset_ += count;
      if (offset_ - row_start_ == kMapColumns) CloseRow();
      if (size > kLongField && done >= kMapColumns && row_.cells.empty()) done += SkipMiddle(size - done);
    }
  }

  // Leaves the rows out that lie wholly inside a long field, all but the last two.
  ULONG SkipMiddle(ULONG left) {
    const ULONG rows = left / kMapColumns;
    if (rows <= 2) return 0;
    rows_.push_back({"", {}, true});
    const ULONG bytes = (rows - 2) * kMapColumns;
    offset_ += bytes;
    row_start_ = offset_;
    return bytes;
  }

  void CloseRow() {
    if (!row_.cells.empty()) {
      row_.label = Label(row_start_);
      rows_.push_back(std::move(row_));
    }
    row_ = {};
    row_start_ = offset_;
  }

  [[nodiscard]] std::string Label(ULONG offset) const {
    return fmt::format("{}{}", is_relative_ ? "+" : "", offset);
  }

  const std::vector<Segment>& segments_;
  std::vector<MapRow> rows_;
  MapRow row_;
  ULONG offset_ = 0;
  ULONG row_start_ = 0;
  bool is_relative_ = false;
};

}  // namespace

std::vector<Segment> SegmentsOf(const DefinitionView& structure) {
  std::vector<Segment> segments;
  AddSegments(structure, "", segments);
  return segments;
}

std::vector<MapRow> MapOf(const std::vector<Segment>& segments) { return MapBuilder(segments).Build(); }

}  // namespace halyard::tool
