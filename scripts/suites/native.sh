# The suites of this machine: plain, then with address and undefined-behaviour sanitizers.

for preset in native native-asan; do
  if build_preset "$preset"; then
    gtest_suite "$preset unit" "build/$preset/tests/halyard_unit_tests"
    gtest_suite "$preset conformance" "build/$preset/tests/halyard_conformance_tests"
    gtest_suite "$preset examples" "build/$preset/tests/examples/halyard_example_tests"
    ctest_suite "$preset programs" "build/$preset" --label-exclude gtest
    if [[ "$preset" == native ]]; then glance_at_speed; fi
  else
    broken_suite "$preset build"
  fi
done
