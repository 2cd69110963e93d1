"""Draws a run's figures as SVG files: ratios to the limit, and curves of growth."""

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402 (the kind of output is chosen first)

import results  # noqa: E402

# Text stays text, and the same figures give the same file.
plt.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "halyard", "font.size": 9, "font.family": "sans-serif"})

OURS = "#1f5fa8"
LIMIT = "#9aa0a6"
RIVALS = "#d9a441"


def _colour(participant):
    if participant == results.LIMIT:
        return LIMIT
    return OURS if participant.startswith(results.LIBRARY) else RIVALS


def _save(figure, path):
    figure.savefig(path, metadata={"Date": None}, bbox_inches="tight")
    plt.close(figure)


def ratios(title, tasks, path):
    """Bars of one workload: a group for each task, one bar for each participant."""
    bars = []
    for task, figures in tasks.items():
        bars.append((task, None, None))
        bars += [(one.participant, results.ratio(one, figures), _colour(one.participant)) for one in figures]
    figure, axes = plt.subplots(figsize=(7, 0.6 + 0.2 * len(bars)))
    for row, (label, ratio, colour) in enumerate(bars):
        if ratio is None:
            axes.text(0, row, label, va="center", ha="right", weight="bold", transform=axes.get_yaxis_transform())
        else:
            axes.barh(row, ratio, color=colour, height=0.75)
            axes.text(ratio, row, f" {ratio:.2g}" if ratio < 10 else f" {ratio:.0f}", va="center")
    axes.set_xscale("log")
    axes.set_yticks([row for row, bar in enumerate(bars) if bar[1] is not None])
    axes.set_yticklabels([bar[0] for bar in bars if bar[1] is not None])
    axes.invert_yaxis()
    axes.margins(x=0.1)
    axes.set_xlabel("time as a multiple of the limit (shorter is faster)")
    axes.set_title(title)
    axes.spines[["top", "right"]].set_visible(False)
    _save(figure, path)


def growth(title, points, path):
    """Curves of one axis: nanoseconds for one unit of work against the number of units."""
    figure, axes = plt.subplots(figsize=(7, 3.2))
    for task in dict.fromkeys(point["task"] for point in points):
        own = [point for point in points if point["task"] == task]
        axes.plot([point["size"] for point in own], [point["nanoseconds"] for point in own], marker="o",
                  markersize=3, label=task)
    axes.set_xscale("log")
    axes.set_yscale("log")
    axes.set_ylabel("nanoseconds a unit")
    axes.set_title(title)
    axes.grid(True, which="major", linewidth=0.3)
    axes.legend(fontsize=8, bbox_to_anchor=(1.01, 1), loc="upper left", frameon=False)
    axes.spines[["top", "right"]].set_visible(False)
    _save(figure, path)
