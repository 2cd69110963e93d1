"""The figures of a run: what Google Benchmark's JSON files say, grouped for people.

A measured thing is called WORKLOAD/TASK/PARTICIPANT; each of its repetitions is one
entry with the milliseconds of one run and the number of units that a run covers.
"""

import json
import statistics
from dataclasses import dataclass, field

import workloads

LIMIT = "limit"
LIBRARY = "Halyard"


class Failed(Exception):
    """A participant could not be measured, or its result was wrong."""


@dataclass
class Figures:
    """All runs of one participant at one task."""

    workload: str
    task: str
    participant: str
    units: float = 1.0
    milliseconds: list = field(default_factory=list)

    @property
    def minimum(self):
        return min(self.milliseconds)

    @property
    def median(self):
        return statistics.median(self.milliseconds)

    @property
    def nanoseconds_a_unit(self):
        return self.minimum * 1e6 / self.units


def read(paths):
    """The figures of all files."""
    found = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            for entry in json.load(file)["benchmarks"]:
                _take(entry, found)
    return list(found.values())


def _take(entry, found):
    workload, task, participant = entry["name"].split("/")[:3]
    if entry.get("error_occurred"):
        raise Failed(f"{workload}, {task}, {participant}: {entry['error_message']}")
    if entry["run_type"] != "iteration":
        return
    key = (workload, task, participant)
    figures = found.setdefault(key, Figures(*key))
    figures.units = entry["units"]
    figures.milliseconds.append(entry["real_time"])


def tasks_of(figures):
    """(workload, task) -> that task's figures, the limit first, then from fast to slow; the
    tasks in the order in which people are shown them."""
    tasks = {}
    for one in figures:
        tasks.setdefault((one.workload, one.task), []).append(one)
    for rows in tasks.values():
        rows.sort(key=lambda one: (one.participant != LIMIT, one.minimum))
    return dict(sorted(tasks.items(), key=lambda item: _place(*item[0])))


def _place(workload, task):
    order = workloads.TASKS.index(task) if task in workloads.TASKS else len(workloads.TASKS)
    return workload, order


def ratio(one, rows):
    """The participant's minimum as a multiple of the limit's; None where there is no limit."""
    limits = [row for row in rows if row.participant == LIMIT]
    return one.minimum / limits[0].minimum if limits else None
