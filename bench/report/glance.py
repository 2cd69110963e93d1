#!/usr/bin/env python3
"""Says in a few lines whether the library's ratios are within their bounds:
python3 glance.py RESULT.json...

It is information: the status is 0 whatever the figures are, 1 where a result was wrong.
"""

import sys

import results
import workloads


def judged(tasks):
    """(workload, task, ratio, bound) of every task that has a bound."""
    for (workload, task), figures in tasks.items():
        bound = workloads.BOUNDS.get((workload, task))
        ours = [one for one in figures if one.participant == results.LIBRARY]
        if bound is not None and ours:
            yield workload, task, results.ratio(ours[0], figures), bound


def main(paths):
    all_judged = list(judged(results.tasks_of(results.read(paths))))
    beyond = [one for one in all_judged if one[2] > one[3]]
    print(f"- speed: {len(all_judged) - len(beyond)} of {len(all_judged)} ratios to hand-written code "
          "within their bounds (for information)")
    for workload, task, ratio, bound in beyond:
        print(f"    {workload}, {task}: {ratio:.1f} times the limit, bound {bound:g}")


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except results.Failed as failure:
        print(f"bench: {failure}", file=sys.stderr)
        sys.exit(1)
