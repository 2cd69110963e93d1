# The suites of this machine: plain, then with address and undefined-behaviour sanitizers.
# The sanitized tool meets every bad input and does everything that moves bytes by itself;
# its disk is not full, because the sanitizers write to pipes of their own.
declare -A tool_tests=(
  [native]='*'
  [native-asan]='*BadInput*:*BadOutput*:*CutAnywhere*:Doctor.*:Export.*:Recover.*:Merge.*:Cat.*:Defs.*:-*FullDisk*'
)

for preset in native native-asan; do
  if build_preset "$preset"; then
    gtest_suite "$preset unit" "build/$preset/tests/halyard_unit_tests"
    gtest_suite "$preset conformance" "build/$preset/tests/halyard_conformance_tests"
    gtest_suite "$preset failures" "build/$preset/tests/failures/halyard_failure_tests"
    gtest_suite "$preset examples" "build/$preset/tests/examples/halyard_example_tests"
    gtest_suite "$preset tool" "build/$preset/tests/tools/halyard_tool_tests" "--gtest_filter=${tool_tests[$preset]}"
    ctest_suite "$preset programs" "build/$preset" --label-exclude gtest
    case "$preset" in
      native)
        gtest_suite "$preset load" "build/$preset/tests/load/halyard_load_tests"
        glance_at_speed
        ;;
      native-asan)
        counting_suite "$preset hostile inputs" build/native-asan/tests/fuzz/halyard_replay library \
          tests/fuzz/seeds tests/golden/hostile
        counting_suite "$preset hostile tables" build/native-asan/tests/fuzz/halyard_replay csv \
          tests/fuzz/seeds tests/golden/hostile
        ;;
    esac
  else
    broken_suite "$preset build"
  fi
done
