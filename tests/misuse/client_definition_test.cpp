// Definitions and values that clients write: good ones work like the library's own, bad
// ones do no damage.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "tests/misuse/client_objects.h"
#include "tests/misuse/client_scenario.h"
#include "tests/support/encoding.h"
#include "tests/support/live_objects.h"
#include "tests/support/memory.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

// What no call answers that meets a failure as it should: the code of an exception that
// nobody knew.
const std::string kUnknownFailure = StatusText(E_FAIL);

// Files get what a definition announces, so a test lets it announce no more.
constexpr ULONG kLargestRecord = 1 << 20;

using Inner = Ptr<IValueDefBase> (*)();

Ptr<IValueDefBase> LongDefinition() { return SimpleDefinition(kLong); }
Ptr<IValueDefBase> TextDefinition() { return SimpleDefinition(kString); }
Ptr<IValueDefBase> ColourDefinition() { return EnumerationDefinition(kShort, {{OLESTR("Red"), 1}}, 3); }
Ptr<IValueDefBase> PointDefinition() {
  return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kString}}, 4, OLESTR("Point"));
}
Ptr<IValueDefBase> SamplesDefinition() { return SimpleArrayDefinition(kShort, 0, 7); }

constexpr int kMostUnits = 1000;  // in the file of a play

// How many units a reader of the file comes to who knows nothing of clients; -1 where it
// cannot be opened. A unit may hold what nobody can read, if a client wrote that.
int UnitsIn(const TempFile& place) {
  const auto file = NewFile();
  if (!OpenForRead(file, place.name())) return -1;
  for (int units = 0; units < kMostUnits; ++units) {
    Ptr<IUnit> unit;
    if (SUCCEEDED(file->ReadUnit(unit.Out())) && !unit) return units;
  }
  return kMostUnits;
}

// What was reported as written to the file of a play is there, and nothing else.
void ExpectWritten(const Stage& stage) {
  if (!stage.written.empty()) {
    EXPECT_EQ(UnitsIn(stage.place), static_cast<int>(stage.written.size()));
  }
}

// What a play tells with a client's definition that does the mischief.
std::vector<std::string> PlayWith(Stage& stage, Inner inner, const std::shared_ptr<Mischief>& mischief) {
  const auto client = Ptr<ClientDefinition>(new ClientDefinition(inner(), mischief));
  stage.definition = client;
  auto lines = Play(stage);
  ExpectWritten(stage);
  return lines;
}

std::vector<std::string> PlayWith(Inner inner, const Mischief& mischief) {
  Stage stage;
  return PlayWith(stage, inner, std::make_shared<Mischief>(mischief));
}

void ExpectClean(const std::vector<std::string>& lines, const std::string& where) {
  for (const std::string& line : lines)
    EXPECT_EQ(line.find(kUnknownFailure), std::string::npos) << where << ": " << line;
  static_cast<void>(SetErrorInfo(0, nullptr));
  EXPECT_TRUE(NoObjectsAreAlive()) << where << " left objects behind";
}

// The first line that is not as expected; empty for none.
std::string FirstOther(const std::vector<std::string>& expected, const std::vector<std::string>& lines) {
  const auto [wanted, line] = std::mismatch(expected.begin(), expected.end(), lines.begin(), lines.end());
  if (line != lines.end()) return *line;
  return wanted == expected.end() ? std::string() : "nothing for " + *wanted;
}

// What a structure answers that could not take its definition: it has no members.
constexpr const char* kNoMember = "record.Item 0x00000000 NULL";

// Whether a call that met E_ABORT says so, as none can do without what failed but that
// of a structure. For a conversion, an object whose value fails has none.
bool TellsOfFailure(const std::string& line) {
  const auto tells = [&](HRESULT code) { return line.find(StatusText(code)) != std::string::npos; };
  return line.empty() || tells(E_ABORT) || tells(DISP_E_TYPEMISMATCH) || line == kNoMember;
}

class ClientDefinitions : public testing::TestWithParam<Inner> {
 protected:
  void TearDown() override { static_cast<void>(SetErrorInfo(0, nullptr)); }
  const MessageRecorder messages_;
};

