// ArrayFile: what a participant of W6 does. It reads a file that holds one array of a
// million soundings and then takes a column out of what it read.
#pragma once

#include <memory>
#include <string>

#include "support/action.h"

namespace bench {

class ArrayFile {
 public:
  virtual ~ArrayFile() = default;

  // Makes the file with `count` soundings. Called once, before the others.
  virtual void Make(const std::string& path, std::int32_t count) = 0;

  // Reads the file; the array can be used until Drop.
  virtual void Read(const std::string& path) = 0;

  // Moves the depths of the array that was read.
  virtual void DepthToReals(double* numbers) = 0;

  // Gives back what Read holds, if anything.
  virtual void Drop() = 0;
};

using ArrayFileMaker = std::unique_ptr<ArrayFile> (*)();

// Adds the reading of W6 and the transfer after it.
void AddArrays(Actions& actions, const char* participant, ArrayFileMaker make);

// Adds the reading alone.
void AddArrayReader(Actions& actions, const char* participant, ArrayFileMaker make);

}  // namespace bench
