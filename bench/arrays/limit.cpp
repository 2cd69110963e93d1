#include "arrays/limit.h"

#include <cstring>

#include "records/sounding.h"
#include "support/demand.h"
#include "support/descriptor.h"

namespace bench {
namespace {

class CopiedArray : public ArrayFile {
 public:
  void Make(const std::string& path, std::int32_t count) override {
    count_ = static_cast<std::size_t>(count);
    block_ = std::make_unique<Sounding[]>(count_);
    for (std::int32_t i = 0; i < count; ++i) block_[static_cast<std::size_t>(i)] = SoundingAt(i);
    Descriptor::ForWriting(path).Write(block_.get(), Size());
  }

  void Read(const std::string&) override {
    copy_ = std::make_unique_for_overwrite<Sounding[]>(count_);
    std::memcpy(copy_.get(), block_.get(), Size());
  }

  void DepthToReals(double* numbers) override {
    for (std::size_t i = 0; i < count_; ++i) numbers[i] = copy_[i].depth;
  }

  void Drop() override { copy_.reset(); }

 protected:
  std::size_t Size() const { return count_ * sizeof(Sounding); }
  Sounding* block() const { return block_.get(); }

 private:
  std::size_t count_ = 0;
  std::unique_ptr<Sounding[]> block_;
  std::unique_ptr<Sounding[]> copy_;
};

class ReadArray final : public CopiedArray {
 public:
  void Read(const std::string& path) override {
    Demand(Descriptor::ForReading(path).Read(block(), Size()) == Size(), "the file is too short");
    CopiedArray::Read(path);
  }
};

}  // namespace

std::unique_ptr<ArrayFile> MakeCopiedArray() { return std::make_unique<CopiedArray>(); }

std::unique_ptr<ArrayFile> MakeReadArray() { return std::make_unique<ReadArray>(); }

}  // namespace bench
