#!/usr/bin/env bash
# Runs every script client with cscript and compares what it prints with its .expected
# file. The last expected line says that the script came to its end: script engines stop
# at an error without a word and with status 0. Run it inside a Wine prefix in which the
# component is registered. The last line printed is "N passed, N failed".
set -u
cd "$(dirname "$(readlink -f "$0")")"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
seconds=60
passed=0
failed=0

for expected in *.expected; do
  name="${expected%.expected}"
  script="$name"
  [[ -f "$script" ]] || script="../../examples/scripts/$name"
  output="$work/$name.output"
  timeout "$seconds" wine cscript //nologo "$script" "Z:${work//\//\\}\\$name.orm" 2>&1 | tr -d '\r' >"$output"
  if diff -u "$expected" "$output"; then
    passed=$((passed + 1))
  else
    echo "$name: Failure"
    failed=$((failed + 1))
  fi
done
echo "$passed passed, $failed failed"
[[ "$failed" -eq 0 && "$passed" -gt 0 ]]
