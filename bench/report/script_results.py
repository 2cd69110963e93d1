#!/usr/bin/env python3
"""Turns what member_access.vbs prints (standard input) into the JSON of the other
workloads (standard output): python3 script_results.py CALLS

Ends with status 1 where the script did not come to its end.
"""

import json
import sys


def main(calls):
    lines = [line.strip() for line in sys.stdin if line.strip()]
    if not lines or lines[-1] != "done":
        print("bench: the script did not come to its end", file=sys.stderr)
        sys.exit(1)
    entries = []
    for line in lines[:-1]:
        task, participant, milliseconds = line.split()
        entries.append({
            "name": f"W7/{task}/{participant}",
            "run_type": "iteration",
            "real_time": float(milliseconds),
            "units": calls,
        })
    json.dump({"benchmarks": entries}, sys.stdout, indent=1)


if __name__ == "__main__":
    main(int(sys.argv[1]))
