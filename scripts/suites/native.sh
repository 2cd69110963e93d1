# The suites of this machine: plain, then with address and undefined-behaviour sanitizers.
# The sanitized tool meets every bad input and does everything that moves bytes by itself;
# its disk is not full, because the sanitizers write to pipes of their own.
declare -A tool_tests=(
  [native]='*'
  [native-asan]='*BadInput*:*BadOutput*:*CutAnywhere*:Doctor.*:Export.*:Recover.*:Merge.*:Cat.*:Defs.*:-*FullDisk*'
)

# The calls of suites that every preset has, the longest first.
suites_of() {
  local programs="build/$1/tests"
  suites=(
    "gtest_suite '$1 tool' $programs/tools/halyard_tool_tests '--gtest_filter=${tool_tests[$1]}'"
    "gtest_suite '$1 failures' $programs/failures/halyard_failure_tests"
    "gtest_suite '$1 conformance' $programs/halyard_conformance_tests"
    "ctest_suite '$1 programs' build/$1 --label-exclude gtest"
    "gtest_suite '$1 examples' $programs/examples/halyard_example_tests"
    "gtest_suite '$1 unit' $programs/halyard_unit_tests"
    "gtest_suite '$1 narrow forms' $programs/halyard_narrow_encoding_tests"
  )
}

if build_preset native; then
  suites_of native
  at_once "${suites[@]}" "gtest_suite 'native load' build/native/tests/load/halyard_load_tests"
  glance_at_speed
else
  broken_suite "native build"
fi

if build_preset native-asan; then
  suites_of native-asan
  replay=build/native-asan/tests/fuzz/halyard_replay
  at_once "${suites[@]}" \
    "counting_suite 'native-asan hostile inputs' $replay library tests/fuzz/seeds tests/golden/hostile" \
    "counting_suite 'native-asan hostile tables' $replay csv tests/fuzz/seeds tests/golden/hostile"
else
  broken_suite "native-asan build"
fi
