# differential [FIRST [N]]  run N random programs and hostile streams, from seed FIRST on, on both platforms; compare

first="${1:-1}"
count="${2:-3000}"
need_count FIRST "$first"
need_count N "$count"
need windows-run
differential_suites "$first" "$count"
close_suites
