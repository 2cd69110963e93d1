#!/usr/bin/env python3
"""Shows how cost grows: python3 growth.py GROWTH.json

One table for each axis: a row for each size, a column for each task, nanoseconds for one
unit of work; then the bytes of one unit for the tasks whose result takes memory.
"""

import json
import sys

import tables

TITLES = {
    "records": "records in a file, per record",
    "members": "members of a record, per member",
    "nesting": "levels of records in records, per level",
    "definitions": "definitions in a session, per definition",
    "arrays": "elements of an array, per element",
}

# A result that takes less than this for one unit takes nothing that grows.
LEAST_BYTES = 0.5


def grid(points, value, wanted):
    """Headings and rows: sizes down, tasks across; empty where nothing was measured."""
    tasks = [task for task in dict.fromkeys(point["task"] for point in points) if wanted(task)]
    cells = {(point["size"], point["task"]): f"{point[value]:,.1f}" for point in points}
    sizes = sorted({point["size"] for point in points})
    rows = [[f"{size:,}"] + [cells.get((size, task), "") for task in tasks] for size in sizes]
    return [""] + tasks, rows


def keeps_memory(points):
    """The tasks whose result takes memory that grows with its size."""
    largest = {}
    for point in points:
        largest[point["task"]] = point["bytes"]  # points come in the order of their size
    return {task for task, size in largest.items() if size > LEAST_BYTES}


def show(points, as_markdown):
    """Prints the tables of one axis."""
    out = tables.markdown if as_markdown else tables.plain
    print("Nanoseconds:\n")
    out(*grid(points, "nanoseconds", lambda task: True), words=1)
    keepers = keeps_memory(points)
    if keepers:
        print("\nBytes that the result takes:\n")
        out(*grid(points, "bytes", lambda task: task in keepers), words=1)
    print()


def main(path):
    with open(path, encoding="utf-8") as file:
        points = json.load(file)
    for axis in dict.fromkeys(point["axis"] for point in points):
        print(f"{TITLES[axis]}\n")
        show([point for point in points if point["axis"] == axis], as_markdown=False)


if __name__ == "__main__":
    main(sys.argv[1])
