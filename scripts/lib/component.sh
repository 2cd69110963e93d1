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

# differential_suite [FIRST [COUNT]]: runs random programs on both platforms, with the
# component registered.
differential_suite() {
  counting_suite "random programs on both platforms" "${in_wine[@]}" tests/differential/run.sh \
    build/native/tests/differential/halyard_differential \
    build/win64/tests/differential/halyard_differential.exe "$@"
}
