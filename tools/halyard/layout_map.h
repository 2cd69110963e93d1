// How a value of a structure lies in a file, byte by byte: what defs draws.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/definition_view.h"

namespace halyard::tool {

// A field, or a part whose size each value decides.
struct Segment {
  std::string name;  // "Position.Latitude"
  std::string type;  // "Real"
  ULONG bytes = 0;   // 0: as many as the value says
  std::string note;  // how a part of varying size begins

  [[nodiscard]] bool is_varying() const noexcept { return bytes == 0; }
};

// The parts of a structure value in the order of the file, nested structures taken apart.
std::vector<Segment> SegmentsOf(const DefinitionView& structure);

// A piece of a segment in one row of the map.
struct MapCell {
  std::size_t segment = 0;
  ULONG column = 0;  // bytes from the start of the row
  ULONG bytes = 0;
  bool begins = false;
  bool ends = false;
};

// A row of the map: fields side by side, or one part of varying size by itself.
struct MapRow {
  std::string label;  // the offset of its first byte; "+n" behind a part of varying size
  std::vector<MapCell> cells;
  bool is_gap = false;  // stands for rows in the middle of one long field
};

inline constexpr ULONG kMapColumns = 16;  // bytes a row

std::vector<MapRow> MapOf(const std::vector<Segment>& segments);

// The map in a terminal, as lines.
std::string MapText(const DefinitionView& structure, const class Style& style);

// The map as a picture: a document of scalable vector graphics with one drawing for each
// structure.
std::string MapPicture(const std::vector<DefinitionPtr>& structures);

}  // namespace halyard::tool
