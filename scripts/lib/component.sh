# The 64-bit component in the Wine prefix, and the suite that holds it against the native
# library.

register_component() {
  logged register "${in_wine[@]}" timeout 60 wine regsvr32 /s "$(windows_path build/win64/halyard.dll)" && return
  complain "the component cannot be registered"
  return 1
}

unregister_component() {
  logged unregister "${in_wine[@]}" timeout 60 wine regsvr32 /s /u "$(windows_path build/win64/halyard.dll)"
}

# The programs whose output is compared, to be built on both platforms.
differential_programs=(halyard_differential halyard_hostile_differential)

# differential_suite [FIRST [COUNT]]: runs random programs on both platforms, with the
# component registered.
differential_suite() {
  compare_platforms "random programs on both platforms" halyard_differential "${1:-1}" "${2:-3000}"
}

# hostile_differential_suite [FIRST [COUNT]]: reads hostile streams, those that are kept
# first, on both platforms.
hostile_differential_suite() {
  compare_platforms "hostile streams on both platforms" halyard_hostile_differential "${1:-1}" "${2:-1000}" \
    "$PWD/tests/golden/hostile" "$PWD/tests/fuzz/seeds"
}

# differential_suites FIRST COUNT [FIRST_STREAM]: both of them, with all that they need.
differential_suites() {
  if build_preset native "${differential_programs[@]}" && build_preset win64 halyard "${differential_programs[@]}" &&
    new_wine_prefix && register_component; then
    differential_suite "$1" "$2"
    hostile_differential_suite "${3:-$1}" "$2"
  else
    broken_suite "both platforms"
  fi
  end_wine
}

# compare_platforms SUITE PROGRAM FIRST COUNT [ARGUMENT...]
compare_platforms() {
  counting_suite "$1" "${in_wine[@]}" tests/differential/run.sh "build/native/tests/differential/$2" \
    "build/win64/tests/differential/$2.exe" "${@:3}"
}
