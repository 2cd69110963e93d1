# The runs of the benchmark. Each leaves a JSON file of its figures in build/bench/results.

bench_results=build/bench/results

# Notes beside the figures on what machine and with what versions they were made.
describe_machine() { python3 bench/report/machine.py >"$bench_results/machine.json"; }

# Runs a workload under Google Benchmark, so many times, with its participants in random
# turns.
run_workload() {
  local workload="$1" repetitions="$2"
  mkdir -p "$bench_results"
  describe_machine
  step "run $workload, $repetitions times"
  logged "bench-$workload" build/bench/bench/halyard_bench --benchmark_filter="^$workload/" \
    --benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true \
    --benchmark_out="$bench_results/$workload.json" --benchmark_out_format=json
}

# Runs the script workload, so many rounds, in a Wine prefix in which the component is
# registered.
run_script_workload() {
  local rounds="$1" calls=200000
  mkdir -p "$bench_results"
  need windows-run
  build_preset win64 halyard || return 1
  step "make a Wine prefix"
  new_wine_prefix && register_component || return 1
  step "run W7, $rounds times"
  describe_machine
  "${in_wine[@]}" timeout 600 wine cscript //nologo bench/scripts/member_access.vbs "$rounds" "$calls" 2>&1 |
    tr -d '\r' | python3 bench/report/script_results.py "$calls" >"$bench_results/W7.json"
  local status=$?
  end_wine
  return "$status"
}

# How the library's cost grows with the size of its work.
measure_growth() {
  build_preset bench halyard_growth || return 1
  mkdir -p "$bench_results"
  step "let records, members, nesting, definitions and arrays grow"
  build/bench/bench/halyard_growth >"$bench_results/growth.json" 2>build/logs/growth.log || {
    tail -n 1 build/logs/growth.log >&2
    return 1
  }
  python3 bench/report/growth.py "$bench_results/growth.json"
}

# A look at the speed of the build that the tests have just made, without rivals: a few
# lines of information, which never make a test run fail.
glance_at_speed() {
  local figures=build/native/glance.json
  if logged glance timeout 60 build/native/bench/halyard_bench_glance --benchmark_filter='^W1/(write|read)/|^W[2356]/' \
    --benchmark_repetitions=2 --benchmark_enable_random_interleaving=true \
    --benchmark_out="$figures" --benchmark_out_format=json; then
    python3 bench/report/glance.py "$figures" || true
  else
    step "speed: not measured"
  fi
}

# Brings the figures that lie in build/bench/results into docs/performance.md. The library
# that draws is a package of the system, so the system's own interpreter is asked.
document_figures() {
  need document
  step "write tables and charts into docs/performance.md"
  /usr/bin/python3 bench/report/document.py "$bench_results"
}
