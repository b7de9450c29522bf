#!/usr/bin/env python3
"""make_experiments.py FOLDER: generates a verifier with sample and tests for each sample of the project and for a few
experiments that are made up, in a project of their own below FOLDER. The build compiles and runs what comes out."""

import contextlib
import importlib.machinery
import importlib.util
import io
import json
import pathlib
import random
import re
import shutil
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def load_program():
    loader = importlib.machinery.SourceFileLoader("new_verifier", str(ROOT / "scripts/new-verifier"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def data_file(path, columns, rows, participant="Ann Other"):
    """columns: names with a line feed between the heading rows."""
    first = [name.partition("\n")[0] for name in columns]
    second = [name.partition("\n")[2] for name in columns]
    lines = [participant, "Made up", "Fri Jan 02 2026 10:00:00", ""]
    lines += ["\t".join(first), "\t".join(second)] + ["\t".join(row) for row in rows]
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return str(path)


def timed(names, rows):
    """The columns that every host writes, beside those of the design."""
    columns = ["Participant\nName", *names, "Cumulative\nTime", "Expansion Time(ms): 12"]
    return columns, [["Ann Other", *cells, str(100 * (i + 1)), "-"] for i, cells in enumerate(rows)]


ODD = ['say "hi"', "back\\slash", "what??=", "100%d %s", "tab's", "caf\u00e9", "\u65e5\u672c", "\U0001f514 bell",
       "a<b & c", "]]>", "trailing ", "?\u0394?"]


def made_up(folder):
    """Name of the class, data files and further arguments of each experiment."""
    shuffle = random.Random(7)
    yield "MadeUpOneRow", [data_file(folder / "one row.txt", *timed(["Event\nName"], [["only"]]))], []
    long_rows = [[f"block {i // 500}", f"trial {i % 10}", "odd" if i % 2 else "even"] for i in range(2000)]
    yield "MadeUpManyRows", [data_file(folder / "many rows.txt",
                                       *timed(["Block\nName", "Trial\nName", "parity"], long_rows))], []
    yield "MadeUpEmptyColumns", [data_file(folder / "empty.txt", *timed(
        ["Event\nName", *[f"empty {i}" for i in range(30)], "seldom"],
        [["e" + str(i % 3), *[""] * 30, "x" if i % 4 == 1 else ""] for i in range(24)]))], []
    yield "MadeUpOddTexts", [data_file(folder / "odd.txt", *timed(["Event\nName"], [[text] for text in ODD]))], []
    runs = []
    for number in range(3):
        blocks = [[f"item {i}" for i in range(4)] for _ in range(3)]
        for block in blocks:
            shuffle.shuffle(block)
        rows = [["start"]] + [[text] for block in blocks for text in block] + [["end"]]
        runs.append(data_file(folder / f"shuffled {number}.txt", *timed(["Event\nName"], rows)))
    yield "MadeUpShuffled", runs, []
    runs = []
    for number in range(3):
        rows = [[shuffle.choice(["heads", "tails"])] for _ in range(9)] + [["coin lost"]]
        runs.append(data_file(folder / f"drawn {number}.txt", *timed(["Event\nName"], rows)))
    yield "MadeUpDrawn", runs, []


def samples():
    for entry in json.loads((ROOT / "verifiers/manifest.json").read_text(encoding="utf-8"))["verifiers"]:
        sample = ROOT / f"samples/datafiles/{entry['experiment']} 1.txt"
        if not entry["expect_empty_datafile"]:
            yield "Generated" + entry["class"], [str(sample)], []


def make_project(root):
    """What the generator renews in a project, with nothing in it yet."""
    shutil.rmtree(root, ignore_errors=True)
    for folder in ("verifiers", "tests/verifiers", "samples/datafiles", "docs", "scripts"):
        (root / folder).mkdir(parents=True)
    seed = {"class": "Seed", "experiment": "seed.om5", "proves": "x", "base": "x", "expect_empty_datafile": False,
            "tolerated_failures": ""}
    (root / "verifiers/manifest.json").write_text(json.dumps({"verifiers": [seed]}, indent=2) + "\n")
    (root / "tests/verifiers/bounds.tsv").write_text("# none\n")
    (root / "verifiers/watched.tsv").write_text("experiment\twatched\tnot watched\trow dropped\trow doubled\tbounds\t"
                                                "traps\n")
    (root / "tests/verifiers/Parity.test.cpp").write_text("EXPERIMENTS_OF_A_RELEASE = 1;\n")
    (root / "CHANGELOG.md").write_text("### Added\n\n")
    shutil.copy(ROOT / "scripts/make-verifier-table", root / "scripts")


def write_compared_columns(folder, root):
    """Experiment and column of each comparison, for the tests: as the sources say."""
    with open(folder / "columns.tsv", "w", encoding="utf-8") as table:
        for source in sorted((root / "verifiers").glob("*.cpp")):
            text = source.read_text(encoding="utf-8")
            for column in re.findall(r'VerifyVerbatimColumnContent\(\s*wxT\("((?:[^"\\]|\\.)*)"', text):
                table.write(f"{source.stem}.om5\t{column}\n")


def main():
    folder = pathlib.Path(sys.argv[1])
    root = folder / "project"
    make_project(root)
    program = load_program()
    for name, files, further in [*samples(), *made_up(folder)]:
        said = io.StringIO()
        with contextlib.redirect_stdout(said), contextlib.redirect_stderr(io.StringIO()):
            status = program.run([f"{name}.om5", "--class", name, "--root", str(root), *further, "--from", *files])
        if status != 0:
            sys.exit(f"{name}: {said.getvalue()}")
    write_compared_columns(folder, root)


if __name__ == "__main__":
    main()