TEST_P(ClientDefinitions, WorkLikeTheOneThatTheyStandFor) {
  Stage stage;
  stage.definition = GetParam()();
  const auto own = Play(stage);
  EXPECT_EQ(PlayWith(GetParam(), {}), own);
}

TEST_P(ClientDefinitions, MayFailAtAnyCall) {
  const auto whole = PlayWith(GetParam(), {});
  for (int call = 1;; ++call) {
    const auto mischief = std::make_shared<Mischief>();
    mischief->strikes_at = call;
    mischief->failure = E_ABORT;
    std::vector<std::string> lines;
    {
      Stage stage;
      lines = PlayWith(stage, GetParam(), mischief);
    }
    ExpectClean(lines, "failing at call " + std::to_string(call));
    if (mischief->calls < call) {
      EXPECT_GT(call, 20);
      break;
    }
    const std::string other = FirstOther(whole, lines);
    EXPECT_TRUE(TellsOfFailure(other)) << "failing at call " << call << ": " << other;
  }
}

TEST_P(ClientDefinitions, MayLieAboutEverySize) {
  const MemoryLimit limit;
  for (const ULONG size :
       {0u, 1u, 3u, 5u, 255u, 65535u, 65536u, 65540u, 0x7FFFFFF0u, 0x80000000u, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
    const auto all = std::make_shared<Mischief>();
    all->size = size;
    const auto counts = std::make_shared<Mischief>();
    counts->counts = size;
    for (const auto& mischief : {all, counts}) {
      std::vector<std::string> lines;
      {
        Stage stage;
        stage.has_room = size < kLargestRecord;
        lines = PlayWith(stage, GetParam(), mischief);
      }
      ExpectClean(lines, "lying " + std::to_string(size));
    }
  }
  EXPECT_TRUE(limit.Kept());
}

TEST_P(ClientDefinitions, MayMakeNothing) {
  Mischief mischief;
  mischief.makes_nothing = true;
  ExpectClean(PlayWith(GetParam(), mischief), "making nothing");
}

TEST_P(ClientDefinitions, MayChangeTheirId) {
  Mischief mischief;
  mischief.changes_id = true;
  ExpectClean(PlayWith(GetParam(), mischief), "changing ids");
}

// What a call back into the caller does.
using Deed = void (*)(Stage&);

void TakeApart(Stage& stage) {
  static_cast<void>(stage.structure->RemoveAll());
  static_cast<void>(stage.array->put_ValueType(nullptr));
  if (stage.record) static_cast<void>(stage.record->put_Item(I4(1).get(), Variant::Null().get()));
  if (stage.elements) static_cast<void>(stage.elements->RemoveAll());
  static_cast<void>(stage.unit->put_Info(nullptr));
  static_cast<void>(stage.unit->put_Value(nullptr));
}

// Lets go of everything, the object itself included.
void LetGo(Stage& stage) {
  TakeApart(stage);
  stage.record.Reset();
  stage.elements.Reset();
  stage.session = CreateObject<IOrmSession>(kOrmSessionClass);
  static_cast<void>(stage.unit->put_Session(stage.session.get()));
  static_cast<void>(stage.file->put_Session(stage.session.get()));
  stage.definition = SimpleDefinition(kLong);
}

// More than any table has room for where it lies.
constexpr int kMany = 9;

void AddMore(Stage& stage) {
  VARIANT_BOOL added = VARIANT_FALSE;
  for (int i = 0; i < kMany; ++i)
    static_cast<void>(stage.structure->AddSimpleMember(Bstr(OLESTR("more")).get(), kLong, &added));
  if (stage.elements) {
    for (int i = 0; i < kMany; ++i) static_cast<void>(stage.elements->Add(I4(i).get()));
  }
  for (SHORT id = 100; id < 100 + kMany; ++id)
    static_cast<void>(stage.session->AddType(StructureDefinition({{OLESTR("x"), kLong}}, id).get(), &added));
}

void AskTheCaller(Stage& stage) {
  ULONG size = 0;
  static_cast<void>(stage.structure->CalculateDataSize(&size));
  static_cast<void>(stage.array->CalculateDataSize(&size));
  static_cast<void>(stage.unit->get_PacketSize(&size));
  if (stage.record) static_cast<void>(WriteTo(stage.record, 64));
  if (stage.elements) static_cast<void>(ReadFrom(stage.elements, "00 00 00 00"));
}

constexpr const char* kOtherRecord = "another one's";

Ptr<IValueDefBase> OtherDefinition() {
  return StructureDefinition({{OLESTR("Other"), kDate}, {OLESTR("Text"), kString}}, 99, OLESTR("Other"));
}

void WriteToTheFile(Stage& stage) {
  VARIANT_BOOL done = VARIANT_FALSE;
  static_cast<void>(stage.WriteInfo(kOtherRecord, OtherDefinition().get(), &done));
}

void UseTheFile(Stage& stage) {
  Ptr<IUnit> unit;
  WriteToTheFile(stage);
  static_cast<void>(stage.file->ReadUnit(unit.Out()));
  static_cast<void>(stage.file->Close());
}

TEST_P(ClientDefinitions, MayCallBackAtAnyCall) {
  for (const Deed deed : {&TakeApart, &LetGo, &AddMore, &AskTheCaller, &WriteToTheFile, &UseTheFile}) {
    for (int call = 1;; ++call) {
      const auto mischief = std::make_shared<Mischief>();
      mischief->strikes_at = call;
      std::vector<std::string> lines;
      {
        Stage stage;
        mischief->act = [&] { deed(stage); };
        lines = PlayWith(stage, GetParam(), mischief);
        mischief->act = nullptr;
        TakeApart(stage);
      }
      ExpectClean(lines, "calling back at call " + std::to_string(call));
      if (mischief->calls < call) break;
    }
  }
}

// The records that may lie in the file of a play, by name.
std::map<std::string, Bytes> AllRecords(Inner inner) {
  std::map<std::string, Bytes> all;
  Stage stage;
  static_cast<void>(PlayWith(stage, inner, std::make_shared<Mischief>()));
  const auto records = RecordsOf(stage.place.Contents());
  EXPECT_EQ(records.size(), std::size(kRecordNames));
  for (std::size_t i = 0; i < std::min(records.size(), std::size(kRecordNames)); ++i)
    all[kRecordNames[i]] = records[i];
  const TempFile place;
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, place.name()));
  EXPECT_TRUE(WriteInfo(file, OtherDefinition().get()));
  EXPECT_EQ(file->Close(), S_OK);
  all[kOtherRecord] = RecordsOf(place.Contents()).at(0);
  return all;
}

