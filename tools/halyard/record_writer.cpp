#include "tools/halyard/record_writer.h"

#include <array>

#include "tools/halyard/framing.h"
#include "tools/halyard/little_endian.h"

namespace halyard::tool {
namespace {

void WriteLength(Output& output, std::size_t size) {
  std::array<unsigned char, kLengthBytes> length{};
  PutLittleEndian(std::span(length), static_cast<std::uint32_t>(size));
  output.Write(length);
}

}  // namespace

RecordWriter::RecordWriter(Output& output) : output_(output) { output_.Write(kFileHeader); }

void RecordWriter::Write(std::span<const unsigned char> unit) {
  WriteLength(output_, unit.size());
  output_.Write(unit);
  ++records_;
}

void RecordWriter::WriteWithId(std::span<const unsigned char> unit, std::int16_t id) {
  std::array<unsigned char, sizeof id> bytes{};
  PutLittleEndian(std::span(bytes), id);
  WriteLength(output_, unit.size());
  output_.Write(unit.first(kIdOffset));
  output_.Write(bytes);
  output_.Write(unit.subspan(kIdOffset + sizeof id));
  ++records_;
}

}  // namespace halyard::tool
