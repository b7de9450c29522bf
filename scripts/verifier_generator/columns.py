"""What the columns of good runs hold, which of them a verifier should compare, and by which rule."""

import collections
import re

from . import data_file

# Times, responses and names of people differ from run to run or say nothing about the design.
OF_TIME_OR_PERSON = {"Participant\nName", "Reaction\nTime", data_file.DURATION, "Participant\nResponse",
                     "Error\nCode"}
MOST_TEXTS_SHOWN = 4


def is_number(text):
    return re.fullmatch(r"-?\d+(\.\d+)?", text) is not None


def shown(name):
    return name.replace("\n", "\\n")


class Rule:
    """How a column of several runs is held: row by row, or by what all runs have in common."""

    def __init__(self, kind, words, **facts):
        self.kind = kind  # "verbatim", "any order", "counts", "last row", "none"
        self.words = words
        self.__dict__.update(facts)


def _blocks(runs):
    """The smallest blocks of rows, one after the other, in which all runs hold the same texts."""
    blocks, start = [], 0
    open_counts = [collections.Counter() for _ in runs]
    for row in range(len(runs[0])):
        for counts, run in zip(open_counts, runs):
            counts[run[row]] += 1
        if all(counts == open_counts[0] for counts in open_counts):
            blocks.append((start, row))
            start = row + 1
            open_counts = [collections.Counter() for _ in runs]
    return blocks if start == len(runs[0]) else None


def _joined(blocks, runs):
    """Neighbouring blocks of one row each, equal in all runs, become one stretch of fixed rows."""
    joined = []
    for first, last in blocks:
        fixed = first == last
        if joined and fixed and joined[-1][2]:
            joined[-1] = (joined[-1][0], last, True)
        else:
            joined.append((first, last, fixed))
    return joined


def rule_of(name, files):
    """The nearest rule that all runs keep."""
    runs = [file.column(name) for file in files]
    if all(run == runs[0] for run in runs):
        return Rule("verbatim", "the same in all runs" if len(runs) > 1 else "compared row by row",
                    cells=runs[0])
    lengths = {len(run) for run in runs}
    if len(lengths) == 1:
        blocks = _blocks(runs)
        if blocks is not None:
            stretches = _joined(blocks, runs)
            shuffled = [f"{first} to {last}" for first, last, fixed in stretches if not fixed]
            return Rule("any order", "shuffled within rows " + ", ".join(shuffled), cells=runs[0],
                        stretches=stretches)
    counts = [collections.Counter(run) for run in runs]
    common = {text: counts[0][text] for text in counts[0]
              if all(other[text] == counts[0][text] for other in counts)}
    if common and len(lengths) == 1:
        return Rule("counts", "drawn from a set; the counts of " + ", ".join(f"“{t}”" for t in common) + " are fixed",
                    counts=common, last=len(runs[0]) - 1)
    if len({run[-1] for run in runs}) == 1:
        return Rule("last row", "differs; only the last row is the same", text=runs[0][-1],
                    last=len(runs[0]) - 1 if len(lengths) == 1 else None)
    return Rule("none", "differs from run to run in texts and counts")


def is_of_the_design(name, files):
    if name in OF_TIME_OR_PERSON or name.startswith(data_file.EXPANSION):
        return False
    texts = {text for file in files for text in file.column(name)}
    if len(texts) < 2 and len(files[0].rows) > 1:
        return False  # never changes: says little
    numbers = [text for text in texts if is_number(text)]
    # Times rise from row to row and hardly repeat.
    if numbers and len(numbers) == len(texts) and len(texts) == len(files[0].rows) > 3:
        return False
    return True


def description(name, files):
    cells = [text for file in files for text in file.column(name)]
    counts = collections.Counter(cells)
    empty = counts.pop("", 0)
    texts = ", ".join(f"{count} × “{text if len(text) < 30 else text[:27] + '…'}”"
                      for text, count in list(counts.items())[:MOST_TEXTS_SHOWN])
    more = f", … ({len(counts)} different)" if len(counts) > MOST_TEXTS_SHOWN else ""
    return f"{texts or 'nothing'}{more}" + (f"; {empty} empty" if empty and texts else "")


def proposed(files):
    held = [name for name in files[0].columns
            if all(name in file.columns for file in files) and rule_of(name, files).kind != "none"]
    columns = [name for name in held if is_of_the_design(name, files)]
    # Where nothing varies, the number of equal events is the design.
    return columns or [name for name in held if name == "Event\nName"]
