"""make_table.py RESULTS... [--document FILE]: turns the results of whole runs of scripts/bench into tables.

RESULTS are the folders of the runs, each with the JSON results of the benchmark programs, counts.txt and machine.txt. A
figure is the median of the runs, with their spread beside it; a goal is met if every run met it. The tables are printed,
and replace what stands between the two marks of the document. A result that is missing is shown as not measured.
"""
import argparse
import json
import math
import pathlib
import re
import statistics
import sys

BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"


class Results:
    """The rounds of every benchmark: milliseconds, and the counters beside them."""

    def __init__(self, folder):
        self.times, self.counters = {}, {}
        for file in sorted(folder.glob("*.json")):
            for run in json.loads(file.read_text())["benchmarks"]:
                if run["run_type"] != "iteration":
                    continue
                name = re.sub(r"/(iterations|repeats):\d+|/manual_time", "", run["run_name"])
                if run.get("error_occurred"):
                    sys.exit(f"{name}: {run['error_message']}")
                scale = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[run["time_unit"]]
                self.times.setdefault(name, []).append(run["real_time"] * scale)
                for counter, number in run.items():
                    if isinstance(number, (int, float)):
                        self.counters.setdefault((name, counter), []).append(number)

    def time(self, name):
        return statistics.median(self.times[name])

    def counter(self, name, counter):
        return statistics.median(self.counters[name, counter])


def ratio(work, base, factor=1.0):
    return lambda results: results.time(work) / results.time(base) / factor


SIZES = ("1e4", "1e5", "1e6", "1e7")


def growth(cost):
    """The dearest row of all sizes over that of the smallest. cost takes the results and a benchmark's name."""

    def spread(results):
        costs = []
        for size in SIZES:
            try:
                costs.append(cost(results, f"grow/{size}"))
            except KeyError:
                break
        note = "" if len(costs) == len(SIZES) else f" (measured to {SIZES[len(costs) - 1]} rows only)"
        return max(costs) / costs[0], note

    return spread


def load_cost(results, name):
    return results.time(name) / results.counter(name, "rows")


def sort_cost(counter):
    def cost(results, name):
        rows = results.counter(name, "rows")
        return results.counter(name, counter) / (rows * math.log2(rows))

    return cost


