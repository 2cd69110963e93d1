// The actions of the workloads that write records to a file and read them back (W1, W2):
// preparation writes and reads once and compares the sums with the true ones.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "support/action.h"
#include "support/demand.h"
#include "support/scratch.h"

namespace bench {

// What a participant does. It writes `count` records one after another, every member set
// one by one through the participant's own interface; and it reads such a file and sums
// every member.
template <class Sums>
class RecordWork {
 public:
  virtual ~RecordWork() = default;
  virtual void Write(const std::string& path, std::int32_t count) = 0;
  virtual Sums Read(const std::string& path, std::int32_t count) = 0;
};

// A workload of records: its name, how many records, and the sums over them.
template <class Sums>
struct RecordWorkload {
  const char* name;
  std::int32_t count;
  Sums (*true_sums)(std::int32_t count);
  using Maker = std::unique_ptr<RecordWork<Sums>> (*)();

  // Adds the writing (as fast as the participant can, unless the task says otherwise).
  void AddWriter(Actions& actions, const char* task, const char* participant, Maker make) const {
    actions.push_back({name, task, participant, count, [*this, path = PathOf(task, participant), make] {
                         const auto work = Checked(path, make);
                         return Prepared{[path] { RemoveFile(path); },
                                         [work, path, count = count] { work->Write(path, count); }};
                       }});
  }

  // Adds the reading of a file that the participant wrote.
  void AddReader(Actions& actions, const char* participant, Maker make) const {
    actions.push_back(
        {name, kReadTask, participant, count, [*this, path = PathOf(kReadTask, participant), make] {
           const auto work = Checked(path, make);
           return Prepared{{}, [work, path, count = count] {
                             Demand(work->Read(path, count).id != 0, "nothing was read");
                           }};
         }});
  }

  static constexpr char kWriteTask[] = "write";
  static constexpr char kWriteEachTask[] = "write, one call a record";
  static constexpr char kReadTask[] = "read";

 private:
  std::string PathOf(const char* task, const char* participant) const {
    return ScratchFile(std::string(name) + " " + task + " " + participant);
  }

  std::shared_ptr<RecordWork<Sums>> Checked(const std::string& path, Maker make) const {
    std::shared_ptr<RecordWork<Sums>> work = make();
    work->Write(path, count);
    Demand(work->Read(path, count) == true_sums(count), "the sums of what was read are wrong");
    return work;
  }
};

}  // namespace bench
