#include "tools/halyard/file_content.h"

#include "tools/halyard/progress.h"

namespace halyard::tool {
namespace {

void CountDefinition(const Record& record, std::span<const unsigned char> unit, UnitDecoder& decoder,
                     FileContent& content) {
  const DecodedUnit decoded = decoder.DecodeInfo(unit);
  if (decoded.verdict != Verdict::kWhole) {
    content.broken.Count(record);
    return;
  }
  ContentDefinition& definition = content.definitions[{record.head.type, record.head.id}];
  definition.view = decoded.definition;
  definition.announced.Count(record);
}

void CountValue(const Record& record, FileContent& content) {
  const auto definition = content.definitions.find({record.head.type, record.head.id});
  if (definition != content.definitions.end()) {
    definition->second.values.Count(record);
  } else {
    content.unresolved.Count(record);
  }
}

// Counts a record; false where the file ends inside it.
bool Count(const Record& record, RecordReader& reader, UnitDecoder& decoder, FileContent& content) {
  const auto unit = record.head.IsInfo() ? reader.Unit() : std::nullopt;
  if (!unit && !reader.Pass()) return false;
  content.all.Count(record);
  content.kinds[record.head.kind].Count(record);
  content.types[record.head.type].Count(record);
  if (unit) CountDefinition(record, *unit, decoder, content);
  if (record.head.IsData()) CountValue(record, content);
  return true;
}

}  // namespace

FileContent ExamineFile(const std::string& file) {
  Input input(file);
  RecordReader reader(input);
  UnitDecoder decoder;
  Progress progress(input.name(), input.size());
  FileContent content;
  content.name = input.name();
  for (auto record = reader.Next(); record && Count(*record, reader, decoder, content);
       record = reader.Next()) {
    progress.At(record->offset);
  }
  content.fault = reader.fault();
  content.tail = reader.tail();
  content.size = input.size().value_or(input.position());
  content.is_being_written = input.IsBeingWritten();
  return content;
}

}  // namespace halyard::tool
