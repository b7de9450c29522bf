"""Holds an existing verifier against a new good run, as far as its source is of the usual forms: columns that are
compared with a list or with ExpectedCells, and bounds."""

import difflib
import math
import re

from . import bounds as run_times
from . import expected_cells
from .columns import shown
from .problem import Problem

_TEXT = r'wxT\("((?:[^"\\]|\\.)*)"\)'
# A column, and the operation that gives its expected cells.
_COMPARISON = re.compile(r"VerifyVerbatimColumnContent\(\s*" + _TEXT + r"\s*,\s*(\w+)\(\)\s*\)")
_TARGET = re.compile(r"GetTargetedColumnName\(\) override \{\s*static const wxString \w+ = " + _TEXT)
_LINE_OF_BOUNDS_TSV = {
    ("PerformDurationBoundsTest", "true"): "duration",
    ("PerformDurationBoundsTest", "false"): "duration_all",
    ("PerformBoundsTest", "true"): "expansion",
    ("PerformBoundsTest", "false"): "expansion_all",
}
_BOUND = re.compile(r"(PerformDurationBoundsTest|PerformBoundsTest)\((-?\d+), (-?\d+), "
                    r"(?:EXPANSION_TIME_COLUMN_NAME, true, )?(true|false)\)")


def _unescaped(text):
    def one(match):
        escape = match.group(1)
        if escape[0] in "uU":
            return chr(int(escape[1:], 16))
        if escape[0] in "01234567":
            return chr(int(escape, 8))
        return {"n": "\n", "t": "\t"}.get(escape, escape)
    return re.sub(r"\\(u[0-9a-fA-F]{4}|U[0-9a-fA-F]{8}|[0-7]{1,3}|.)", one, text)


class _Evaluator:
    """Reads the C++ text of a table of expected cells."""

    _TOKEN = re.compile(r'\s*(?:wxT\(((?:\s*"(?:[^"\\]|\\.)*")+)\s*\)|(\d+)|(\w+(?:::\w+)?)|([(){},.]))')

    def __init__(self, text):
        self.tokens, place = [], 0
        text = text.strip()
        while place < len(text):
            match = self._TOKEN.match(text, place)
            if not match:
                raise ValueError(text[place:])
            literal, number, word, mark = match.groups()
            if literal is not None:
                parts = re.findall(r'"((?:[^"\\]|\\.)*)"', literal)
                self.tokens.append(("text", _unescaped("".join(parts))))
            else:
                self.tokens.append(("number", int(number)) if number else ("mark", word or mark))
            place = match.end()
        self.place = 0

    def _take(self, *expected):
        kind, value = self.tokens[self.place] if self.place < len(self.tokens) else ("end", None)
        if expected and value not in expected:
            raise ValueError(value)
        self.place += 1
        return kind, value

    def _list(self):
        self._take("{")
        cells = []
        while self.tokens[self.place][1] != "}":
            kind, value = self._take()
            if kind != "text":
                raise ValueError(value)
            cells.append(value)
            if self.tokens[self.place][1] == ",":
                self._take(",")
        self._take("}")
        return cells

    def _arguments(self):
        self._take("(")
        arguments = []
        while self.tokens[self.place] != ("mark", ")"):
            if self.tokens[self.place] == ("mark", "{"):
                arguments.append(self._list())
            else:
                kind, value = self._take()
                if kind == "mark":
                    raise ValueError(value)
                arguments.append(value)
            if self.tokens[self.place] == ("mark", ","):
                self._take(",")
        self._take(")")
        return arguments

    def cells(self):
        if self.tokens[0] == ("mark", "{"):
            cells = self._list()
        else:
            start = self._take("ExpectedCells", "ExpectedCells::Blank")[1]
            arguments = self._arguments()
            cells = [""] * arguments[0] if start != "ExpectedCells" else []
            while True:
                self._take(".")
                call, values = self._take()[1], self._arguments()
                if call == "Cells":
                    break
                cells = _filled(cells, call, values)
        if self.place != len(self.tokens):
            raise ValueError(self.tokens[self.place])
        return cells


def _filled(cells, call, values):
    cells = list(cells)
    if call in ("Add", "Repeat"):
        return cells + ([values[0]] if call == "Add" else [values[1]] * values[0])
    if call in ("AddAll", "RepeatAll"):
        return cells + (values[0] if call == "AddAll" else values[1] * values[0])
    if call == "Row":
        values = [values[0], values[0], 1, 0, values[1]]
    elif call == "Range":
        values = [values[0], values[1], 1, 0, values[2]]
    elif call == "From":
        for i, cell in enumerate(values[1]):
            cells[values[0] + i] = cell
        return cells
    elif call == "Groups":
        first, size, start, end, group_cells = values
        for group, cell in enumerate(group_cells):
            for row in range(first + group * size + start, first + group * size + end + 1):
                cells[row] = cell
        return cells
    elif call != "Remainder":
        raise ValueError(call)
    first, last, divisor, remainder, cell = values
    for row in range(first, last + 1):
        if row % divisor == remainder:
            cells[row] = cell
    return cells


