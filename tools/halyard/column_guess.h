// Finds the type of a column from its texts, one after another: the narrowest one in
// which every text comes back as it was.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/halyard/column_form.h"
#include "tools/halyard/csv_reader.h"

namespace halyard::tool {

// What a column is made of.
struct ColumnType {
  SHORT type = kString;
  LONG size = 0;  // of a FixedString
  bool can_be_null = false;
  ColumnForm form;
  std::vector<std::string> elements;  // of an enumeration, in the order of their numbers
  std::string remark;                 // why numbers or dates were kept as texts
  std::string odd_type;               // and the type of theirs that a person may still want
};

// A definition counts the elements of an enumeration in 16 bits.
inline constexpr std::size_t kMostElements = 65535;

class ColumnGuess {
 public:
  // `most_elements` texts at most make an enumeration, kMostElements of them where that is
  // less; 0 for none.
  explicit ColumnGuess(std::size_t most_elements) : most_elements_(std::min(most_elements, kMostElements)) {}

  void Take(const CsvField& field);

  [[nodiscard]] ColumnType Result() const;

 private:
  void TakeInteger(const std::string& text);
  void TakeReal(const std::string& text);
  void TakeDate(const std::string& text);
  void TakeElement(const std::string& text);
  [[nodiscard]] SHORT IntegerType() const noexcept;

  std::size_t most_elements_;
  std::uint64_t count_ = 0;  // of texts
  bool has_missing_ = false;

  bool is_integer_ = true;
  std::int64_t least_ = 0;
  std::int64_t greatest_ = 0;

  bool is_number_ = true;               // some real number, in whatever form
  std::vector<ColumnForm> real_forms_;  // those that gave every text back
  std::string odd_number_;              // the first text that none of them gives back
  bool is_date_ = true;
  std::vector<ColumnForm> date_forms_;
  std::string odd_date_;

  bool is_enumeration_ = true;
  std::vector<std::string> elements_;
  std::set<std::string> known_elements_;
};

}  // namespace halyard::tool
