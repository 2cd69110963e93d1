#include "tools/halyard/table.h"

#include <algorithm>

#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kPageRows = 200;
constexpr std::size_t kPageBytes = std::size_t{1} << 20;
constexpr char kGap[] = "  ";

std::string Padding(std::size_t count) { return std::string(count, ' '); }

}  // namespace

Table::Table(Output& output, const Style& style, std::vector<Column> columns, std::size_t widest)
    : output_(output), style_(style), columns_(std::move(columns)), widest_(widest) {
  for (Column& column : columns_) {
    column.title = Printable(column.title);
    if (widest_ != 0) column.title = Shortened(column.title, widest_);
    widths_.push_back(DisplayWidth(column.title));
  }
}

void Table::Add(std::vector<std::string> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (widest_ != 0) cells[i] = Shortened(cells[i], widest_);
    widths_[i] = std::max(widths_[i], DisplayWidth(cells[i]));
    page_bytes_ += cells[i].size();
  }
  page_.push_back(std::move(cells));
  if (page_.size() >= kPageRows || page_bytes_ >= kPageBytes) PrintPage();
}

void Table::Finish() { PrintPage(); }

void Table::PrintPage() {
  if (!has_titles_) {
    has_titles_ = true;
    std::vector<std::string> titles;
    for (const Column& column : columns_) titles.push_back(column.title);
    PrintRow(titles, true);
  }
  for (const auto& row : page_) PrintRow(row, false);
  page_.clear();
  page_bytes_ = 0;
}

void Table::PrintRow(const std::vector<std::string>& cells, bool is_title) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const bool is_last = i + 1 == cells.size();
    const std::string padding = Padding(widths_[i] - DisplayWidth(cells[i]));
    const std::string cell = is_title ? style_.Title(cells[i]) : cells[i];
    if (columns_[i].is_number) {
      line += padding + cell;
    } else {
      line += is_last ? cell : cell + padding;
    }
    line += is_last ? "\n" : kGap;
  }
  output_.Write(line);
}

}  // namespace halyard::tool
