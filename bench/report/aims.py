"""The library beside what it aims at: one row for each task that has an aim."""

import results
import workloads

HEADINGS = ["", "task", "Halyard", "aim", "best rival"]


def rows_of(tasks):
    """The rows of all tasks, and how many of them reach their aim."""
    rows = []
    reached = 0
    for (workload, task), figures in tasks.items():
        ours = [one for one in figures if one.participant == results.LIBRARY]
        if not ours or (workload, task) not in workloads.AIMS:
            continue
        aim, unit = workloads.AIMS[workload, task]
        value = _measured(ours[0], figures, unit)
        met = round(value, 2) <= aim
        reached += met
        rows.append([workload, task, _shown(value, unit) + ("" if met else " (missed)"), _shown(aim, unit),
                     _best_rival(figures, unit)])
    return rows, reached


def _measured(one, figures, unit):
    return results.ratio(one, figures) if unit == "ratio" else one.nanoseconds_a_unit


def _shown(value, unit):
    return f"{value:.2f}" if unit == "ratio" else f"{value:.1f} ns"


def _best_rival(figures, unit):
    rivals = [one for one in figures
              if one.participant not in workloads.OTHER_LIMITS and not one.participant.startswith(results.LIBRARY)]
    if not rivals:
        return ""
    best = min(rivals, key=lambda one: one.minimum)
    return f"{_shown(_measured(best, figures, unit), unit)} ({best.participant})"
