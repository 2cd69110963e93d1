#include "rivals/hdf5.h"

namespace bench::hdf5 {
namespace {

constexpr char kTableName[] = "records";
constexpr int kNoCompression = -1;

}  // namespace

hid_t NewCompound(std::size_t size) { return H5Tcreate(H5T_COMPOUND, size); }

void AddMember(const Handle& compound, const char* name, std::size_t offset, hid_t type) {
  Require(H5Tinsert(compound.get(), name, offset, type));
}

TableFile::TableFile(const std::string& path, const Handle& type)
    : file_(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT), H5Fclose),
      table_(H5PTcreate_fl(file_.get(), kTableName, type.get(), kBatch, kNoCompression), H5PTclose) {}

TableFile::TableFile(const std::string& path)
    : file_(H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT), H5Fclose),
      table_(H5PTopen(file_.get(), kTableName), H5PTclose) {}

}  // namespace bench::hdf5
