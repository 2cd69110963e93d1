#!/usr/bin/env python3
"""Prints one table for each workload of a run: python3 tables.py RESULT.json...

Minimum and median are over the repetitions; ratios are those of the minima to the limit's.
Ends with status 1 where a participant failed.
"""

import sys

import results
import workloads

HEADINGS = ["task", "participant", "minimum, ms", "median, ms", "ns a {unit}", "of the limit"]


def rows_of(workload, tasks):
    rows = []
    for (name, task), figures in tasks.items():
        if name != workload:
            continue
        for one in figures:
            ratio = results.ratio(one, figures)
            rows.append([
                task if one is figures[0] else "",
                one.participant,
                f"{one.minimum:,.2f}",
                f"{one.median:,.2f}",
                f"{one.nanoseconds_a_unit:,.2f}",
                "" if ratio is None else f"{ratio:.2f}",
            ])
    return rows


def plain(headings, rows, words=2):
    """A table for a terminal; the first columns hold words, the others numbers."""
    widths = [max(len(row[i]) for row in [headings] + rows) for i in range(len(headings))]
    for row in [headings] + rows:
        cells = [row[i].ljust(widths[i]) if i < words else row[i].rjust(widths[i]) for i in range(len(row))]
        print("  " + "  ".join(cells).rstrip())


def markdown(headings, rows, words=2):
    """The same table for a document."""
    print("| " + " | ".join(headings) + " |")
    print("|" + "---|" * words + "---:|" * (len(headings) - words))
    for row in rows:
        print("| " + " | ".join(row) + " |")


def main(paths):
    tasks = results.tasks_of(results.read(paths))
    for workload in sorted({name for name, _ in tasks}):
        headings = [heading.format(unit=workloads.UNITS[workload]) for heading in HEADINGS]
        print(f"{workload}: {workloads.TITLES[workload]}")
        print(f"  limit: {workloads.LIMITS[workload]}")
        plain(headings, rows_of(workload, tasks))
        print()


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except results.Failed as failure:
        print(f"bench: {failure}", file=sys.stderr)
        sys.exit(1)
