// A verb's arguments: what they are called, what they mean, and where their values go.
//
// The only place besides the program itself and its reference pages that knows the
// library behind: verbs see this class alone.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace halyard::tool {

// How an argument is called and what help says about it.
struct Wanted {
  std::string names;  // "-o,--output", or "FILE" for an argument without a name
  std::string value;  // what stands behind the names in help: "OUT"
  std::string about;  // a sentence without its full stop
};

class Command {
 public:
  // A command line and what it does.
  using Examples = std::vector<std::pair<std::string, std::string>>;

  // Adds a command to the program; its help ends with the examples. Targets given to the
  // functions below are not owned and must outlive the parsing.
  Command(CLI::App& program, const std::string& name, const std::string& about, const Examples& examples);

  // Further arguments of the program itself, for all verbs.
  explicit Command(CLI::App& program) : app_(program) {}

  // Arguments without a name that must be there: one, or one and more.
  void Need(const Wanted& wanted, std::string& target);
  void Need(const Wanted& wanted, std::vector<std::string>& targets);

  // An option that must be there.
  void NeedOption(const Wanted& wanted, std::string& target);

  // An option that may be there, once or, for several texts, more often. A number is `most`
  // or less.
  void Option(const Wanted& wanted, std::string& target);
  void Option(const Wanted& wanted, std::vector<std::string>& targets);
  void Option(const Wanted& wanted, std::uint64_t& target,
              std::uint64_t most = std::numeric_limits<std::uint64_t>::max());

  // An option whose text somebody else takes: `take` answers what is wrong with it, or an
  // empty text.
  using Take = std::function<std::string(const std::string& text)>;
  void Option(const Wanted& wanted, Take take);

  void Flag(const Wanted& wanted, bool& target);

  // Options, by names that were given before, that are refused together, since one of them
  // would change nothing; and one that needs another.
  void Exclude(const std::string& name, const std::vector<std::string>& others);
  void Require(const std::string& name, const std::string& other);

  // Whether this is the command that was given.
  [[nodiscard]] bool IsChosen() const;

 private:
  std::reference_wrapper<CLI::App> app_;
};

}  // namespace halyard::tool
