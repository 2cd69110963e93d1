# fuzz [TARGET|all [SECONDS]]  feed the readers with inputs that a fuzzer makes up (60 seconds each)

target="${1:-all}"
seconds="${2:-60}"
need clang
build_preset fuzz
source scripts/lib/fuzz.sh
if [[ "$target" == all ]]; then
  fuzz_targets=($(all_fuzz_targets))
else
  fuzz_targets=("$target")
fi
for target in "${fuzz_targets[@]}"; do
  fuzz_suite "$target" "$seconds"
done
close_suites
