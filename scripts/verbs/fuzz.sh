# fuzz [TARGET|all [SECONDS]]  feed the readers with made-up inputs (60 seconds each); fuzz coverage: lines they reach

target="${1:-all}"
seconds="${2:-60}"
need_count SECONDS "$seconds"
need clang
if [[ "$target" == coverage ]]; then
  build_preset coverage halyard_replay
  rm -rf build/coverage/notes
  for target in $(kept_fuzz_targets); do
    coverage_suite "$target"
  done
  total_coverage
else
  build_preset fuzz
  fuzz_targets=("$target")
  [[ "$target" == all ]] && fuzz_targets=($(all_fuzz_targets))
  fuzz_suites "$seconds" "${fuzz_targets[@]}"
fi
close_suites
