#!/usr/bin/env python3
"""coverage_lines.py WHO FOLDER...: reads what `llvm-cov export -summary-only` prints and
prints, for each folder of the project, how many of its lines were passed."""
import json
import os
import sys

project = os.path.realpath(os.path.join(os.path.dirname(__file__), "..", ".."))


def lines_of(files, folder):
    """Lines that hold code, and those of them that were passed, in the files of a folder."""
    top = os.path.join(project, folder) + os.sep
    counts = [f["summary"]["lines"] for f in files if os.path.realpath(f["filename"]).startswith(top)]
    return sum(c["count"] for c in counts), sum(c["covered"] for c in counts)


who, folders = sys.argv[1], sys.argv[2:]
reached = json.load(sys.stdin)["data"][0]["files"]
for folder in folders:
    count, covered = lines_of(reached, folder)
    if count == 0:
        sys.exit(f"no lines of {folder}/ are among those that were counted")
    print(f"- {who}: {covered:,} of {count:,} lines of {folder}/ reached ({covered / count:.1%})")
