# bench [--quick] [W1...]  measure the library, its rivals and the limit; bench growth: how cost grows
#
# bench document brings the figures of the last runs into docs/performance.md.

case "$*" in
  growth)
    measure_growth
    exit
    ;;
  document)
    document_figures
    exit
    ;;
esac

workloads=()
repetitions=15
all=(W1 W2 W3 W4 W5 W6 W7)
for argument in "$@"; do
  case "$argument" in
    --quick)
      repetitions=3
      all=(W1 W2 W3 W4 W5 W6) # W7 builds the Windows component, which takes minutes
      ;;
    W[1-7]) workloads+=("$argument") ;;
    *)
      complain "usage: ./run bench [--quick] [W1..W7], ./run bench growth or ./run bench document"
      exit 2
      ;;
  esac
done
[[ ${#workloads[@]} -eq 0 ]] && workloads=("${all[@]}")

build_preset bench halyard_bench || exit 1
files=()
for workload in "${workloads[@]}"; do
  if [[ "$workload" == W7 ]]; then
    run_script_workload "$repetitions" || exit 1
  else
    run_workload "$workload" "$repetitions" || exit 1
  fi
  files+=("$bench_results/$workload.json")
done
python3 bench/report/tables.py "${files[@]}"
