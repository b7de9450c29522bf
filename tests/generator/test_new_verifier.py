"""scripts/new-verifier as its user meets it, in a project of its own."""

import contextlib
import io
import json
import pathlib
import random
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import make_experiments  # noqa: E402

PROGRAM = make_experiments.load_program()
from verifier_generator import columns, cpp, expected_cells, project, review  # noqa: E402
from verifier_generator.data_file import DataFile  # noqa: E402
from verifier_generator.problem import Problem  # noqa: E402


class Project(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.root = self.folder / "project"
        make_experiments.make_project(self.root)

    def data_file(self, names, rows, name="bells.om5 3.txt"):
        return make_experiments.data_file(self.folder / name, *make_experiments.timed(names, rows))

    def bells(self):
        return self.data_file(["Event\nName", "Key"], [["ding", "1"], ["dong", "2"], ["ding", "3"]])

    def run_program(self, *arguments):
        said = io.StringIO()
        with contextlib.redirect_stdout(said), contextlib.redirect_stderr(said):
            PROGRAM.run([*arguments, "--root", str(self.root)])
        return said.getvalue()

    def files(self):
        return {str(path.relative_to(self.root)): path.read_bytes()
                for path in self.root.rglob("*") if path.is_file()}

    def expect_refusal(self, words, *arguments):
        before = self.files()
        with self.assertRaisesRegex(Problem, words):
            self.run_program(*arguments)
        self.assertEqual(self.files(), before)


class WhatIsWritten(Project):
    def test_all_that_a_verifier_needs(self):
        before = self.files()
        self.run_program("bells.om5", "--from", self.bells(), "--proves", "Bells ring in order.")
        after = self.files()
        self.assertEqual(sorted(file for file in after if after[file] != before.get(file)),
                         ["CHANGELOG.md", "docs/verifiers.md", "samples/datafiles/bells.om5 1.txt",
                          "tests/verifiers/Parity.test.cpp", "tests/verifiers/Test_bells.test.cpp",
                          "tests/verifiers/bounds.tsv", "verifiers/Test_bells.cpp", "verifiers/manifest.json",
                          "verifiers/watched.tsv"])
        entry = json.loads(after["verifiers/manifest.json"])["verifiers"][-1]
        self.assertEqual(entry, {"class": "Test_bells", "experiment": "bells.om5", "proves": "Bells ring in order.",
                                 "base": "TestCaseWithFullColumnStringComp_T", "expect_empty_datafile": False,
                                 "tolerated_failures": ""})
        self.assertIn(b"EXPERIMENTS_OF_A_RELEASE = 2;", after["tests/verifiers/Parity.test.cpp"])
        self.assertIn(b"- A verifier of `bells.om5`: `Test_bells`.", after["CHANGELOG.md"])
        self.assertIn(b"bells.om5\tduration_all\t", after["tests/verifiers/bounds.tsv"])

    def test_the_page_tells_what_it_is_to_watch(self):
        self.run_program("bells.om5", "--from", self.bells(), "--columns", "Key")
        line = (self.root / "verifiers/watched.tsv").read_text().splitlines()[-1]
        self.assertEqual(line, "bells.om5\t`Key` 3 of 3; `Cumulative Time` 0 of 3, 1 in part\t"
                               "`Participant Name`; `Event Name`; `Expansion Time(ms)`\t3 of 3\t3 of 3\t2 of 2\t")
        row = "| " + line.replace("bells.om5", "`bells.om5`").replace("\t", " | ").rstrip() + " |"
        self.assertIn(row, (self.root / "docs/verifiers.md").read_text())

    def test_the_sample_knows_neither_person_nor_date(self):
        self.run_program("bells.om5", "--from", self.bells())
        sample = (self.root / "samples/datafiles/bells.om5 1.txt").read_text(encoding="utf-8")
        self.assertNotIn("Ann Other", sample)
        self.assertNotIn("Jan 02 2026", sample)
        self.assertEqual(sample.splitlines()[0], "Regression Robot")
        self.assertEqual(sample.splitlines()[6].split("\t")[0], "Regression Robot")

    def test_stimulus_areas_go_along(self):
        areas = "x\ty\twidth\theight\tresponse_id\tarea_name\n1\t2\t3\t4\t5\tleft\n"
        path = pathlib.Path(self.bells())
        path.with_suffix(".stimareas.tsv").write_text(areas)
        self.run_program("bells.om5", "--from", str(path))
        self.assertEqual((self.root / "samples/datafiles/bells.om5 1.stimareas.tsv").read_text(), areas)

    def test_each_run_becomes_a_sample(self):
        runs = [self.data_file(["Event\nName"], [["ding"], ["dong"]], f"bells.om5 {run}.txt") for run in (7, 8)]
        areas = "x\ty\twidth\theight\tresponse_id\tarea_name\n1\t2\t3\t4\t5\tleft\n"
        pathlib.Path(runs[1]).with_suffix(".stimareas.tsv").write_text(areas)
        self.run_program("bells.om5", "--from", *runs)
        folder = self.root / "samples/datafiles"
        self.assertEqual(sorted(path.name for path in folder.iterdir()),
                         ["bells.om5 1.txt", "bells.om5 2.stimareas.tsv", "bells.om5 2.txt"])
        self.assertNotIn("Ann Other", (folder / "bells.om5 2.txt").read_text())
        tests = (self.root / "tests/verifiers/Test_bells.test.cpp").read_text()
        self.assertIn("run <= 2", tests)

    def test_a_dry_run_shows_the_same_and_writes_nothing(self):
        before = self.files()
        said = self.run_program("bells.om5", "--from", self.bells(), "--dry-run")
        self.assertEqual(self.files(), before)
        self.assertIn("class Test_bells", said)
        self.assertIn("Would write:", said)

    def test_chosen_columns_alone_are_compared(self):
        self.run_program("bells.om5", "--from", self.bells(), "--columns", "Key")
        source = (self.root / "verifiers/Test_bells.cpp").read_text()
        self.assertIn('wxT("Key")', source)
        self.assertNotIn("Event", source)

    def test_without_a_choice_the_columns_are_told_and_those_of_the_design_taken(self):
        said = self.run_program("bells.om5", "--from", self.bells(), "--dry-run")
        self.assertIn("* Event\\nName: 2 × “ding”, 1 × “dong”", said)
        self.assertIn("  Cumulative\\nTime: ", said)
        self.assertNotIn("* Cumulative", said)

    def test_cells_that_read_as_markup_are_warned_of(self):
        path = self.data_file(["Event\nName"], [["a"], ["<b>"]])
        self.assertIn("holds <, &", self.run_program("bells.om5", "--from", path, "--dry-run"))


class WhatIsRefused(Project):
    def test_an_experiment_that_has_a_verifier_in_any_case(self):
        self.run_program("bells.om5", "--from", self.bells())
        self.expect_refusal("bells.om5 has a verifier already", "Bells.OM5", "--from", self.bells(), "--class", "B")

    def test_a_class_that_is_taken(self):
        self.expect_refusal("The class Seed is taken", "bells.om5", "--from", self.bells(), "--class", "SEED")

    def test_a_sample_that_is_there(self):
        (self.root / "samples/datafiles/bells.om5 1.txt").write_text("")
        self.expect_refusal("is there already", "bells.om5", "--from", self.bells())

    def test_a_name_of_which_no_class_can_be_made(self):
        self.expect_refusal("No C\\+\\+ name can be made", "日本.om5", "--from", self.bells())

    def test_a_class_that_is_no_name(self):
        for name in ("2bells", "a b", "class", "a__b"):
            self.expect_refusal("is no C\\+\\+ name", "bells.om5", "--from", self.bells(), "--class", name)

    def test_names_that_the_plug_in_would_never_find(self):
        self.expect_refusal("holds a blank", "two bells.om5", "--from", self.bells())
        self.expect_refusal("does not end in", "bells.txt", "--from", self.bells())

    def test_a_column_that_is_not_there(self):
        self.expect_refusal("has no column Bell. Its columns: .*Event", "bells.om5", "--from", self.bells(),
                            "--columns", "Bell")

    def test_a_data_file_without_rows(self):
        path = self.data_file(["Event\nName"], [])
        self.expect_refusal("at least one row", "bells.om5", "--from", path)

    def test_a_missing_data_file(self):
        self.expect_refusal("no such file", "bells.om5", "--from", str(self.folder / "none.txt"))

    def test_a_run_that_tells_no_times(self):
        path = make_experiments.data_file(self.folder / "x.txt", ["Event\nName"], [["a"], ["b"]])
        self.expect_refusal("tells no duration", "bells.om5", "--from", path)

    def test_a_further_run_that_tells_no_times(self):
        path = make_experiments.data_file(self.folder / "bare.txt", ["Event\nName"], [["ding"]])
        self.expect_refusal("bare.txt tells no duration", "bells.om5", "--from", self.bells(), path)

    def test_a_column_for_which_no_rule_holds(self):
        runs = [self.data_file(["Event\nName"], [[text] for text in texts], f"{texts}.txt") for texts in ("ab", "cd")]
        self.expect_refusal("no rule holds", "bells.om5", "--columns", "Event\\nName", "--from", *runs)


class RulesOfSeveralRuns(Project):
    def rule(self, *runs):
        files = [DataFile(self.data_file(["Event\nName"], [[text] for text in run], f"{number}.txt"))
                 for number, run in enumerate(runs)]
        return columns.rule_of("Event\nName", files)

    def test_equal_runs_are_compared_row_by_row(self):
        self.assertEqual(self.rule("abc", "abc").kind, "verbatim")

    def test_shuffled_blocks_are_found(self):
        rule = self.rule("sabcabce", "scabcbae", "sbcabcae")
        self.assertEqual(rule.kind, "any order")
        self.assertEqual(rule.stretches, [(0, 0, True), (1, 3, False), (4, 6, False), (7, 7, True)])
        self.assertEqual(rule.words, "shuffled within rows 1 to 3, 4 to 6")

    def test_fixed_counts_are_found(self):
        rule = self.rule("xaab", "bxbb", "abax")
        self.assertEqual((rule.kind, rule.counts, rule.last), ("counts", {"x": 1}, 3))

    def test_the_last_row_is_all_that_is_left(self):
        rule = self.rule("abz", "cdez")
        self.assertEqual((rule.kind, rule.text, rule.last), ("last row", "z", None))


class ExpectedCellsAsAPersonWritesThem(unittest.TestCase):
    def test_runs(self):
        self.assertEqual(expected_cells.expression(["a"] * 9), 'ExpectedCells().Repeat(9, wxT("a")).Cells()')

    def test_a_repeated_sequence(self):
        self.assertEqual(expected_cells.expression(["a", "b", "c"] * 7),
                         'ExpectedCells().RepeatAll(7, {wxT("a"), wxT("b"), wxT("c")}).Cells()')

    def test_a_remainder(self):
        cells = ["x" if i % 5 == 2 else "" for i in range(40)]
        self.assertEqual(expected_cells.expression(cells),
                         'ExpectedCells::Blank(40).Remainder(2, 37, 5, 2, wxT("x")).Cells()')

    def test_groups(self):
        cells = [str(i // 6) if i % 6 < 2 else "" for i in range(36)]
        self.assertEqual(expected_cells.expression(cells),
                         'ExpectedCells::Blank(36).Groups(0, 6, 0, 1, '
                         '{wxT("0"), wxT("1"), wxT("2"), wxT("3"), wxT("4"), wxT("5")}).Cells()')

    def test_what_does_not_repeat_is_a_list(self):
        self.assertEqual(expected_cells.expression(["a", "b"]), '{wxT("a"), wxT("b")}')

    def test_random_columns_are_reproduced(self):
        draw = random.Random(3)
        for _ in range(200):
            cells = [draw.choice(["", "a", "b", "cc"]) for _ in range(draw.randint(1, 40))]
            self.assertEqual(evaluated(expected_cells.expression(cells)), cells)


def evaluated(expression):
    """An independent reading of the C++ text."""
    text = expression.replace('wxT("', '"').replace('")', '"')
    text = text.replace("{", "[").replace("}", "]").replace("ExpectedCells::Blank(", "Cells(").replace(
        "ExpectedCells()", "Cells(0)")
    return eval(text, {"Cells": Cells})  # pylint: disable=eval-used


class Cells:
    def __init__(self, count):
        self.cells = [""] * count

    def Add(self, cell):
        return self.RepeatAll(1, [cell])

    def AddAll(self, cells):
        return self.RepeatAll(1, cells)

    def Repeat(self, count, cell):
        return self.RepeatAll(count, [cell])

    def RepeatAll(self, count, cells):
        self.cells += cells * count
        return self

    def Row(self, row, cell):
        self.cells[row] = cell
        return self

    def Range(self, first, last, cell):
        return self.Remainder(first, last, 1, 0, cell)

    def Remainder(self, first, last, divisor, remainder, cell):
        for row in range(first, last + 1):
            if row % divisor == remainder:
                self.cells[row] = cell
        return self

    def Groups(self, first, size, start, end, cells):
        for group, cell in enumerate(cells):
            self.Range(first + group * size + start, first + group * size + end, cell)
        return self

    def Cells(self):
        return self.cells


class Review(Project):
    EVENTS = ["ding", "dong", "ding", "ding"]

    def setUp(self):
        super().setUp()
        self.run_program("bells.om5", "--from", self.run_of(self.EVENTS))
        self.source = self.root / "verifiers/Test_bells.cpp"

    def run_of(self, events, name="bells.om5 1.txt"):
        return self.data_file(["Event\nName"], [[event] for event in events], name)

    def review(self, path, *further):
        before = self.files()
        said = self.run_program("--review", "bells.om5", "--from", path, *further)
        if "--accept" not in further:
            self.assertEqual(self.files(), before)
        return said

    def test_an_equal_run_needs_no_change(self):
        self.assertIn("needs no change in its 1 columns and 2 bounds", self.review(self.run_of(self.EVENTS)))

    def test_another_cell_is_told_and_shown_as_a_diff(self):
        said = self.review(self.run_of(["ding", "dang", "ding", "ding"]))
        self.assertIn("Event\\nName: 1 of 4 rows differ, the first is row 1: “dang” in place of “dong”", said)
        self.assertIn("+++ b/verifiers/Test_bells.cpp", said)
        self.assertRegex(said, r'(?m)^\+.*wxT\("dang"\)')

    def test_another_length_and_a_longer_time_are_told(self):
        said = self.review(self.run_of(self.EVENTS * 3))
        self.assertIn("Event\\nName: 12 rows in place of 4", said)
        self.assertIn("duration_all: 1200 ms lie outside 350 to 600", said)
        self.assertRegex(said, r"(?m)^\+ *PerformDurationBoundsTest\(350, 1600, false\);")

    def test_accepting_writes_source_bounds_and_sample(self):
        self.review(self.run_of(self.EVENTS * 3), "--accept")
        run_file = DataFile(self.root / "samples/datafiles/bells.om5 1.txt")
        self.assertEqual(run_file.column("Event\nName"), self.EVENTS * 3)
        self.assertTrue(review.Source(self.source.read_text()).accepts(run_file))
        self.assertIn("bells.om5\tduration_all\t350\t1600\n", (self.root / "tests/verifiers/bounds.tsv").read_text())
        self.assertIn("needs no change", self.review(self.run_of(self.EVENTS * 3)))

    def test_stored_files_that_would_be_judged_otherwise_are_counted(self):
        stored = self.folder / "stored"
        stored.mkdir()
        for number, events in enumerate([self.EVENTS, self.EVENTS, ["ding"] * 4, ["x"] * 4]):
            self.run_of(events, f"stored/bells.om5 {number}.txt")
        self.run_of(self.EVENTS, "stored/other.om5 1.txt")
        said = self.review(self.run_of(["ding"] * 4), "--stored", str(stored))
        self.assertIn(f"accepting flips 3 of 4 files in {stored}", said)
        self.assertIn("bells.om5 2.txt: passes then", said)
        self.assertIn("bells.om5 0.txt: fails then", said)

    def test_an_experiment_without_verifier_is_named(self):
        with self.assertRaisesRegex(Problem, "gongs.om5 has no verifier"):
            self.run_program("--review", "gongs.om5", "--from", self.run_of(self.EVENTS))

    def test_a_column_that_is_compared_by_code_is_told(self):
        text = self.source.read_text()
        start, end = text.index("cells = ") + 8, text.index(";", text.index("cells = "))
        self.source.write_text(text[:start] + "Worked(out)" + text[end:])
        self.assertIn("Event\\nName is compared with cells that the verifier works out by code",
                      self.review(self.run_of(self.EVENTS)))

    def test_the_tables_of_all_verifiers_accept_their_samples(self):
        columns_read = 0
        for entry in project.verifiers():
            source = review.Source((project.ROOT / f"verifiers/{entry['class']}.cpp").read_text(encoding="utf-8"))
            columns_read += len(source.columns)
            if not entry["expect_empty_datafile"]:
                sample = DataFile(project.ROOT / f"samples/datafiles/{entry['experiment']} 1.txt")
                self.assertEqual(source.fitted_to(sample)[1], [], entry["class"])
        self.assertGreater(columns_read, 25)


class Literals(unittest.TestCase):
    def test_hold_what_would_otherwise_end_or_change_them(self):
        self.assertEqual(cpp.literal('a"\\\n\t'), r'wxT("a\"\\\n\t")')
        self.assertEqual(cpp.literal("??="), r'wxT("?\?=")')
        self.assertEqual(cpp.literal("caf\u00e9 \U0001f514 \x01"), r'wxT("caf\u00e9 \U0001f514 \001")')
        self.assertEqual(cpp.narrow("\u00e9f"), r'"\303\251f"')


if __name__ == "__main__":
    unittest.main()