GOALS = [
    ("load 1 MiB ASCII, warm, through the table, notification included / `wxTextFile::Open`",
     ratio("load/ascii", "open/ascii"), 0.25),
    ("the same, peak memory, bytes per byte",
     lambda results: results.counter("peak-memory-load", "bytes_per_byte"), 2),
    ("load 1 MiB with accents in UTF-8 / `wxTextFile::Open`", ratio("load/utf8", "open/utf8"), 0.3),
    ("load Latin-1 / `wxTextFile::Open`", ratio("load/latin1", "open/latin1"), 0.35),
    ("load with control characters in cells / `wxTextFile::Open`", ratio("load/control", "open/control"), 0.35),
    ("load UTF-16 / `wxTextFile::Open`", ratio("load/utf16", "open/utf16"), 0.7),
    ("load 200 x 256 KiB, one batch, fresh process / the opens alone", ratio("load-batch", "open-files"), 0.15),
    ("load 200 x 256 KiB, one batch, fresh process / DuckDB", ratio("load-batch", "load-duckdb"), 1 / 5),
    ("load 200 x 256 KiB with accents in UTF-8, one batch, fresh process / DuckDB",
     ratio("load-batch-utf8", "load-duckdb-utf8"), 1 / 5),
    ("sort by text, few values / DuckDB", ratio("sort/first/few", "sort/duckdb/few"), 0.3),
    ("sort by text, many values / DuckDB", ratio("sort/first/many", "sort/duckdb/many"), 0.7),
    ("sort by text, 30-character texts / DuckDB", ratio("sort/first/long", "sort/duckdb/long"), 0.6),
    ("sort by reaction time / DuckDB", ratio("sort/first/reaction_time", "sort/duckdb/reaction_time"), 0.6),
    ("distinct of few values / DuckDB", ratio("query/first/distinct_few", "query/duckdb/distinct_few"), 0.8),
    ("distinct of many values / DuckDB", ratio("query/first/distinct_many", "query/duckdb/distinct_many"), 1.5),
    ("where / DuckDB", ratio("query/first/where", "query/duckdb/where"), 1.2),
    ("where, after a sort that leaves neighbours far apart / DuckDB",
     ratio("query/sorted/where", "query/duckdb/where"), 2),
    ("read a column after a sort / DuckDB", ratio("query/first/read_column", "query/duckdb/read_column"), 2),
    ("read a column after a sort that leaves neighbours far apart / DuckDB",
     ratio("query/sorted/read_column", "query/duckdb/read_column"), 4),
    ("search by a predicate that reads one cell by the record's subscript / where",
     ratio("query/first/predicate", "query/first/where"), 5),
    ("where, after such a search / before", ratio("query/searched/where", "query/first/where"), 1.1),
    ("distinct of few values, after such a search / before",
     ratio("query/searched/distinct_few", "query/first/distinct_few"), 1.1),
    ("sort by text, few values, after such a search / before",
     ratio("query/searched/sort_few", "query/unsearched/sort_few"), 1.1),
    ("distinct of a file of 1 MiB whose texts are alike in eight bits of every character / of an ordinary one",
     ratio("query/letters/alike", "query/letters/ordinary"), 20),
    ("200 notified loads / one batch", ratio("load-notified", "load-batch"), 1.1),
    ("200 notified loads into a derived table that overrides the steps / one batch",
     ratio("load-notified-viewer", "load-batch"), 4),
    ("68 samples through the plug-in, process start included / the same comparisons as pytest with `--junitxml`",
     ratio("samples/plugin", "samples/pytest"), 1 / 12),
    ("68 samples, the plug-in in a process of its own / the program before that, with the plug-in in its own process",
     ratio("samples/plugin", "samples/former"), 1.15),
    ("10,000 data files through the plug-in, per file / the 68 samples, per file",
     ratio("many-samples/jobs-1", "samples/plugin", 10000 / 68), 1),
    ("growth of the load's time per row, 10^4 to 10^7 rows: dearest / 10^4", growth(load_cost), 1.5),
    ("growth of a sort by few values, time per n log n: dearest / 10^4",
     growth(sort_cost("sort_few_seconds")), 1.5),
    ("growth of a sort by many values, time per n log n: dearest / 10^4",
     growth(sort_cost("sort_many_seconds")), 1.5),
]

# tabulon-cli as a whole process beside each peer, for each of its works.
GOALS += [
    (f"tabulon-cli, {title} / {peer}", ratio(f"cli/{work}", f"cli/{peer_work}/{program}"), 1)
    for title, work, peer_work in (
        ("sort 200 files", "sort", "sort"),
        ("where", "where", "where"),
        ("distinct with counts", "distinct", "distinct"),
        ("mean per group", "mean", "mean"),
        ("mean per group by SQL", "mean-sql", "mean"),
    )
    for peer, program in (("Miller", "miller"), ("DuckDB", "duckdb"), ("pandas", "pandas"))
]

BOUNDS = [
    ("load through the in-memory reader / `wxTextFile::Open`", ratio("load/in_memory", "open/ascii"), 0.25),
    ("start of the plug-in and first report beyond wx, ms", lambda results: results.time("start-plugin"), 5),
    ("report of 100,000 results in one suite, ms", lambda results: results.time("Report/100000"), 100),
    ("report: time per result at 100,000 / at 10,000", ratio("Report/100000", "Report/10000", 10), 1.5),
    ("distinct of few values after a sort by the column, which made its dictionary / DuckDB",
     ratio("query/after_its_sort/distinct_few", "query/duckdb/distinct_few"), 1),
    ("distinct of many values, asked again / DuckDB", ratio("query/again/distinct_many", "query/duckdb/distinct_many"), 3),
    ("10,000 data files, two processes of the plug-in side by side / one",
     ratio("many-samples/jobs-2", "many-samples/jobs-1"), None),
    ("load 200 x 256 KiB, one batch, fresh process / pandas", ratio("load-batch", "load-pandas"), None),
]