// A write within a write, of the same file: neither takes anything from the other.
TEST_P(ClientDefinitions, MayWriteToTheFileThatWritesThem) {
  const auto all = AllRecords(GetParam());
  std::size_t most = 0;
  for (int call = 1;; ++call) {
    const auto mischief = std::make_shared<Mischief>();
    mischief->strikes_at = call;
    Stage stage;
    mischief->act = [&] { WriteToTheFile(stage); };
    static_cast<void>(PlayWith(stage, GetParam(), mischief));
    std::vector<std::string> there;
    for (const Bytes& record : RecordsOf(stage.place.Contents())) {
      const auto is_it = [&](const auto& named) { return named.second == record; };
      const auto found = std::find_if(all.begin(), all.end(), is_it);
      there.push_back(found != all.end() ? found->first : ToHex(record));
    }
    EXPECT_EQ(there, stage.written) << "writing at call " << call;
    most = std::max(most, there.size());
    if (mischief->calls < call) break;
  }
  EXPECT_GT(most, std::size(kRecordNames)) << "nothing was written while something was written";
}

INSTANTIATE_TEST_SUITE_P(Kinds, ClientDefinitions,
                         testing::Values(&LongDefinition, &TextDefinition, &ColourDefinition,
                                         &PointDefinition, &SamplesDefinition));

}  // namespace
}  // namespace halyard::test
