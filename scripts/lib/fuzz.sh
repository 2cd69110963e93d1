# Runs of the fuzz targets. What a target learns is kept in build/fuzz/corpus/TARGET, its
# findings as build/fuzz/findings/TARGET-*.

# The targets that are built, a word each.
all_fuzz_targets() { (cd build/fuzz/tests/fuzz && ls -d fuzz_* | sed 's/^fuzz_//'); }

# fuzz_suite TARGET SECONDS: counts each input that was run as a check that passed.
fuzz_suite() {
  local target="$1" seconds="$2" program="build/fuzz/tests/fuzz/fuzz_$1" folder folders=()
  local kept="${target/records/file}" # whole files both
  if [[ ! -x "$program" ]]; then
    complain "there is no target '$target'; there are: $(all_fuzz_targets | tr '\n' ' ')"
    exit 2
  fi
  mkdir -p "build/fuzz/corpus/$target" build/fuzz/findings
  for folder in "tests/fuzz/seeds/$kept" "tests/golden/hostile/$kept"; do
    [[ -d "$folder" ]] && folders+=("$folder")
  done
  suite_minutes=$((seconds / 60 + 10))
  run_suite "fuzz $target" "$program" "-max_total_time=$seconds" -timeout=20 -rss_limit_mb=2048 -max_len=4096 \
    -print_final_stats=1 "-artifact_prefix=build/fuzz/findings/$target-" "build/fuzz/corpus/$target" "${folders[@]}"
  local runs
  runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$(result_file "fuzz $target" log)" | tail -n 1)"
  close_suite "fuzz $target" "$suite_status" "${runs:-0}" 0 0
}
