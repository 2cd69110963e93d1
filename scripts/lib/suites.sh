# Test suites and their sum. Each *_suite function runs one suite, prints its count and
# adds it to the total; a suite that runs no test counts as a failure, and so does one
# that ends badly without naming a failed test. Reports lie in build/test-results.

passed_total=0
failed_total=0
suite_minutes=30

# gtest_suite NAME COMMAND...: a GoogleTest program.
gtest_suite() {
  run_suite "$1" "${@:2}" "--gtest_output=xml:$(result_file "$1" xml)"
  local report status=$suite_status
  report="$(result_file "$1" xml)"
  local tests failures skipped
  tests=$(sum_of tests '<testsuites ' "$report")
  failures=$(sum_of failures '<testsuites ' "$report")
  skipped=$(($(sum_of disabled '<testsuites ' "$report") + $(sum_of skipped '<testsuite ' "$report")))
  close_suite "$1" "$status" $((tests - failures - skipped)) "$failures" "$skipped"
}

# ctest_suite NAME BUILD_TREE [CTEST_ARGUMENTS...]: what a build tree registers with CTest.
ctest_suite() {
  local report
  report="$(result_file "$1" xml)"
  run_suite "$1" ctest --test-dir "$2" --output-on-failure --output-junit "$PWD/$report" "${@:3}"
  local status=$suite_status tests failures skipped
  tests=$(sum_of tests '<testsuite ' "$report")
  failures=$(sum_of failures '<testsuite ' "$report")
  skipped=$(($(sum_of disabled '<testsuite ' "$report") + $(sum_of skipped '<testsuite ' "$report")))
  close_suite "$1" "$status" $((tests - failures - skipped)) "$failures" "$skipped"
}

# counting_suite NAME COMMAND...: a program whose last line is "N passed, N failed".
counting_suite() {
  run_suite "$1" "${@:2}"
  local line passed=0 failed=0
  line="$(tr -d '\r' <"$(result_file "$1" log)" | grep -v '^$' | tail -n 1)" || line=""
  if [[ "$line" =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
    passed=${BASH_REMATCH[1]}
    failed=${BASH_REMATCH[2]}
  fi
  close_suite "$1" "$suite_status" "$passed" "$failed" 0
}

# at_once CALL...: calls of suite functions, each a string, as many at a time as there are
# processors. What they count is added when all have ended.
at_once() {
  local call tallies number=0 passed failed
  tallies="$(mktemp -d)"
  for call in "$@"; do
    while [[ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]]; do wait -n || true; done
    number=$((number + 1))
    tallied "$tallies/$number" "$call" &
  done
  wait
  for ((number = 1; number <= $#; ++number)); do
    if [[ -s "$tallies/$number" ]]; then
      read -r passed failed <"$tallies/$number"
      passed_total=$((passed_total + passed))
      failed_total=$((failed_total + failed))
    else
      broken_suite "${*:number:1}"
    fi
  done
  rm -rf "$tallies"
}

# tallied FILE CALL: what a call alone counts goes to the file.
tallied() {
  passed_total=0
  failed_total=0
  eval "$2"
  echo "$passed_total $failed_total" >"$1"
}

# A suite that could not even start, for a reason that was already shown.
broken_suite() { close_suite "$1" 1 0 0 0; }

# The file of a suite's report (xml) or output (log).
result_file() { printf 'build/test-results/%s.%s' "${1// /-}" "$2"; }

# Runs a suite's command with its output in a log; its status goes to suite_status.
run_suite() {
  local name="$1"
  mkdir -p build/test-results
  rm -f "$(result_file "$name" xml)"
  suite_status=0
  timeout "${suite_minutes}m" "${@:2}" >"$(result_file "$name" log)" 2>&1 || suite_status=$?
}

# The sum of a number attribute over all elements of a kind; 0 without a report.
sum_of() {
  [[ -f "$3" ]] || { echo 0 && return; }
  tr -d '\r' <"$3" | tr '\n' ' ' | { grep -o "$2[^>]*" || true; } |
    sed -n "s/.*[[:space:]]$1=\"\([0-9]*\)\".*/\1/p" | awk '{ sum += $1 } END { print sum + 0 }'
}

# Prints a suite's line and adds it to the total.
close_suite() {
  local name="$1" status="$2" passed="$3" failed="$4" skipped="$5" remark=""
  [[ "$skipped" -gt 0 ]] && remark+=", $skipped skipped"
  if [[ "$failed" -eq 0 && "$status" -ne 0 ]]; then
    failed=1
    remark+=", ended with status $status"
  elif [[ $((passed + failed)) -eq 0 ]]; then
    failed=1
    remark+=", ran no test"
  fi
  step "$name: $passed passed, $failed failed$remark"
  if [[ "$failed" -gt 0 && -f "$(result_file "$name" log)" ]]; then
    show_failures "$(result_file "$name" log)"
  fi
  passed_total=$((passed_total + passed))
  failed_total=$((failed_total + failed))
}

# The part of a suite's output that tells of its failures, long lines cut.
show_failures() {
  if grep -qE 'Failure$|ERROR: |runtime error:' "$1"; then
    grep -E -A 8 'Failure$|ERROR: |runtime error:' "$1" | head -n 80 | cut -c 1-200 >&2
  else
    tail -n 40 "$1" >&2
  fi
  complain "the whole output is in $1"
}

# The last line of a test run; false when anything failed or nothing ran.
close_suites() {
  echo "$passed_total passed, $failed_total failed"
  [[ "$failed_total" -eq 0 && "$passed_total" -gt 0 ]]
}
