# soak [short|long]        every check in its long form (hours, unless short is asked for: minutes)

form="${1:-long}"
case "$form" in
  long)
    load=full
    kills=1000
    failing_programs=600
    strikes=2000
    random_programs=50000
    fuzz_seconds=1200
    ;;
  short)
    load=short
    kills=20
    failing_programs=20
    strikes=5
    random_programs=300
    fuzz_seconds=5
    ;;
  *)
    complain "the forms are 'short' and 'long'"
    exit 2
    ;;
esac
# Seeds that the everyday tests do not come to.
first_seed=1000000
suite_minutes=600

# The checks of this machine.
soak_native() {
  if ! build_preset native halyard_conformance_tests halyard_failure_tests halyard_struck_tests halyard_load_tests; then
    broken_suite "native build"
    return
  fi
  local failures=build/native/tests/failures/halyard_failure_tests
  local valgrind="valgrind --quiet --error-exitcode=1 --leak-check=full"
  at_once "gtest_suite load env HALYARD_LOAD=$load build/native/tests/load/halyard_load_tests" \
    "gtest_suite 'conformance under valgrind' $valgrind build/native/tests/halyard_conformance_tests" \
    "gtest_suite 'every allocation' env HALYARD_PROGRAMS=$failing_programs $failures --gtest_filter='RandomPrograms.*'" \
    "counting_suite 'conformance without memory' env HALYARD_STRIKES=$strikes build/native/tests/failures/halyard_struck_tests" \
    "gtest_suite kills env HALYARD_KILLS=$kills $failures --gtest_filter='KilledWriter.*'"
}

# Random programs and hostile streams, here and in Wine: the streams that are kept, then new ones.
soak_both_platforms() {
  differential_suites "$first_seed" "$random_programs" 1
}

soak_fuzzing() {
  if ! build_preset fuzz; then
    broken_suite "fuzz build"
    return
  fi
  fuzz_suites "$fuzz_seconds" $(all_fuzz_targets)
}

need windows-run valgrind
soak_native
soak_both_platforms
soak_fuzzing
close_suites
