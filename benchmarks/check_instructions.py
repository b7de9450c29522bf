"""check_instructions.py KEPT MEASURED TOOLS [--renew]: holds counts of instructions against those that are kept.

KEPT and MEASURED hold a line "WORK<TAB>INSTRUCTIONS" per work; in KEPT the first line is a comment that names what was counted
with, as TOOLS does here. The status is 1 if a work has grown by more than LIMIT, is missing in one of the two, or was not counted.
A work that has shrunk by more is told, and is no failure. With --renew KEPT becomes what was measured.
"""
import pathlib
import sys

LIMIT = 5  # per cent
RENEW = "If that is wanted: scripts/bench --guard --renew, and commit benchmarks/instructions.tsv."


def counts_in(text):
    lines = [line for line in text.splitlines() if line and not line.startswith("#")]
    return {work: int(count) for work, count in (line.split("\t") for line in lines)}


def tools_in(text):
    return text.splitlines()[0].removeprefix("# ") if text.startswith("# ") else ""


def main(kept_file, measured_file, tools, renew):
    measured = counts_in(measured_file.read_text())
    if not measured:
        sys.exit("No work was counted.")
    if renew:
        lines = [f"# {tools}"] + [f"{work}\t{count}" for work, count in sorted(measured.items())]
        kept_file.write_text("\n".join(lines) + "\n")
        return 0
    text = kept_file.read_text()
    kept = counts_in(text)
    failures, shrunk = [], []
    for work in sorted(kept.keys() | measured.keys()):
        if work not in measured:
            failures.append(f"{work}: was not counted")
        elif work not in kept:
            failures.append(f"{work}: has no kept count")
        else:
            before, now = kept[work], measured[work]
            told = f"{work}: {before:,} instructions before, {now:,} now ({now / before - 1:+.1%})"
            print(told)
            if 100 * now > (100 + LIMIT) * before:
                failures.append(told)
            elif 100 * now < (100 - LIMIT) * before:
                shrunk.append(told)
    if shrunk:
        print(f"Shrunk by more than {LIMIT} per cent:", *shrunk, "Keep the gain: scripts/bench --guard --renew.", sep="\n  ")
    if failures:
        print(f"Grown by more than {LIMIT} per cent, or not comparable:", *failures, RENEW, sep="\n  ", file=sys.stderr)
        if tools_in(text) != tools:
            print(f"  The kept counts are of {tools_in(text)}; these are of {tools}.", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    arguments = [argument for argument in sys.argv[1:] if argument != "--renew"]
    if len(arguments) != 3:
        sys.exit(__doc__)
    sys.exit(main(pathlib.Path(arguments[0]), pathlib.Path(arguments[1]), arguments[2], "--renew" in sys.argv))