class Column:
    def __init__(self, name, start, end, cells):
        self.name, self.start, self.end, self.cells = name, start, end, cells  # of the table's text


class Bounds:
    def __init__(self, match):
        operation, self.minimum, self.maximum = match.group(1), int(match.group(2)), int(match.group(3))
        self.start, self.end, self.text = match.start(), match.end(), match.group()
        self.is_duration = operation == "PerformDurationBoundsTest"
        self.call = _LINE_OF_BOUNDS_TSV[operation, match.group(4)]

    def time_of(self, file):
        return file.duration if self.is_duration else file.expansion

    def widened(self, time):
        step = run_times.STEP
        low = self.minimum if time >= self.minimum else max(0, time * 95 // 100 // step * step)
        high = self.maximum if time <= self.maximum else math.ceil((time * 1.25 + 100) / step) * step
        return low, high


class Source:
    """What can be held against a data file without running the verifier."""

    def __init__(self, text):
        self.text = text
        self.columns, self.foreign = [], []
        comparisons = [(_unescaped(match.group(1)), match.group(2)) for match in _COMPARISON.finditer(text)]
        target = _TARGET.search(text)
        if target:
            comparisons.append((_unescaped(target.group(1)), "GetExpectedCellValuesForTargetedColumn"))
        for name, operation in comparisons:
            table = re.search(operation + r"\(\)[^{;]*\{\s*static const [^;=(]*(?:=\s|\(new std::vector<wxString>)", text)
            end = text.find(";", table.end()) if table else -1
            # A semicolon within a literal does not end the table.
            while end != -1 and text[table.end():end].replace('\\"', "").count('"') % 2:
                end = text.find(";", end + 1)
            body = text[table.end():end] if table else ""
            if table and table.group().endswith("wxString>"):
                body = body[:-1]
            try:
                self.columns.append(Column(name, table.end(), table.end() + len(body), _Evaluator(body).cells()))
            except (ValueError, AttributeError, IndexError, TypeError):
                self.foreign.append(name)
        self.bounds = [Bounds(match) for match in _BOUND.finditer(text)]

    def accepts(self, file):
        columns = all(column.name in file.columns and column.cells == file.column(column.name)
                      for column in self.columns)
        return columns and all(bound.minimum <= bound.time_of(file) <= bound.maximum for bound in self.bounds
                               if bound.time_of(file) is not None)

    def fitted_to(self, file):
        """The source as the run demands it, and a word for each change."""
        changes, words = [], []
        for column in self.columns:
            if column.name not in file.columns:
                raise Problem(f"{file.path} has no column {shown(column.name)}, which the verifier compares.")
            cells = file.column(column.name)
            if cells != column.cells:
                changes.append((column.start, column.end, expected_cells.expression(cells)))
                words.append(f"{shown(column.name)}: {_difference(column.cells, cells)}")
        for bound in self.bounds:
            time = bound.time_of(file)
            if time is None or bound.minimum <= time <= bound.maximum:
                continue
            low, high = bound.widened(time)
            new = bound.text.replace(f"({bound.minimum}, {bound.maximum}", f"({low}, {high}", 1)
            changes.append((bound.start, bound.end, new))
            words.append(f"{bound.call}: {time} ms lie outside {bound.minimum} to {bound.maximum}")
        text = self.text
        for start, end, new in sorted(changes, reverse=True):
            text = text[:start] + new + text[end:]
        return text, words


def _difference(expected, actual):
    if len(expected) != len(actual):
        return f"{len(actual)} rows in place of {len(expected)}"
    rows = [i for i, (a, b) in enumerate(zip(expected, actual)) if a != b]
    return (f"{len(rows)} of {len(actual)} rows differ, the first is row {rows[0]}: "
            f"“{actual[rows[0]]}” in place of “{expected[rows[0]]}”")


def diff(file, old, new):
    return "".join(difflib.unified_diff(old.splitlines(True), new.splitlines(True), f"a/{file}", f"b/{file}"))


def bounds_table(text, experiment, old, new):
    """tests/verifiers/bounds.tsv with the lines of the experiment as the fitted source has them."""
    lines = text.splitlines(True)
    for before, after in zip(old.bounds, new.bounds):
        line = f"{experiment}\t{before.call}\t{before.minimum}\t{before.maximum}\n"
        if line in lines:
            lines[lines.index(line)] = f"{experiment}\t{after.call}\t{after.minimum}\t{after.maximum}\n"
    return "".join(lines)
