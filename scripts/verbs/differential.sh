# differential [FIRST [N]]  run N random programs and hostile streams, from seed FIRST on, on both platforms; compare

need windows-run
build_preset native "${differential_programs[@]}" && build_preset win64 halyard "${differential_programs[@]}"
step "make a Wine prefix"
new_wine_prefix && register_component
differential_suite "$@"
hostile_differential_suite "$@"
end_wine
close_suites
