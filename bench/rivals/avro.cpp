#include "rivals/avro.h"

#include "support/buffered_file.h"

namespace bench::avro {

Type::Type(const std::string& json) {
  Require(avro_schema_from_json_length(json.data(), json.size(), &schema_));
  iface_ = avro_generic_class_from_schema(schema_);
  Demand(iface_ != nullptr, "Avro makes no class of the schema");
}

Type::~Type() {
  avro_value_iface_decref(iface_);
  avro_schema_decref(schema_);
}

FileWriter::FileWriter(const std::string& path, const Type& type) {
  Require(avro_file_writer_create_with_codec(path.c_str(), type.schema(), &writer_, "null", kFileBufferSize));
}

FileWriter::~FileWriter() { avro_file_writer_close(writer_); }

FileReader::FileReader(const std::string& path) { Require(avro_file_reader(path.c_str(), &reader_)); }

FileReader::~FileReader() { avro_file_reader_close(reader_); }

}  // namespace bench::avro
