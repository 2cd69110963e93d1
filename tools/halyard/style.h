// Colours and weights of what people read, on terminals only and not where the
// environment says NO_COLOR.
#pragma once

#include <string>
#include <string_view>

namespace halyard::tool {

class Style {
 public:
  // For what goes to that descriptor.
  explicit Style(int descriptor);

  [[nodiscard]] std::string Title(std::string_view text) const;  // headings, names
  [[nodiscard]] std::string Quiet(std::string_view text) const;  // what may be passed over
  [[nodiscard]] std::string Good(std::string_view text) const;
  [[nodiscard]] std::string Bad(std::string_view text) const;

  // One of a round of colours, to tell neighbours apart.
  [[nodiscard]] std::string Coloured(std::string_view text, std::size_t round) const;

  [[nodiscard]] bool has_colours() const noexcept { return has_colours_; }

 private:
  bool has_colours_;
};

}  // namespace halyard::tool
