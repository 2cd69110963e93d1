# test [native|windows]    build and run the checks, all of them or those of one platform

platforms=("$@")
if [[ $# -eq 0 ]]; then
  for platform in native windows; do
    [[ -f "scripts/suites/$platform.sh" ]] && platforms+=("$platform")
  done
fi
for platform in "${platforms[@]}"; do
  if [[ ! "$platform" =~ ^[a-z]+$ || ! -f "scripts/suites/$platform.sh" ]]; then
    complain "there are no tests called '$platform'"
    exit 2
  fi
done
for platform in "${platforms[@]}"; do
  source "scripts/suites/$platform.sh"
done
close_suites
