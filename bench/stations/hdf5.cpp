#include "rivals/hdf5.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include "stations/rivals.h"

namespace bench {
namespace {

// The record as HDF5 has it in memory: texts are pointers.
struct Row {
  std::int32_t id;
  char* name;
  char* note;  // null where there is none
  double position[3];
  float samples[kSampleCount];
  std::uint8_t state;
};

hid_t NewTextType() {
  const hid_t type = hdf5::Require(H5Tcopy(H5T_C_S1));
  hdf5::Require(H5Tset_size(type, H5T_VARIABLE));
  return type;
}

hid_t NewPositionType() {
  const hid_t type = hdf5::NewCompound(3 * sizeof(double));
  std::size_t offset = 0;
  for (const char* axis : {"x", "y", "z"}) {
    hdf5::Require(H5Tinsert(type, axis, offset, H5T_NATIVE_DOUBLE));
    offset += sizeof(double);
  }
  return type;
}

hid_t NewSamplesType() {
  const hsize_t size = kSampleCount;
  return H5Tarray_create2(H5T_NATIVE_FLOAT, 1, &size);
}

hid_t NewStateType() {
  const hid_t type = hdf5::Require(H5Tenum_create(H5T_NATIVE_UINT8));
  std::uint8_t number = 0;
  for (const char* name : {"planned", "working", "idle", "closed"}) {
    hdf5::Require(H5Tenum_insert(type, name, &number));
    ++number;
  }
  return type;
}

// Texts belong to the writer while a batch is written; HDF5 only reads them.
char* Borrowed(const std::string& text) { return const_cast<char*>(text.c_str()); }

Row RowOf(const Station& one) {
  Row row = {one.id,
             Borrowed(Names()[one.name]),
             one.has_note ? Borrowed(Notes()[one.note]) : nullptr,
             {one.x, one.y, one.z},
             {},
             static_cast<std::uint8_t>(one.state)};
  std::memcpy(row.samples, one.samples, sizeof row.samples);
  return row;
}

void Add(const Row& row, StationSums& sums) {
  sums.id += row.id;
  sums.name += SumOfCharacters(std::string_view(row.name));
  if (row.note == nullptr) {
    ++sums.without_note;
  } else {
    sums.note += SumOfCharacters(std::string_view(row.note));
  }
  sums.x += row.position[0];
  sums.y += row.position[1];
  sums.z += row.position[2];
  sums.samples += SumOfSamples(row.samples);
  sums.state += row.state;
}

class Hdf5Stations final : public StationFile {
 public:
  Hdf5Stations() {
    hdf5::AddMember(type_, "id", offsetof(Row, id), H5T_NATIVE_INT32);
    hdf5::AddMember(type_, "name", offsetof(Row, name), text_.get());
    hdf5::AddMember(type_, "note", offsetof(Row, note), text_.get());
    hdf5::AddMember(type_, "position", offsetof(Row, position), position_.get());
    hdf5::AddMember(type_, "samples", offsetof(Row, samples), samples_.get());
    hdf5::AddMember(type_, "state", offsetof(Row, state), state_.get());
  }

  void Write(const std::string& path, std::int32_t count) override {
    hdf5::TableFile file(path, type_);
    std::vector<Row> rows;
    for (std::int32_t i = 0; i < count; ++i) {
      rows.push_back(RowOf(StationAt(i)));
      if (rows.size() < hdf5::kBatch && i + 1 < count) continue;
      file.Append(rows.size(), rows.data());
      rows.clear();
    }
  }

  StationSums Read(const std::string& path, std::int32_t count) override {
    hdf5::TableFile file(path);
    std::vector<Row> rows(hdf5::kBatch);
    StationSums sums;
    for (std::int32_t left = count; left > 0;) {
      const auto batch = std::min(static_cast<std::size_t>(left), hdf5::kBatch);
      file.ReadNext(batch, rows.data());
      for (std::size_t i = 0; i < batch; ++i) Add(rows[i], sums);
      FreeTexts(batch, rows.data());
      left -= static_cast<std::int32_t>(batch);
    }
    return sums;
  }

 private:
  void FreeTexts(std::size_t count, Row* rows) const {
    const hsize_t size = count;
    const hdf5::Handle space(H5Screate_simple(1, &size, nullptr), H5Sclose);
    hdf5::Require(H5Dvlen_reclaim(type_.get(), space.get(), H5P_DEFAULT, rows));
  }

  hdf5::Handle text_{NewTextType(), H5Tclose};
  hdf5::Handle position_{NewPositionType(), H5Tclose};
  hdf5::Handle samples_{NewSamplesType(), H5Tclose};
  hdf5::Handle state_{NewStateType(), H5Tclose};
  hdf5::Handle type_{hdf5::NewCompound(sizeof(Row)), H5Tclose};
};

}  // namespace

std::unique_ptr<StationFile> MakeHdf5Stations() { return std::make_unique<Hdf5Stations>(); }

}  // namespace bench
