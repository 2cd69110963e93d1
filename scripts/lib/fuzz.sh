# Runs of the fuzz targets. What a target learns is kept in build/fuzz/corpus/TARGET, its
# findings as build/fuzz/findings/TARGET-*.

# The targets that are built, a word each.
all_fuzz_targets() { (cd build/fuzz/tests/fuzz && ls -d fuzz_* | sed 's/^fuzz_//'); }

# Where inputs lie, in a folder for each target.
kept_inputs=(tests/fuzz/seeds tests/golden/hostile build/fuzz/corpus)

# The targets that something is kept for.
kept_fuzz_targets() { find "${kept_inputs[@]}" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' 2>/dev/null | sort -u; }

# fuzz_suites SECONDS TARGET...: each target for so long, as many at a time as there are
# processors.
fuzz_suites() {
  local seconds="$1" target calls=()
  for target in "${@:2}"; do
    if [[ ! -x "build/fuzz/tests/fuzz/fuzz_$target" ]]; then
      complain "there is no target '$target'; there are: $(all_fuzz_targets | tr '\n' ' ')"
      exit 2
    fi
    calls+=("fuzz_suite $target $seconds")
  done
  at_once "${calls[@]}"
}

# fuzz_suite TARGET SECONDS: counts each input that was run as a check that passed.
fuzz_suite() {
  local target="$1" seconds="$2" program="build/fuzz/tests/fuzz/fuzz_$1" folder folders=()
  local kept="${target/records/file}" # whole files both
  local dictionary="tests/fuzz/dictionaries/$target.dict" with_dictionary=()
  mkdir -p "build/fuzz/corpus/$target" build/fuzz/findings
  for folder in "tests/fuzz/seeds/$kept" "tests/golden/hostile/$kept"; do
    [[ -d "$folder" ]] && folders+=("$folder")
  done
  local longest=4096
  [[ "$kept" == file ]] && longest=70000 # records beyond the buffer of a file
  [[ -f "$dictionary" ]] && with_dictionary=("-dict=$dictionary")
  suite_minutes=$((seconds / 60 + 10))
  run_suite "fuzz $target" "$program" "-max_total_time=$seconds" -timeout=20 -rss_limit_mb=2048 "-max_len=$longest" \
    -print_final_stats=1 "${with_dictionary[@]}" "-artifact_prefix=build/fuzz/findings/$target-" \
    "build/fuzz/corpus/$target" "${folders[@]}"
  local runs
  runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$(result_file "fuzz $target" log)" | tail -n 1)"
  close_suite "fuzz $target" "$suite_status" "${runs:-0}" 0 0
}

# coverage_suite TARGET: runs what is kept for a target, and what the target has learnt, in
# a program that notes the lines it passes, and prints how many of the library's those are.
coverage_suite() {
  local target="$1" notes="build/coverage/notes/$1"
  mkdir -p build/coverage/notes
  counting_suite "replay $target" env "LLVM_PROFILE_FILE=$notes.profraw" build/coverage/tests/fuzz/halyard_replay \
    "$target" "${kept_inputs[@]}"
  if llvm-profdata merge -sparse "$notes.profraw" -o "$notes.profdata"; then
    print_coverage "$target" "$notes.profdata"
  fi
}

# What all targets reach together.
total_coverage() {
  local total=build/coverage/notes/all.profdata
  rm -f "$total"
  if llvm-profdata merge -sparse build/coverage/notes/*.profdata -o "$total"; then
    print_coverage "all targets" "$total"
  fi
}

# print_coverage WHO NOTES: a line for the library, and one for the tool where WHO runs it.
print_coverage() {
  local who="$1" notes="$2" folders=(src)
  [[ "$who" == csv ]] && folders+=(tools)
  llvm-cov export -summary-only build/coverage/tests/fuzz/halyard_replay "-instr-profile=$notes" |
    python3 tests/fuzz/coverage_lines.py "$who" "${folders[@]}"
}
