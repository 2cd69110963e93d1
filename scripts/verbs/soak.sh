# soak [FUZZ_SECONDS]      the long forms of the checks: load, kills, random programs, fuzzing (hours)

fuzz_seconds="${1:-1200}"
soak_programs=50000
soak_first_seed=1000000
suite_minutes=600

need windows-run valgrind
source scripts/lib/fuzz.sh
build_preset native halyard_conformance_tests halyard_failure_tests halyard_load_tests halyard_differential
gtest_suite "load in full" env HALYARD_LOAD=full build/native/tests/load/halyard_load_tests
gtest_suite "a thousand kills" env HALYARD_KILLS=1000 build/native/tests/failures/halyard_failure_tests \
  --gtest_filter='KilledWriter.*'
gtest_suite "conformance under valgrind" valgrind --quiet --error-exitcode=1 --leak-check=full \
  build/native/tests/halyard_conformance_tests

if build_preset win64 halyard halyard_differential && new_wine_prefix && register_component; then
  differential_suite "$soak_first_seed" "$soak_programs"
else
  broken_suite "random programs on both platforms"
fi
end_wine

if build_preset fuzz; then
  for target in $(all_fuzz_targets); do
    fuzz_suite "$target" "$fuzz_seconds"
  done
else
  broken_suite "fuzz build"
fi
close_suites
