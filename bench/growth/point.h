// Points of the growth curves: what one unit of work costs, in time and memory, when there
// are many or few units.
#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Point {
  std::string axis;  // what grows: "records"
  std::string task;  // what is done with them: "write"
  std::int64_t size;
  double nanoseconds;  // for one unit of work, the fastest of some runs
  double bytes;        // that one unit's result takes of the heap; 0 where nothing is kept
};

// Collects points; each is shown on standard error as soon as it is known.
class Curve {
 public:
  explicit Curve(std::string axis) : axis_(std::move(axis)) {}

  // Times the work, which does `units` units of it, some times over. What it returns is
  // what the work made: it is held while its memory is counted, and may be empty.
  void Add(const char* task, std::int64_t size, std::int64_t units, const std::function<std::any()>& work);

  const std::vector<Point>& points() const { return points_; }

 private:
  std::string axis_;
  std::vector<Point> points_;
};

// The axes.
std::vector<Point> GrowRecords();
std::vector<Point> GrowMembers();
std::vector<Point> GrowNesting();
std::vector<Point> GrowDefinitions();
std::vector<Point> GrowArrays();

}  // namespace bench
