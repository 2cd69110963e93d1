// SeriesFile: what a participant of W4 does. It holds a long series of numbers, writes
// it to a file as one piece, and reads it back into memory of its own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/action.h"

namespace bench {

class SeriesFile {
 public:
  virtual ~SeriesFile() = default;

  // Holds the series from now on, in the participant's own form.
  virtual void Hold(const std::vector<double>& numbers) = 0;

  // Writes the series that is held.
  virtual void Write(const std::string& path) = 0;

  // Reads a file that Write made; the numbers can be looked at until Drop.
  virtual void Read(const std::string& path) = 0;
  virtual double NumberRead(std::size_t position) const = 0;

  // Gives back what Read holds, if anything.
  virtual void Drop() = 0;
};

using SeriesFileMaker = std::unique_ptr<SeriesFile> (*)();

// Adds the writing and the reading of W4.
void AddSeries(Actions& actions, const char* participant, SeriesFileMaker make);

}  // namespace bench