def number(value):
    return f"{value:.3g}" if value < 100 else f"{value:,.0f}"


def measured(measure, runs):
    """The figure of each run, and a note; a KeyError or ValueError if some run has no such figure."""
    values, note = [], ""
    for results in runs:
        value = measure(results)
        if isinstance(value, tuple):
            value, note = value
        values.append(value)
    return values, note


def verdict(values, goal):
    if goal is None:
        return ""
    if all(value <= goal for value in values):
        return "ahead"
    return f"**behind**, by {100 * (statistics.median(values) / goal - 1):.0f} %" if statistics.median(
        values) > goal else "**behind** in some run"


def comparison(title, rows, runs):
    lines = [f"| {title} | measured | spread | goal | |", "|---|---|---|---|---|"]
    for work, measure, goal in rows:
        try:
            values, note = measured(measure, runs)
        except (KeyError, ValueError):  # nothing of that name, or no size at all
            lines.append(f"| {work} | not measured | | {number(goal) if goal else ''} | |")
            continue
        spread = f"{number(min(values))} to {number(max(values))}"
        lines.append(f"| {work}{note} | {number(statistics.median(values))} | {spread} | "
                     f"{number(goal) if goal else 'none'} | {verdict(values, goal)} |")
    return lines


def median_line(name, runs, factor=1):
    """runs: the rounds of each run."""
    values = [value * factor for rounds in runs for value in rounds]
    low, _, high = statistics.quantiles(values, n=4) if len(values) > 1 else values * 3
    return f"| {name} | {number(statistics.median(values))} | {number(low)} to {number(high)} | {len(values)} |"


def medians(runs):
    lines = ["| benchmark | median, ms | quartiles, ms | rounds |", "|---|---|---|---|"]
    for name in sorted(set().union(*(results.times for results in runs))):
        lines.append(median_line(name, [results.times.get(name, []) for results in runs]))
    for key in sorted(set().union(*(results.counters for results in runs))):
        name, counter = key
        if re.fullmatch(r"(sort|load|report).*_seconds", counter):
            lines.append(median_line(f"{name}: {counter[:-8]}", [results.counters.get(key, []) for results in runs], 1000))
    return lines


def machines(folders):
    """The lines on the machine; what differs from run to run is told of each."""
    lines = []
    for line in (line for folder in folders for line in (folder / "machine.txt").read_text().splitlines()):
        if line not in lines:
            lines.append(line)
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("results", nargs="+", type=pathlib.Path)
    parser.add_argument("--document", type=pathlib.Path)
    options = parser.parse_args()
    runs = [Results(folder) for folder in options.results]
    counts = [line.split() for line in (options.results[-1] / "counts.txt").read_text().splitlines()]
    whole = f"{len(runs)} whole runs one after the other" if len(runs) > 1 else "one whole run"
    lines = ["## The machine", "", f"- {whole}"] + [f"- {line}" for line in machines(options.results)]
    lines += ["", "## Goals", ""] + comparison("work", GOALS, runs)
    lines += ["", "## Bounds beside the goals", ""] + comparison("work", BOUNDS, runs)
    lines += ["", "## Instructions", "", "| work | instructions |", "|---|---|"]
    lines += [f"| {name} | {int(count):,} |" for name, count in counts]
    lines += ["", "## All medians", ""] + medians(runs)
    text = "\n".join(lines)
    print(text)
    if options.document:
        before, rest = options.document.read_text().split(BEGIN)
        after = rest.split(END)[1]
        options.document.write_text(f"{before}{BEGIN}\n{text}\n{END}{after}")


main()
