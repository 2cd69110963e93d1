#include "tools/halyard/definition_scan.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/framing.h"
#include "tools/halyard/little_endian.h"

namespace halyard::tool {
namespace {

constexpr int kDeepest = 64;               // levels that the library reads
constexpr double kObjectBytes = 192;       // of memory for an object of the library
constexpr double kAlwaysAllowed = 32.0e6;  // bytes for a value, whatever its record
constexpr double kAllowedPerByte = 2048;   // and for each byte of its encoding
constexpr double kTextLengthBytes = 2;
constexpr double kArrayCountBytes = 4;

struct ScanFault {
  std::string what;
};

// A definition as a part of another: its cost, and whether its field lies in the block.
struct Part {
  ValueCost cost;
  USHORT size = 0;  // of a simple definition's field
};

double WidthOf(USHORT type) {
  switch (type) {
    case kChar:
    case kByte:
      return 1;
    case kShort:
    case kWord:
      return 2;
    case kLong:
    case kDWord:
    case kInt64:
    case kShortReal:
      return 4;
    case kReal:
    case kDate:
      return 8;
    default:
      return 0;
  }
}

class Scanner {
 public:
  explicit Scanner(std::span<const unsigned char> bytes) : bytes_(bytes) {}

  Part Definition(USHORT type, int depth);
  [[nodiscard]] std::size_t position() const noexcept { return position_; }

 private:
  Part Simple();
  Part Structure(int depth);
  Part Array(int depth);
  Part Enumeration();
  void Member(ValueCost& total, int depth);

  template <class N>
  N Take(const char* what) {
    Room(sizeof(N), what);
    const N value = LittleEndian<N>(bytes_.subspan(position_));
    position_ += sizeof(N);
    return value;
  }
  void Skip(std::size_t count, const char* what) {
    Room(count, what);
    position_ += count;
  }
  void Text(const char* what) { Skip(Take<USHORT>(what), what); }
  void Identity() {
    Take<USHORT>("the id");
    Text("the name");
    Text("the caption");
  }
  void Room(std::size_t count, const char* what) const {
    if (bytes_.size() - position_ < count)
      throw ScanFault{fmt::format("the definition is cut short in {}", what)};
  }

  std::span<const unsigned char> bytes_;
  std::size_t position_ = 0;
};

Part Scanner::Definition(USHORT type, int depth) {
  if (depth > kDeepest) throw ScanFault{fmt::format("definitions are nested more than {} deep", kDeepest)};
  switch (type) {
    case kStructure:
      return Structure(depth);
    case kArray:
      return Array(depth);
    case kEnumeration:
      return Enumeration();
    default:
      if (type > kEnumeration) throw ScanFault{fmt::format("the type code {} is unknown", type)};
      return Simple();
  }
}

Part Scanner::Simple() {
  const auto type = Take<USHORT>("the type code");
  Part part;
  part.size = Take<USHORT>("the data size");
  const bool has_range = type == kString || (type >= kChar && type <= kReal);
  if (has_range) {
    const auto validation = Take<USHORT>("the validation type");
    if (validation != 0) {
      Skip(2 * static_cast<std::size_t>(WidthOf(validation)), "the range");
      Text("the script");
    }
  }
  if (part.size == 0) part.size = static_cast<USHORT>(WidthOf(type));
  part.cost.fresh = kObjectBytes + part.size;
  part.cost.least = type == kString ? kTextLengthBytes : part.size;
  return part;
}

Part Scanner::Structure(int depth) {
  Identity();
  const auto count = Take<USHORT>("the number of members");
  Take<USHORT>("the data size");
  Part part;
  part.cost.fresh = kObjectBytes;
  for (unsigned i = 0; i < count; ++i) Member(part.cost, depth);
  return part;
}

void Scanner::Member(ValueCost& total, int depth) {
  Text("a member's name");
  Text("a member's caption");
  const bool can_be_null = Take<std::uint8_t>("a member's null flag") != 0;
  const auto type = Take<USHORT>("a member's type code");
  Take<USHORT>("a member's data size");
  const Part part = Definition(type, depth + 1);
  const bool is_field = type < kStructure && part.size != 0 && !can_be_null;
  total.fresh += is_field ? part.size : part.cost.fresh;
  total.least += can_be_null ? 1 : part.cost.least;
  total.per_byte = std::max(total.per_byte, part.cost.per_byte);
  total.is_endless = total.is_endless || part.cost.is_endless;
}

Part Scanner::Array(int depth) {
  Identity();
  const double count = Take<USHORT>("the element count");
  const auto type = Take<USHORT>("the element type");
  Take<USHORT>("the element size");
  const ValueCost element = Definition(type, depth + 1).cost;
  Part part;
  ValueCost& cost = part.cost;
  const bool is_block = type < kStructure && type != kString;
  const double element_fresh = is_block ? element.least : element.fresh;
  cost.fresh = kObjectBytes + count * element_fresh;
  cost.least = type == kString || count == 0 ? kArrayCountBytes : count * element.least;
  cost.per_byte = element.per_byte;
  cost.is_endless = element.is_endless;
  if (count == 0 && !is_block) {
    if (element.least == 0) {
      cost.is_endless = true;
    } else {
      cost.per_byte = std::max(cost.per_byte, element.fresh / element.least);
    }
  }
  return part;
}

Part Scanner::Enumeration() {
  Identity();
  const auto number_type = Take<USHORT>("the number type");
  const auto count = Take<USHORT>("the number of elements");
  const bool has_numbers = number_type == kChar || number_type == kShort || number_type == kLong;
  const double width = has_numbers ? WidthOf(number_type) : 0;
  for (unsigned i = 0; i < count; ++i) {
    Skip(static_cast<std::size_t>(width), "an element's number");
    Text("an element's name");
  }
  Part part;
  part.cost.fresh = kObjectBytes;
  part.cost.least = width;
  return part;
}

}  // namespace

DefinitionScan ScanDefinition(std::span<const unsigned char> bytes, USHORT type) {
  DefinitionScan result;
  Scanner scanner(bytes);
  try {
    result.cost = scanner.Definition(type, 1).cost;
  } catch (const ScanFault& fault) {
    result.fault = fault.what;
  }
  result.offset = scanner.position();
  return result;
}

std::optional<std::string> CostFault(const ValueCost& cost, std::uint64_t bytes) {
  if (cost.is_endless)
    return "its definition has arrays of elements that take no bytes, so no count of them can be believed";
  const auto size = static_cast<double>(bytes);
  if (cost.fresh + cost.per_byte * size > kAlwaysAllowed + kAllowedPerByte * size) {
    return fmt::format("its definition asks for some {:.0f} MB of memory, which its {} bytes do not back",
                       (cost.fresh + cost.per_byte * size) / 1e6, bytes);
  }
  return std::nullopt;
}

}  // namespace halyard::tool
