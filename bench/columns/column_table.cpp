#include "columns/column_table.h"

#include <vector>

#include "support/demand.h"

namespace bench {
namespace {

constexpr std::int32_t kNumbersInARun = 1000000;

// A table and the block that its column goes to or comes from.
template <class T>
struct Transfer {
  std::shared_ptr<ColumnTable> table;
  std::vector<T> numbers;
};

template <class T>
std::shared_ptr<Transfer<T>> NewTransfer(ColumnTableMaker make, std::int32_t count) {
  auto transfer =
      std::make_shared<Transfer<T>>(Transfer<T>{make(), std::vector<T>(static_cast<std::size_t>(count))});
  transfer->table->Fill(count);
  return transfer;
}

// A task that takes a member out: how, and the number that must come for each sounding.
template <class T>
struct OutTask {
  const char* name;
  void (ColumnTable::*move)(T*);
  T (*expected)(const Sounding&);
};

template <class T>
void AddOut(Actions& actions, const OutTask<T>& task, const char* participant, ColumnTableMaker make,
            std::int32_t count) {
  const std::string name = std::string(task.name) + " of " + std::to_string(count);
  actions.push_back({"W3", name, participant, kNumbersInARun, [=] {
                       const auto transfer = NewTransfer<T>(make, count);
                       ColumnTable& table = *transfer->table;
                       (table.*task.move)(transfer->numbers.data());
                       for (std::int32_t i = 0; i < count; ++i) {
                         Demand(
                             transfer->numbers[static_cast<std::size_t>(i)] == task.expected(SoundingAt(i)),
                             "a number of the column is wrong");
                       }
                       return Prepared{{}, [transfer, task, count] {
                                         for (std::int32_t done = 0; done < kNumbersInARun; done += count) {
                                           ((*transfer->table).*task.move)(transfer->numbers.data());
                                         }
                                       }};
                     }});
}

// The number that is stored for a sounding; an eighth, so that a single holds it exactly.
double NewDepth(std::size_t position) { return static_cast<double>(position % 4096) * 0.125; }

void AddIn(Actions& actions, const char* participant, ColumnTableMaker make, std::int32_t count) {
  actions.push_back({"W3", "Real to depth of " + std::to_string(count), participant, kNumbersInARun, [=] {
                       const auto transfer = NewTransfer<double>(make, count);
                       auto& numbers = transfer->numbers;
                       for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = NewDepth(i);
                       transfer->table->RealsToDepth(numbers.data());
                       std::vector<double> back(numbers.size());
                       transfer->table->DepthToReals(back.data());
                       Demand(back == numbers, "the column is not what was stored");
                       return Prepared{{}, [transfer, count] {
                                         for (std::int32_t done = 0; done < kNumbersInARun; done += count) {
                                           transfer->table->RealsToDepth(transfer->numbers.data());
                                         }
                                       }};
                     }});
}

constexpr OutTask<double> kDepthTask = {"depth to Real", &ColumnTable::DepthToReals,
                                        [](const Sounding& one) { return static_cast<double>(one.depth); }};
constexpr OutTask<double> kXTask = {"x to Real", &ColumnTable::XToReals,
                                    [](const Sounding& one) { return one.x; }};
constexpr OutTask<std::int32_t> kFlagsTask = {"flags to Long", &ColumnTable::FlagsToLongs,
                                              [](const Sounding& one) { return std::int32_t{one.flags}; }};

}  // namespace

void AddColumns(Actions& actions, const char* participant, ColumnTableMaker make) {
  for (const std::int32_t count : {1000000, 1000}) {
    AddOut(actions, kDepthTask, participant, make, count);
    AddOut(actions, kXTask, participant, make, count);
    AddOut(actions, kFlagsTask, participant, make, count);
    AddIn(actions, participant, make, count);
  }
}

}  // namespace bench
