"""The shortest way to write a column's cells with ExpectedCells, as a person would."""

from .cpp import literal, text_list

MOST_PERIOD = 64


def _calls(pieces):
    return "".join(pieces)


def _grown(cells):
    """Runs, repeated sequences and single cells, from nothing on: the cheapest chain of calls."""
    count = len(cells)
    # match[p][i]: how many cells from i on equal those p further on.
    periods = range(1, min(MOST_PERIOD, count // 2) + 1)
    match = {}
    for period in periods:
        lengths = [0] * (count + 1)
        for i in range(count - period - 1, -1, -1):
            lengths[i] = lengths[i + 1] + 1 if cells[i] == cells[i + period] else 0
        match[period] = lengths
    # best[i]: (cost, next place, call) of the cells from i on.
    best = [None] * (count + 1)
    best[count] = (0, count, "")
    literals = [literal(cell) for cell in cells]
    for i in range(count - 1, -1, -1):
        options = [(best[i + 1][0] + len(literals[i]) + 6, i + 1, f".Add({literals[i]})")]
        # Several different cells side by side stand in one list.
        total = 12
        for end in range(i + 1, min(i + MOST_PERIOD, count) + 1):
            total += len(literals[end - 1]) + 2
            if end - i > 1:
                options.append((best[end][0] + total, end, (i, end)))
        for period in periods:
            if i + 2 * period > count:
                break
            times = match[period][i] // period + 1
            if times < 2:
                continue
            end = i + times * period
            if period == 1:
                call = f".Repeat({times}, {literals[i]})"
            else:
                call = f".RepeatAll({times}, {text_list(cells[i:i + period])})"
            options.append((best[end][0] + len(call), end, call))
        best[i] = min(options, key=lambda option: option[0])
    calls, i = [], 0
    while i < count:
        _, end, call = best[i]
        if isinstance(call, tuple):
            call = f".AddAll({text_list(cells[call[0]:call[1]])})"
        calls.append(call)
        i = end
    return "ExpectedCells()" + _calls(calls)


def _runs(cells):
    runs, start = [], 0
    for i in range(1, len(cells) + 1):
        if i == len(cells) or cells[i] != cells[start]:
            runs.append((start, i - 1, cells[start]))
            start = i
    return runs


def _filled_by_ranges(cells):
    calls = []
    for first, last, cell in _runs(cells):
        if cell:
            calls.append(f".Row({first}, {literal(cell)})" if first == last
                         else f".Range({first}, {last}, {literal(cell)})")
    return calls


def _filled_by_remainders(cells):
    """One call per text where each text stands in every row of one remainder between its first and last."""
    calls = []
    for cell in dict.fromkeys(cells):
        if not cell:
            continue
        rows = [i for i, other in enumerate(cells) if other == cell]
        steps = {b - a for a, b in zip(rows, rows[1:])}
        if len(steps) > 1:
            return None
        if not steps:
            calls.append(f".Row({rows[0]}, {literal(cell)})")
            continue
        step = steps.pop()
        calls.append(f".Range({rows[0]}, {rows[-1]}, {literal(cell)})" if step == 1 else
                     f".Remainder({rows[0]}, {rows[-1]}, {step}, {rows[0] % step}, {literal(cell)})")
    return calls


def _filled_by_groups(cells):
    """Groups of equal size that each hold one text in the same rows of the group."""
    filled = [i for i, cell in enumerate(cells) if cell]
    if not filled:
        return None
    first = filled[0]
    runs = [run for run in _runs(cells) if run[2]]
    length = runs[0][1] - runs[0][0] + 1
    if len(runs) < 3 or any(last - start + 1 != length for start, last, _ in runs):
        return None
    steps = {b[0] - a[0] for a, b in zip(runs, runs[1:])}
    if len(steps) != 1:
        return None
    size = steps.pop()
    return [f".Groups({first}, {size}, 0, {length - 1}, {text_list([cell for _, _, cell in runs])})"]


def expression(cells):
    """C++ text of a std::vector<wxString> with these cells."""
    ways = [_grown(cells) + ".Cells()"]
    if "" in cells:
        for calls in (_filled_by_ranges(cells), _filled_by_remainders(cells), _filled_by_groups(cells)):
            if calls is not None:
                ways.append(f"ExpectedCells::Blank({len(cells)}){_calls(calls)}.Cells()")
    # A list says the same as plainly where nothing repeats.
    if len(cells) <= MOST_PERIOD:
        ways.append(text_list(cells))
    return min(ways, key=len)
