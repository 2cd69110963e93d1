# Builds of the presets in CMakePresets.json. What the tools print goes to
# build/logs/NAME.log; a person sees it only when they fail.

# Runs a command with its output in build/logs/NAME.log; on failure shows the errors.
logged() {
  local name="$1" log="build/logs/$1.log"
  shift
  mkdir -p build/logs
  "$@" >"$log" 2>&1 && return
  show_errors "$log"
  return 1
}

# The lines of a log that say what went wrong, or its end where none stands out.
show_errors() {
  local log="$1" pattern='error:|^CMake Error|undefined reference|multiple definition|^E: '
  if grep -qE "$pattern" "$log"; then
    grep -E -A 3 "$pattern" "$log" | head -n 60 >&2
  else
    tail -n 40 "$log" >&2
  fi
  complain "the whole output is in $log"
}

# The kits that a preset is built with.
need_preset() {
  case "$1" in
    native | native-asan) need native ;;
    bench) need bench ;;
    fuzz) need native clang ;;
    coverage) need native clang coverage ;;
    win32 | win64) need windows-build ;;
    *)
      complain "there is no preset '$1'"
      exit 2
      ;;
  esac
}

# Configures and builds a preset: everything, or the named targets.
build_preset() {
  local preset="$1" targets=()
  shift
  [[ $# -gt 0 ]] && targets=(--target "$@")
  need_preset "$preset"
  step "build $preset"
  logged "configure-$preset" cmake --preset "$preset" || return 1
  logged "build-$preset" cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}"
}
