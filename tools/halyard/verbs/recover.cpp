// recover: saves the whole records of a damaged file and says what was lost and where.
//
// While the framing holds, records are taken one after another. Where it breaks, the next
// place is sought at which two records follow each other, or one ends with the file.
#include <fmt/format.h>

#include <array>
#include <memory>

#include "tools/halyard/counts.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/little_endian.h"
#include "tools/halyard/output.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/record_writer.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string file;
  std::string output;
};

// How often the search for the next record moves on in memory, in bytes.
constexpr std::uint64_t kSeekStep = std::uint64_t{1} << 17;

// The front of a record at some place of a file.
struct Front {
  std::uint64_t end = 0;  // of the record
  bool is_plausible = false;
};

class Recovery {
 public:
  Recovery(const Options& options, Input& input)
      : input_(input), size_(input.size().value_or(0)), output_(options.output), writer_(output_) {}

  ExitCode Run();

 private:
  std::uint64_t Start();
  Front FrontAt(std::uint64_t offset);
  bool ContinuesAt(std::uint64_t offset) { return offset == size_ || FrontAt(offset).is_plausible; }
  bool Chains(std::uint64_t offset);
  std::uint64_t Seek(std::uint64_t offset, Progress& progress);
  std::uint64_t TakeRecord(std::uint64_t offset, std::uint64_t end);
  void Lose(std::uint64_t first, std::uint64_t end, const std::string& why);
  ExitCode Close();

  Input& input_;
  std::uint64_t size_;
  Output output_;
  RecordWriter writer_;
  UnitDecoder decoder_;
  std::vector<unsigned char> unit_;
  bool has_header_ = true;
  std::uint64_t lost_bytes_ = 0;
  std::uint64_t unreadable_ = 0;
};

// Judges the header and answers where the first record is sought.
std::uint64_t Recovery::Start() {
  std::array<unsigned char, kFileHeaderBytes> header{};
  const std::size_t count = input_.Read(header);
  const auto fault = HeaderFault(std::span(header).first(count));
  if (!fault) return kFileHeaderBytes;
  Remark(fmt::format("{}: offset 0: the header is damaged: {}", input_.name(), *fault));
  has_header_ = false;
  // A header that is damaged but there is passed over; else records may begin anywhere.
  if (Chains(kFileHeaderBytes)) {
    lost_bytes_ += kFileHeaderBytes;
    return kFileHeaderBytes;
  }
  return 0;
}

Front Recovery::FrontAt(std::uint64_t offset) {
  std::array<unsigned char, kLengthBytes + kDataHeadBytes> bytes{};
  if (offset + kLengthBytes + kInfoHeadBytes > size_) return {};
  const std::size_t count = input_.Peek(offset, bytes);
  const auto length = LittleEndian<std::uint32_t>(bytes);
  const Front front{offset + kLengthBytes + length, false};
  if (front.end > size_) return front;
  const auto unit = std::span(bytes).first(count).subspan(kLengthBytes);
  return {front.end, IsPlausible(length, HeadOf(unit))};
}

// Whether a record stands there and is followed by another or by the end.
bool Recovery::Chains(std::uint64_t offset) {
  const Front front = FrontAt(offset);
  return front.is_plausible && ContinuesAt(front.end);
}

// The next place from `offset` on where records follow each other; the end where none does.
std::uint64_t Recovery::Seek(std::uint64_t offset, Progress& progress) {
  input_.Prefetch(offset);
  for (; offset < size_ && !Chains(offset); ++offset) {
    progress.At(offset);
    // The buffer goes along, so that most places are looked at in memory.
    if (offset % kSeekStep == 0) input_.Prefetch(offset);
  }
  return offset;
}

// Reads the record and saves it where it is whole; answers where to go on.
std::uint64_t Recovery::TakeRecord(std::uint64_t offset, std::uint64_t end) {
  unit_.resize(static_cast<std::size_t>(end - offset - kLengthBytes));
  input_.Seek(offset + kLengthBytes);
  if (input_.Read(unit_) != unit_.size()) {
    Lose(offset, end, "the file became shorter meanwhile");
    return size_;
  }
  const DecodedUnit decoded = decoder_.Decode(unit_);
  if (decoded.verdict == Verdict::kBroken) {
    Lose(offset, end, decoded.what);
    return end;
  }
  if (decoded.verdict != Verdict::kWhole) {
    ++unreadable_;
    Remark(fmt::format("{}: offset {}: saved as it is, though it cannot be read: {}", input_.name(),
                       Grouped(offset), decoded.what));
  }
  writer_.Write(unit_);
  return end;
}

void Recovery::Lose(std::uint64_t first, std::uint64_t end, const std::string& why) {
  lost_bytes_ += end - first;
  Remark(fmt::format("{}: offset {}: {} lost: {}", input_.name(), Grouped(first),
                     Counted(end - first, "byte"), why));
}

ExitCode Recovery::Run() {
  Progress progress(input_.name(), size_);
  std::uint64_t offset = Start();
  while (offset < size_) {
    progress.At(offset);
    const Front front = FrontAt(offset);
    // The last record may be whole without anything behind it to tell.
    if (front.is_plausible && ContinuesAt(front.end)) {
      offset = TakeRecord(offset, front.end);
      continue;
    }
    const std::uint64_t next = Seek(offset + 1, progress);
    if (front.is_plausible && front.end <= next) {
      offset = TakeRecord(offset, front.end);
      continue;
    }
    Lose(offset, next, next == size_ ? "no whole record follows" : "these are no record");
    if (next == size_ && input_.IsBeingWritten())
      Remark(input_.name() + ": the file is still being written, try again when that is done");
    offset = next;
  }
  return Close();
}

ExitCode Recovery::Close() {
  if (writer_.records() == 0 && (lost_bytes_ != 0 || !has_header_)) {
    throw Failure(ExitCode::kFaults, input_.name() + ": nothing can be saved: it holds no whole record; " +
                                         output_.name() + " was not written");
  }
  input_.Close();
  output_.Finish();
  const bool is_sound = lost_bytes_ == 0 && unreadable_ == 0;
  Remark(fmt::format("{}: {} saved in {}, {} lost", input_.name(), Counted(writer_.records(), "record"),
                     output_.name(), lost_bytes_ == 0 ? "nothing" : Counted(lost_bytes_, "byte")));
  return is_sound ? ExitCode::kFine : ExitCode::kFaults;
}

ExitCode Run(const Options& options) {
  RequireNoTerminal(options.output);
  Input input(options.file);
  input.MakeSeekable();
  return Recovery(options, input).Run();
}

}  // namespace

Verb AddRecover(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(
      program, "recover", "Save the whole records of a damaged file and say what was lost",
      {{"halyard recover cut.orm -o whole.orm", "the exit code is 1 where anything was lost"},
       {"dd if=/dev/sdb1 | halyard recover - -o found.orm", "records in the midst of anything else"}});
  command.Need({"FILE", "", "The damaged file, or - for standard input"}, options->file);
  command.NeedOption({"-o,--output", "OUT", "The new file, or - for standard output"}, options->output);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
