"""Reads an experiment data file as the table does: names of columns, cells, header lines, stimulus areas."""

import pathlib
import re

from .problem import Problem

HEADER_LINES = 6
EXPANSION = "Expansion Time(ms): "
DURATION = "Cumulative\nTime"
PARTICIPANT = "Regression Robot"
DATE = "Thu Jan 01 2026 12:00:00"


def _decoded(path):
    data = path.read_bytes()
    marks = ((b"\xff\xfe\0\0", "utf-32"), (b"\0\0\xfe\xff", "utf-32"), (b"\xff\xfe", "utf-16"),
             (b"\xfe\xff", "utf-16"), (b"\xef\xbb\xbf", "utf-8-sig"))
    encoding = next((name for mark, name in marks if data.startswith(mark)), "utf-8")
    try:
        return data.decode(encoding)
    except UnicodeDecodeError:
        return data.decode("latin-1")


def _cells(line):
    cells = line.split("\t")
    if cells[-1] == "":
        cells.pop()
    return cells


def _visible(cell):
    """Control characters stand in the table in caret form, as in ^G."""
    return "".join("^" + chr(ord(c) + 64) if ord(c) < 32 else c for c in cell)


def _unique(names):
    taken, unique = set(), []
    for name in names:
        name = name.strip(" \t\n\r\v\f")
        while name.upper() in taken:
            name += "#"
        taken.add(name.upper())
        unique.append(name)
    return unique


class DataFile:
    def __init__(self, path):
        self.path = pathlib.Path(path)
        if not self.path.is_file():
            raise Problem(f"{path}: no such file.")
        lines = re.split("\r\n|\n|\r", _decoded(self.path))
        if lines and lines[-1] == "":
            lines.pop()
        if len(lines) <= HEADER_LINES:
            raise Problem(f"{path}: a data file has six header lines and at least one row; this one has "
                          f"{len(lines)} lines.")
        self.lines = lines
        first, second = lines[4].split("\t"), lines[5].split("\t")
        names = [a + ("\n" + second[i] if i < len(second) else "") for i, a in enumerate(_cells(lines[4]))]
        names += [cell for cell in _cells(lines[5])[len(names):]]
        if not names:
            raise Problem(f"{path}: lines 5 and 6 hold no column headings.")
        del first
        self.columns = _unique(names)
        rows = [[_visible(cell) for cell in _cells(line)] for line in lines[HEADER_LINES:]]
        width = len(self.columns)
        if any(len(row) > width for row in rows):
            raise Problem(f"{path}: a row has more cells than there are headings.")
        self.rows = [row + [""] * (width - len(row)) for row in rows]

    def column(self, name):
        index = self.columns.index(name)
        return [row[index] for row in self.rows]

    def _starting_with(self, start):
        return next((name for name in self.columns if name.startswith(start)), None)

    @property
    def duration(self):
        """Milliseconds of the whole run; None if the file does not tell."""
        name = self._starting_with(DURATION)
        text = self.column(name)[-1] if name else ""
        return int(text) if re.fullmatch(r"-?\d+", text) else None

    @property
    def expansion(self):
        name = self._starting_with(EXPANSION)
        text = name[len(EXPANSION):] if name else ""
        return int(text) if re.fullmatch(r"\d+", text) else None

    def neutral_text(self):
        """The file as a sample: without the person's name and the date of the run."""
        participant = self.lines[0].strip()
        rows = []
        for line in self.lines[HEADER_LINES:]:
            cells = [PARTICIPANT if participant and cell == participant else cell for cell in line.split("\t")]
            rows.append("\t".join(cells))
        header = [PARTICIPANT, self.lines[1], DATE, "Ombrelia data file"]
        return "\n".join(header + self.lines[4:6] + rows) + "\n"

    @property
    def area_file(self):
        path = self.path.with_suffix(".stimareas.tsv")
        return path if path.is_file() else None
