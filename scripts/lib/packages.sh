# The programs that the verbs need. On Debian (and its kin) missing packages are
# installed; on another system the missing programs are named and the verb ends.

# Packages for each kit, and the programs by which a system without dpkg is judged.
declare -A kit_packages=(
  [native]="g++ cmake ninja-build pkg-config libgtest-dev tzdata libcli11-dev nlohmann-json3-dev libfmt-dev libbenchmark-dev python3"
  [bench]="g++ cmake ninja-build pkg-config libbenchmark-dev libprotobuf-dev protobuf-compiler libavro-dev libcapnp-dev libmsgpack-cxx-dev libhdf5-dev libflatbuffers-dev python3 python3-dev python3-numpy"
  [document]="python3-matplotlib"
  [windows-build]="cmake ninja-build googletest g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libwine libwine-dev libcli11-dev nlohmann-json3-dev libfmt-dev"
  [windows-run]="wine wine64 xvfb xauth"
  [package]="zip"
  [clang]="clang libclang-rt-14-dev"
  [coverage]="llvm"
  [format]="clang-format git"
  [valgrind]="valgrind libc6-dbg"
)
declare -A kit_programs=(
  [native]="g++ cmake ninja pkg-config python3"
  [bench]="g++ cmake ninja pkg-config python3"
  [document]="python3"
  [windows-build]="cmake ninja x86_64-w64-mingw32-g++-posix i686-w64-mingw32-g++-posix x86_64-w64-mingw32-widl"
  [windows-run]="wine wineserver xvfb-run"
  [package]="zip"
  [clang]="clang++"
  [coverage]="llvm-cov llvm-profdata python3"
  [format]="clang-format git"
  [valgrind]="valgrind"
)

# Makes sure that the named kits are there; ends the program where that is impossible.
need() {
  local kit packages="" programs=""
  for kit in "$@"; do
    packages+=" ${kit_packages[$kit]}"
    programs+=" ${kit_programs[$kit]}"
  done
  if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
    install_packages $packages
  else
    name_missing_programs $programs
  fi
}

is_installed() { [[ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]; }

install_packages() {
  local package missing=() as_root=()
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [[ ${#missing[@]} -eq 0 ]] && return
  if [[ $EUID -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
      complain "these packages are missing and only root can install them: ${missing[*]}"
      exit 1
    fi
    as_root=(sudo)
  fi
  step "install ${missing[*]}"
  logged packages "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update || exit 1
  logged packages "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install --yes --no-install-recommends "${missing[@]}" || exit 1
}

name_missing_programs() {
  local program missing=()
  for program in "$@"; do
    command -v "$program" >/dev/null || missing+=("$program")
  done
  [[ ${#missing[@]} -eq 0 ]] && return
  complain "these programs are missing: ${missing[*]}"
  exit 1
}
