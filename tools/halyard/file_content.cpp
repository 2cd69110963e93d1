#include "tools/halyard/file_content.h"

#include "tools/halyard/progress.h"

namespace halyard::tool {
namespace {

void Count(const Record& record, RecordReader& reader, UnitDecoder& decoder, FileContent& content) {
  content.all.Count(record);
  content.kinds[record.head.kind].Count(record);
  content.types[record.head.type].Count(record);
  const DefinitionKey key(record.head.type, record.head.id);
  if (record.head.IsInfo()) {
    const auto unit = reader.Unit();
    if (!unit) return;
    const DecodedUnit decoded = decoder.DecodeInfo(*unit);
    if (decoded.verdict != Verdict::kWhole) {
      content.broken.Count(record);
      return;
    }
    ContentDefinition& definition = content.definitions[key];
    definition.view = decoded.definition;
    definition.announced.Count(record);
  } else if (record.head.IsData()) {
    const auto definition = content.definitions.find(key);
    if (definition != content.definitions.end()) {
      definition->second.values.Count(record);
    } else {
      content.unresolved.Count(record);
    }
  }
}

}  // namespace

FileContent ExamineFile(const std::string& file) {
  Input input(file);
  RecordReader reader(input);
  UnitDecoder decoder;
  Progress progress(input.name(), input.size());
  FileContent content;
  content.name = input.name();
  while (const auto record = reader.Next()) {
    Count(*record, reader, decoder, content);
    progress.At(record->offset);
  }
  content.fault = reader.fault();
  content.tail = reader.tail();
  content.size = input.size().value_or(input.position());
  content.is_being_written = input.IsBeingWritten();
  return content;
}

}  // namespace halyard::tool
