#!/usr/bin/env python3
"""Brings a run's figures into docs/performance.md: python3 document.py RESULTS_FOLDER

The text between <!-- NAME --> and <!-- end --> is replaced by the figures of that name:
"machine", "aims", a workload ("W1"), or an axis of growth ("records"). Charts go to
docs/performance/.
"""

import contextlib
import io
import json
import pathlib
import re
import sys

import aims
import charts
import growth
import results
import tables
import workloads

DOCUMENT = pathlib.Path("docs/performance.md")
CHARTS = pathlib.Path("docs/performance")


def machine(folder):
    facts = json.loads((folder / "machine.json").read_text(encoding="utf-8"))
    return "| | |\n|---|---|\n" + "".join(f"| {name} | {value} |\n" for name, value in facts.items())


def printed(show):
    """What a function prints."""
    text = io.StringIO()
    with contextlib.redirect_stdout(text):
        show()
    return text.getvalue()


def workload(name, path):
    tasks = results.tasks_of(results.read([path]))
    chart = CHARTS / f"{name}.svg"
    charts.ratios(f"{name}: {workloads.TITLES[name]}", {task: figures for (_, task), figures in tasks.items()}, chart)
    headings = [heading.format(unit=workloads.UNITS[name]) for heading in tables.HEADINGS]
    table = printed(lambda: tables.markdown(headings, tables.rows_of(name, tasks)))
    return f"Limit: {workloads.LIMITS[name]}.\n\n{table}\n![{name}](performance/{chart.name})\n"


def all_aims(folder):
    paths = [folder / f"{name}.json" for name in workloads.TITLES]
    rows, reached = aims.rows_of(results.tasks_of(results.read([path for path in paths if path.exists()])))
    table = printed(lambda: tables.markdown(aims.HEADINGS, rows))
    return f"{reached} of {len(rows)} aims are reached.\n\n{table}"


def axis(name, points):
    own = [point for point in points if point["axis"] == name]
    chart = CHARTS / f"growth-{name}.svg"
    charts.growth(growth.TITLES[name], own, chart)
    return printed(lambda: growth.show(own, as_markdown=True)) + f"![{name}](performance/{chart.name})\n"


def figures_of(folder):
    """Every name and its figures, as far as the folder has them."""
    found = {"machine": machine(folder), "aims": all_aims(folder)}
    for name in workloads.TITLES:
        path = folder / f"{name}.json"
        if path.exists():
            found[name] = workload(name, path)
    path = folder / "growth.json"
    if path.exists():
        points = json.loads(path.read_text(encoding="utf-8"))
        for name in dict.fromkeys(point["axis"] for point in points):
            found[name] = axis(name, points)
    return found


def main(folder):
    CHARTS.mkdir(exist_ok=True)
    text = DOCUMENT.read_text(encoding="utf-8")
    for name, content in figures_of(folder).items():
        pattern = re.compile(rf"(<!-- {re.escape(name)} -->\n).*?(<!-- end -->)", re.DOTALL)
        text, count = pattern.subn(lambda match, new=content: f"{match[1]}\n{new}\n{match[2]}", text)
        if count != 1:
            sys.exit(f"bench: {DOCUMENT} has {count} places for '{name}' instead of one")
    DOCUMENT.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
