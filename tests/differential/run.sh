#!/usr/bin/env bash
# run.sh NATIVE_PROGRAM WINDOWS_PROGRAM FIRST_SEED COUNT [ARGUMENT...]: runs the same random
# programs on both platforms, with the further arguments, and compares what they print. For
# a difference it shows the program's seed and its lines. The last line printed is
# "N passed, N failed", counting programs.
set -u
native="$(readlink -f "$1")"
windows="$(readlink -f "$2")"
first="$3"
count="$4"
arguments=("${@:5}")
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# On Windows, where a program takes longer, the seeds are shared among the processors.
share=$(((count + $(nproc) - 1) / $(nproc)))
runs=()
for ((from = first; from < first + count; from += share)); do
  of=$((first + count - from < share ? first + count - from : share))
  mkdir "$work/there$from"
  (cd "$work/there$from" && wine "$windows" "$from" "$of" "${arguments[@]}" | tr -d '\r' >text; exit "${PIPESTATUS[0]}") &
  runs+=("$!")
done
mkdir "$work/here"
(cd "$work/here" && "$native" "$first" "$count" "${arguments[@]}" >../here.txt)
here=$?
there=0
for run in "${runs[@]}"; do
  wait "$run" || there=$?
done
for ((from = first; from < first + count; from += share)); do
  cat "$work/there$from/text"
done >"$work/there.txt"

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
