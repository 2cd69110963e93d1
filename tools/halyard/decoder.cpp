#include "tools/halyard/decoder.h"

#include <fmt/format.h>

#include "tools/halyard/client.h"

namespace halyard::tool {
namespace {

// Reads the unit and answers the bytes that it used, 0 where its body could not be read.
ULONG ReadUnit(const Ptr<IUnit>& unit, std::span<const unsigned char> bytes) {
  ULONG used = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  // The interface does not say const, but a reader only reads.
  auto* data = const_cast<unsigned char*>(bytes.data());
  Check(unit->ReadFromBuffer(data, static_cast<ULONG>(bytes.size()), &used, &done), unit);
  return done == VARIANT_FALSE ? 0 : used;
}

std::string DefinitionName(const UnitHead& head) {
  return fmt::format("{} {}", TypeName(head.type), head.id);
}

}  // namespace

UnitDecoder::UnitDecoder() : unit_(CreateObject<IUnit>(kUnitClass)) {}

DefinitionPtr UnitDecoder::Find(const DefinitionKey& key) const {
  const auto known = known_.find(key);
  return known == known_.end() ? nullptr : known->second.view;
}

ULONG UnitDecoder::PacketSize() const { return Get<ULONG>(unit_, &IUnit::get_PacketSize); }

DecodedUnit UnitDecoder::DecodeInfo(std::span<const unsigned char> unit) {
  DecodedUnit result;
  result.head = HeadOf(unit);
  if (unit.size() < kInfoHeadBytes) {
    result.what = fmt::format("the unit has only {} bytes", unit.size());
  } else if (result.head.IsInfo()) {
    TakeInfo(unit, result);
  } else if (!result.head.IsData()) {
    result.verdict = Verdict::kUnknown;
    result.what = fmt::format("the unit is of kind {}, neither a definition nor a value", result.head.kind);
  } else if (unit.size() < kDataHeadBytes) {
    result.what = fmt::format("the unit has only {} bytes", unit.size());
  } else if (result.definition = Find({result.head.type, result.head.id}); !result.definition) {
    result.verdict = Verdict::kUnresolved;
    result.what = IsComposite(result.head.type)
                      ? fmt::format("the definition of the value, {}, does not stand before it",
                                    DefinitionName(result.head))
                      : fmt::format("a value of {} by itself cannot be read", TypeName(result.head.type));
  } else {
    result.verdict = Verdict::kWhole;
  }
  return result;
}

DecodedUnit UnitDecoder::Decode(std::span<const unsigned char> unit) {
  DecodedUnit result = DecodeInfo(unit);
  if (result.head.IsData() && result.verdict == Verdict::kWhole) TakeData(unit, result);
  return result;
}

void UnitDecoder::TakeInfo(std::span<const unsigned char> unit, DecodedUnit& result) {
  const DefinitionScan scan = ScanDefinition(unit.subspan(kInfoHeadBytes), result.head.type);
  if (scan.fault) {
    result.what = *scan.fault;
    result.offset = kInfoHeadBytes + scan.offset;
    return;
  }
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  try {
    Check(unit_->put_Session(session.get()), unit_);
    result.used = ReadUnit(unit_, unit);
    if (result.used == 0) {
      result.what = "the definition cannot be read";
      return;
    }
    Ptr<IValueDefBase> definition;
    Check(unit_->get_Info(definition.Out()), unit_);
    result.definition = ViewOfDefinition(definition);
  } catch (const Error& error) {
    result.what = "the definition cannot be read: " + Explanation(error);
    return;
  }
  result.verdict = Verdict::kWhole;
  if (result.head.id != 0)
    known_[{result.head.type, result.head.id}] = {result.definition, scan.cost, session};
}

void UnitDecoder::TakeData(std::span<const unsigned char> unit, DecodedUnit& result) {
  result.verdict = Verdict::kBroken;
  const Known& known = known_.at({result.head.type, result.head.id});
  const std::size_t size = unit.size() - kDataHeadBytes;
  if (const auto fault = CostFault(known.cost, size)) {
    result.what = "the value is not read: " + *fault;
    return;
  }
  try {
    Check(unit_->put_Session(known.session.get()), unit_);
    result.used = ReadUnit(unit_, unit);
    if (result.used == 0) {
      result.what = fmt::format("the value is cut short: its {} bytes are not enough for {}", size,
                                result.definition->Title());
      return;
    }
    Check(unit_->get_Value(result.value.Out()), unit_);
    result.verdict = Verdict::kWhole;
  } catch (const Error& error) {
    result.what = "the value cannot be read: " + Explanation(error);
  }
}

}  // namespace halyard::tool
