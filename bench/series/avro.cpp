#include "rivals/avro.h"

#include <cstdio>
#include <optional>

#include "series/rivals.h"

namespace bench {
namespace {

using avro::Require;

constexpr char kSchema[] = R"({"type": "array", "items": "double"})";

// A reader or writer over a file, closed with it.
struct CloseReader {
  void operator()(avro_reader_t reader) const { avro_reader_free(reader); }
};
struct CloseWriter {
  void operator()(avro_writer_t writer) const { avro_writer_free(writer); }
};
using Reader = std::unique_ptr<avro_reader_t_, CloseReader>;
using Writer = std::unique_ptr<avro_writer_t_, CloseWriter>;

std::FILE* Opened(const std::string& path, const char* mode) {
  std::FILE* const file = std::fopen(path.c_str(), mode);
  Demand(file != nullptr, "cannot open the file of a series");
  return file;
}

class AvroSeries final : public SeriesFile {
 public:
  void Hold(const std::vector<double>& numbers) override {
    held_.emplace(type_);
    for (const double number : numbers) {
      avro_value_t element;
      Require(avro_value_append(held_->get(), &element, nullptr));
      Require(avro_value_set_double(&element, number));
    }
  }

  void Write(const std::string& path) override {
    const Writer writer(avro_writer_file(Opened(path, "wb")));
    Require(avro_value_write(writer.get(), held_->get()));
    avro_writer_flush(writer.get());
  }

  void Read(const std::string& path) override {
    const Reader reader(avro_reader_file(Opened(path, "rb")));
    read_.emplace(type_);
    Require(avro_value_read(reader.get(), read_->get()));
  }

  double NumberRead(std::size_t position) const override {
    avro_value_t element;
    Require(avro_value_get_by_index(read_->get(), position, &element, nullptr));
    return avro::Double(element);
  }

  void Drop() override { read_.reset(); }

 private:
  const avro::Type type_{kSchema};
  std::optional<avro::Value> held_;
  mutable std::optional<avro::Value> read_;
};

}  // namespace

std::unique_ptr<SeriesFile> MakeAvroSeries() { return std::make_unique<AvroSeries>(); }

}  // namespace bench
