#!/usr/bin/env bash
# run.sh NATIVE_PROGRAM WINDOWS_PROGRAM: has both write the same file, compares the bytes,
# and has each read what the other wrote. The last line printed is "N passed, N failed".
set -u
native="$(readlink -f "$1")"
windows="$(readlink -f "$2")"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cd "$work"
passed=0
failed=0

check() {
  local name="$1"
  shift
  if "$@"; then
    passed=$((passed + 1))
  else
    echo "$name: Failure"
    failed=$((failed + 1))
  fi
}

check "written here" "$native" write native.orm
check "written on Windows" wine "$windows" write windows.orm
check "the same bytes" cmp native.orm windows.orm
"$native" read native.orm >expected.txt
check "something read" grep -q '^value of type 14' expected.txt
"$native" read windows.orm >here.txt
check "read here what Windows wrote" diff expected.txt here.txt
wine "$windows" read native.orm | tr -d '\r' >there.txt
check "read on Windows what was written here" diff expected.txt there.txt
echo "$passed passed, $failed failed"
[[ "$failed" -eq 0 ]]
