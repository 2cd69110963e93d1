// Definitions in a session: one to sixty thousand. Work is counted per definition.
#include "growth/point.h"
#include "support/client.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

// A session tells definitions apart by 16 bits, of which 0 is none.
constexpr LONG kMostDefinitions = 60000;

SHORT IdOf(LONG position) { return static_cast<SHORT>(position + 1); }

std::vector<Ptr<IStructureDef>> Define(LONG count) {
  std::vector<Ptr<IStructureDef>> definitions;
  for (LONG i = 0; i < count; ++i) definitions.push_back(NewStructure(IdOf(i)));
  return definitions;
}

Ptr<IOrmSession> Registered(const std::vector<Ptr<IStructureDef>>& definitions) {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  for (const auto& definition : definitions) {
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(session->AddType(definition.get(), &done));
    DemandTrue(done, "a definition is not accepted");
  }
  return session;
}

void LookUp(const Ptr<IOrmSession>& session, LONG position) {
  Ptr<IValueDefBase> found;
  Check(session->GetTypeFromId(Number(SHORT{kStructure}), IdOf(position), found.Out()));
  Demand(static_cast<bool>(found), "a definition is not found");
}

}  // namespace

std::vector<Point> GrowDefinitions() {
  // Look-ups are spread over the whole session; so many are enough.
  constexpr LONG kLookUps = 1000;
  Curve curve("definitions");
  for (const LONG count : {1, 10, 100, 1000, 10000, kMostDefinitions}) {
    const auto definitions = Define(count);
    const auto session = Registered(definitions);
    curve.Add("register", count, count, [&] { return std::any(Registered(definitions)); });
    curve.Add("find by id", count, kLookUps, [&] {
      for (LONG i = 0; i < kLookUps; ++i) LookUp(session, static_cast<LONG>(LONGLONG{i} * count / kLookUps));
      return std::any();
    });
  }
  return curve.points();
}

}  // namespace bench
