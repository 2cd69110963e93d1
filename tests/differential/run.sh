#!/usr/bin/env bash
# run.sh NATIVE_PROGRAM WINDOWS_PROGRAM [FIRST_SEED [COUNT]]: runs the same random programs
# on both platforms and compares what they print. For a difference it shows the program's
# seed and its lines. The last line printed is "N passed, N failed", counting programs.
set -u
native="$(readlink -f "$1")"
windows="$(readlink -f "$2")"
shift 2
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir "$work/here" "$work/there"

(cd "$work/here" && "$native" "$@" >../here.txt)
here=$?
(cd "$work/there" && wine "$windows" "$@" | tr -d '\r' >../there.txt; exit "${PIPESTATUS[0]}")
there=$?

programs="$(grep -c '^program ' "$work/here.txt")"
failed=0
if [[ $here -ne 0 || $there -ne 0 ]]; then
  echo "Failure: ended with status $here here and $there on Windows"
  failed=1
fi
if ! cmp -s "$work/here.txt" "$work/there.txt"; then
  # Each program in one line, so that programs can be told apart by comparing lines.
  for side in here there; do
    awk '/^program /{if(all)print all;all=$0;next}{all=all"\t"$0}END{print all}' "$work/$side.txt" >"$work/$side.programs"
  done
  differing="$(diff "$work/here.programs" "$work/there.programs" | grep '^[<>]' | cut -f 1 | cut -d ' ' -f 3 | sort -nu)"
  failed="$(wc -w <<<"$differing")"
  seed="$(head -n 1 <<<"$differing")"
  echo "Failure: program $seed prints something else on Windows (+) than here (-)"
  for side in here there; do
    grep -P "^program $seed(\t|$)" "$work/$side.programs" | tr '\t' '\n' | cut -c 1-300 >"$work/$side.first"
  done
  diff -u "$work/here.first" "$work/there.first" | head -n 40
fi
echo "$((programs - failed)) passed, $failed failed"
[[ "$failed" -eq 0 && "$programs" -gt 0 ]]
