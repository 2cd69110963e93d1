# differential [FIRST [COUNT]]  run random programs, from seed FIRST on, on both platforms and compare

need windows-run
build_preset native halyard_differential && build_preset win64 halyard halyard_differential
step "make a Wine prefix"
new_wine_prefix && register_component
differential_suite "$@"
end_wine
close_suites
