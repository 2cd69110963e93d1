#include "rivals/hdf5.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "records/rivals.h"

namespace bench {
namespace {

// A member of the compound type: what a program has that learns the type at run time.
struct Member {
  const char* name;
  std::size_t offset;
  hid_t type;
};

class Hdf5Records final : public RecordFile {
 public:
  Hdf5Records() : type_(hdf5::NewCompound(sizeof(Sounding)), H5Tclose) {
    for (const Member& member : members_) hdf5::AddMember(type_, member.name, member.offset, member.type);
  }

  void Write(const std::string& path, std::int32_t count) override {
    hdf5::TableFile file(path, type_);
    std::vector<char> records(hdf5::kBatch * sizeof(Sounding));
    for (std::int32_t i = 0; i < count; i += Batch(count, i)) {
      for (std::int32_t j = 0; j < Batch(count, i); ++j) {
        Fill(records.data() + static_cast<std::size_t>(j) * sizeof(Sounding), SoundingAt(i + j));
      }
      file.Append(static_cast<std::size_t>(Batch(count, i)), records.data());
    }
  }

  SoundingSums Read(const std::string& path, std::int32_t count) override {
    hdf5::TableFile file(path);
    std::vector<char> records(hdf5::kBatch * sizeof(Sounding));
    SoundingSums sums;
    for (std::int32_t i = 0; i < count; i += Batch(count, i)) {
      file.ReadNext(static_cast<std::size_t>(Batch(count, i)), records.data());
      for (std::int32_t j = 0; j < Batch(count, i); ++j) {
        Add(records.data() + static_cast<std::size_t>(j) * sizeof(Sounding), sums);
      }
    }
    return sums;
  }

 private:
  static std::int32_t Batch(std::int32_t count, std::int32_t done) {
    return std::min(count - done, static_cast<std::int32_t>(hdf5::kBatch));
  }

  template <class T>
  void Set(char* record, std::size_t member, T value) const {
    std::memcpy(record + members_[member].offset, &value, sizeof value);
  }
  template <class T>
  T Get(const char* record, std::size_t member) const {
    T value;
    std::memcpy(&value, record + members_[member].offset, sizeof value);
    return value;
  }

  void Fill(char* record, const Sounding& one) const {
    Set(record, 0, one.id);
    Set(record, 1, one.x);
    Set(record, 2, one.y);
    Set(record, 3, one.z);
    Set(record, 4, one.depth);
    Set(record, 5, one.flags);
    Set(record, 6, one.kind);
  }

  void Add(const char* record, SoundingSums& sums) const {
    sums.id += Get<std::int32_t>(record, 0);
    sums.x += Get<double>(record, 1);
    sums.y += Get<double>(record, 2);
    sums.z += Get<double>(record, 3);
    sums.depth += Get<float>(record, 4);
    sums.flags += Get<std::int16_t>(record, 5);
    sums.kind += Get<std::uint8_t>(record, 6);
  }

  const std::vector<Member> members_ = {{"id", offsetof(Sounding, id), H5T_NATIVE_INT32},
                                        {"x", offsetof(Sounding, x), H5T_NATIVE_DOUBLE},
                                        {"y", offsetof(Sounding, y), H5T_NATIVE_DOUBLE},
                                        {"z", offsetof(Sounding, z), H5T_NATIVE_DOUBLE},
                                        {"depth", offsetof(Sounding, depth), H5T_NATIVE_FLOAT},
                                        {"flags", offsetof(Sounding, flags), H5T_NATIVE_INT16},
                                        {"kind", offsetof(Sounding, kind), H5T_NATIVE_UINT8}};
  hdf5::Handle type_;
};

}  // namespace

std::unique_ptr<RecordFile> MakeHdf5Records() { return std::make_unique<Hdf5Records>(); }

}  // namespace bench
