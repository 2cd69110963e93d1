# bench [--quick] [W...]   measure the library, its rivals and the limit, all workloads or the named

workloads=()
repetitions=15
for argument in "$@"; do
  case "$argument" in
    --quick) repetitions=3 ;;
    W[1-6]) workloads+=("$argument") ;;
    *)
      complain "usage: ./run bench [--quick] [W1..W6]"
      exit 2
      ;;
  esac
done
[[ ${#workloads[@]} -eq 0 ]] && workloads=(W1 W2 W3 W4 W5 W6)

need bench
build_preset bench halyard_bench || exit 1
results=build/bench/results
mkdir -p "$results"
files=()
for workload in "${workloads[@]}"; do
  step "run $workload, $repetitions times"
  logged "bench-$workload" build/bench/bench/halyard_bench --benchmark_filter="^$workload/" \
    --benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results/$workload.json" --benchmark_out_format=json || exit 1
  files+=("$results/$workload.json")
done
python3 bench/report/tables.py "${files[@]}"
