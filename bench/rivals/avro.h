// Avro C, as a program uses it that learns its schema at run time: schemas are JSON
// texts, values are generic, files are container files without compression.
#pragma once

#include <avro.h>

#include <string>

#include "support/demand.h"

namespace bench::avro {

// Throws with Avro's own words where a call failed.
inline void Require(int status) {
  if (status != 0) [[unlikely]]
    Fail(std::string("Avro: ") + avro_strerror());
}

// A schema and the class of its generic values.
class Type {
 public:
  explicit Type(const std::string& json);
  ~Type();
  Type(const Type&) = delete;
  Type& operator=(const Type&) = delete;

  avro_schema_t schema() const { return schema_; }
  avro_value_iface_t* iface() const { return iface_; }

 private:
  avro_schema_t schema_ = nullptr;
  avro_value_iface_t* iface_ = nullptr;
};

// A generic value of a type, and access to its fields.
class Value {
 public:
  explicit Value(const Type& type) { Require(avro_generic_value_new(type.iface(), &value_)); }
  ~Value() { avro_value_decref(&value_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;

  avro_value_t* get() { return &value_; }

  // The field at a position; it belongs to this value.
  avro_value_t Field(std::size_t position) {
    avro_value_t field;
    Require(avro_value_get_by_index(&value_, position, &field, nullptr));
    return field;
  }

 private:
  avro_value_t value_;
};

// A container file that is written.
class FileWriter {
 public:
  FileWriter(const std::string& path, const Type& type);
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  void Append(Value& value) { Require(avro_file_writer_append_value(writer_, value.get())); }

 private:
  avro_file_writer_t writer_ = nullptr;
};

// A container file that is read.
class FileReader {
 public:
  explicit FileReader(const std::string& path);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  void Read(Value& value) { Require(avro_file_reader_read_value(reader_, value.get())); }

 private:
  avro_file_reader_t reader_ = nullptr;
};

// The content of a number.
inline std::int32_t Int(const avro_value_t& value) {
  std::int32_t result = 0;
  Require(avro_value_get_int(&value, &result));
  return result;
}
inline double Double(const avro_value_t& value) {
  double result = 0;
  Require(avro_value_get_double(&value, &result));
  return result;
}
inline float Float(const avro_value_t& value) {
  float result = 0;
  Require(avro_value_get_float(&value, &result));
  return result;
}

}  // namespace bench::avro
