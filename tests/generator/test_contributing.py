"""CONTRIBUTING.md followed to the letter, in a copy of the project: each command of its two steps is run as it stands
there, and the way to undo them. Only the last one is left out, the run of all tests, to which this one belongs.

The copy is built from nothing, so what the build needs must be in the compiler's cache to be quick."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import make_experiments  # noqa: E402

ALL_TESTS = "scripts/test"


def commands():
    """The indented lines of the section on new verifiers, in their order."""
    page = (make_experiments.ROOT / "CONTRIBUTING.md").read_text(encoding="utf-8")
    section = page.partition("## A new verifier in two steps")[2].partition("\n## ")[0]
    return [line.strip() for line in section.splitlines() if line.startswith(" " * 7)], section


class Contributor(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.root = pathlib.Path(scratch.name) / "project"
        project = str(make_experiments.ROOT)
        shutil.copytree(project, self.root, symlinks=True,
                        ignore=lambda folder, names: {"build", ".git"} if folder == project else set())
        # The tests of generated verifiers are built and run elsewhere, and know this test.
        presets = self.root / "CMakePresets.json"
        presets.write_text(presets.read_text().replace('"OMBRELIA_GENERATED_TESTS": "ON"',
                                                       '"OMBRELIA_GENERATED_TESTS": "OFF"'))
        self.run_line("git init -q . && git add -A && git -c user.name=n -c user.email=e commit -qm start")

    def run_line(self, line):
        done = subprocess.run(["bash", "-c", line], cwd=self.root, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False,
                              env={key: text for key, text in os.environ.items() if not key.startswith("OMBRELIA_")})
        self.assertEqual(done.returncode, 0, f"{line}\n{done.stdout[-8000:]}")
        return done.stdout

    def test_each_command_ends_well(self):
        lines, section = commands()
        self.assertEqual(lines[-1], ALL_TESTS)
        generate, checks = lines[0], lines[1:-1]
        self.assertEqual(len(checks), 4)

        # The page's data file is one of two bells that ring in turn.
        (self.root / "run").mkdir()
        data_file = re.search(r'--from "([^"]+)"', generate).group(1)
        make_experiments.data_file(self.root / data_file, *make_experiments.timed(
            ["Event\nName", "bell"], [["ring", "low" if i % 2 else "high"] for i in range(12)]))

        shown = self.run_line(generate + " --dry-run")
        self.assertIn("Would write:", shown)
        self.assertEqual(self.run_line("git status --porcelain -- verifiers samples tests docs"), "")
        self.run_line(generate)
        entry = json.loads((self.root / "verifiers/manifest.json").read_text())["verifiers"][-1]
        self.assertIn(entry["experiment"], generate)
        for line in checks:
            said = self.run_line(line.replace("<class>", entry["class"]))
            if "scripts/test" in line:
                self.assertRegex(said, r"100% tests passed, 0 tests failed out of \d+")
                self.assertIn(entry["class"], said)
            if "verify-samples" in line:
                self.assertIn(f"{entry['experiment']} 1.txt: ", said)
                self.assertRegex(said, r"Data files: 69; tests: \d+, \d+ passed, 0 failed")

        undo = re.search(r"`(git checkout[^`]*)`", section).group(1)
        self.run_line(undo)
        self.assertEqual(self.run_line("git status --porcelain -- . ':!run' ':!build'"), "")


if __name__ == "__main__":
    unittest.main()
