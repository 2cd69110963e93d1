#include "rivals/hdf5.h"

#include <cstddef>
#include <optional>
#include <vector>

#include "columns/rivals.h"
#include "support/scratch.h"

namespace bench {
namespace {

hid_t NewSoundingType() {
  const hid_t type = hdf5::NewCompound(sizeof(Sounding));
  hdf5::Require(H5Tinsert(type, "id", offsetof(Sounding, id), H5T_NATIVE_INT32));
  hdf5::Require(H5Tinsert(type, "x", offsetof(Sounding, x), H5T_NATIVE_DOUBLE));
  hdf5::Require(H5Tinsert(type, "y", offsetof(Sounding, y), H5T_NATIVE_DOUBLE));
  hdf5::Require(H5Tinsert(type, "z", offsetof(Sounding, z), H5T_NATIVE_DOUBLE));
  hdf5::Require(H5Tinsert(type, "depth", offsetof(Sounding, depth), H5T_NATIVE_FLOAT));
  hdf5::Require(H5Tinsert(type, "flags", offsetof(Sounding, flags), H5T_NATIVE_INT16));
  hdf5::Require(H5Tinsert(type, "kind", offsetof(Sounding, kind), H5T_NATIVE_UINT8));
  return type;
}

// A compound type in memory with one member, by which that member alone is moved.
hid_t NewOneMember(const char* name, hid_t number) {
  const hid_t type = hdf5::NewCompound(H5Tget_size(number));
  hdf5::Require(H5Tinsert(type, name, 0, number));
  return type;
}

// The table is a data set of a file in memory that is never written to a disk. No two files
// that are open may have the same name.
hid_t NewFileInMemory() {
  constexpr std::size_t kGrowth = 1 << 20;
  static int files_made = 0;
  const std::string name = "columns HDF5 " + std::to_string(++files_made);
  const hdf5::Handle access(H5Pcreate(H5P_FILE_ACCESS), H5Pclose);
  hdf5::Require(H5Pset_fapl_core(access.get(), kGrowth, 0));
  return H5Fcreate(ScratchFile(name).c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access.get());
}

class Hdf5Columns final : public ColumnTable {
 public:
  void Fill(std::int32_t count) override {
    std::vector<Sounding> soundings;
    for (std::int32_t i = 0; i < count; ++i) soundings.push_back(SoundingAt(i));
    const hsize_t size = soundings.size();
    const hdf5::Handle space(H5Screate_simple(1, &size, nullptr), H5Sclose);
    set_.emplace(
        H5Dcreate2(file_.get(), "soundings", type_.get(), space.get(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT),
        H5Dclose);
    hdf5::Require(H5Dwrite(set_->get(), type_.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, soundings.data()));
  }

  void DepthToReals(double* numbers) override { Take(depth_, numbers); }
  void XToReals(double* numbers) override { Take(x_, numbers); }
  void FlagsToLongs(std::int32_t* numbers) override { Take(flags_, numbers); }

  void RealsToDepth(const double* numbers) override {
    hdf5::Require(H5Dwrite(set_->get(), depth_.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, numbers));
  }

 private:
  void Take(const hdf5::Handle& member, void* numbers) {
    hdf5::Require(H5Dread(set_->get(), member.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, numbers));
  }

  const hdf5::Handle file_{NewFileInMemory(), H5Fclose};
  const hdf5::Handle type_{NewSoundingType(), H5Tclose};
  const hdf5::Handle depth_{NewOneMember("depth", H5T_NATIVE_DOUBLE), H5Tclose};
  const hdf5::Handle x_{NewOneMember("x", H5T_NATIVE_DOUBLE), H5Tclose};
  const hdf5::Handle flags_{NewOneMember("flags", H5T_NATIVE_INT32), H5Tclose};
  std::optional<hdf5::Handle> set_;
};

}  // namespace

std::unique_ptr<ColumnTable> MakeHdf5Columns() { return std::make_unique<Hdf5Columns>(); }

}  // namespace bench
