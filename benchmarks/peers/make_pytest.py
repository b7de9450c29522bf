"""make_pytest.py SAMPLES FILE: writes a pytest file with one test per sample that compares every column with literal cells.

It stands for what a team would write in place of the plug-in: plain Python, the expected cells in the file, the report by
--junitxml. The expected cells are taken from the samples themselves, so the tests pass and only their time tells something.
"""
import pathlib
import re
import sys

# Goes into the written file; this script uses it too.
READER = '''\
def read_columns(path):
    """The columns of a data file, left to right, as pairs of a name of two lines and a list of cells."""
    with open(path, encoding="utf-8") as file:
        lines = [line.rstrip("\\n") for line in file]
    if len(lines) < 7:
        return []
    upper, lower = lines[4].split("\\t"), lines[5].split("\\t")
    rows = [line.split("\\t") for line in lines[6:]]
    count = max(len(upper), len(lower), max(len(row) for row in rows))
    cell = lambda cells, index: cells[index] if index < len(cells) else ""
    return [
        (cell(upper, index) + "\\n" + cell(lower, index), [cell(row, index) for row in rows])
        for index in range(count)
    ]
'''

scope = {}
exec(READER, scope)

folder = pathlib.Path(sys.argv[1]).resolve()
text = READER
for sample in sorted(folder.glob("*.txt")):
    columns = scope["read_columns"](sample)
    text += f"\n\ndef test_{re.sub(r'[^A-Za-z0-9]', '_', sample.stem)}():\n"
    text += f"    columns = read_columns({str(sample)!r})\n"
    text += f"    assert len(columns) == {len(columns)}\n"
    for index, (name, cells) in enumerate(columns):
        text += f"    assert columns[{index}][0] == {name!r}\n"
        text += f"    assert columns[{index}][1] == {cells!r}\n"
pathlib.Path(sys.argv[2]).write_text(text, encoding="utf-8")
