"""The files of the project that a new verifier touches."""

import json
import pathlib
import re
import shutil
import subprocess

from . import cpp, watched
from .problem import Problem

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANIFEST = "verifiers/manifest.json"
BOUNDS = "tests/verifiers/bounds.tsv"
WATCHED = "verifiers/watched.tsv"
PARITY = "tests/verifiers/Parity.test.cpp"
CHANGES = "CHANGELOG.md"


def verifiers(root=ROOT):
    return json.loads((root / MANIFEST).read_text(encoding="utf-8"))["verifiers"]


def sample_file(experiment, run, ending="txt"):
    return f"samples/datafiles/{experiment} {run}.{ending}"


def class_of(experiment):
    """A C++ name made of the experiment's, or a Problem that asks for one."""
    stem = re.sub(r"\.om[45]$", "", experiment, flags=re.I)
    name = cpp.words(stem)
    if name and not re.match(r"[A-Z]", name):
        name = "Test_" + name
    if not cpp.is_name(name):
        raise Problem(f"No C++ name can be made of {experiment!r}; give one with --class.")
    return name


def check_names(experiment, name, root=ROOT):
    if not re.search(r"\.om[45]$", experiment, flags=re.I):
        raise Problem(f"{experiment!r} is no experiment's file name: it does not end in .om4 or .om5.")
    if " " in experiment or "/" in experiment:
        raise Problem(f"{experiment!r} holds a blank or a slash; the plug-in would never find its verifier.")
    if not cpp.is_name(name):
        raise Problem(f"{name!r} is no C++ name for a class.")
    for entry in verifiers(root):
        if entry["experiment"].upper() == experiment.upper():
            raise Problem(f"{entry['experiment']} has a verifier already: verifiers/{entry['class']}.cpp.")
        if entry["class"].upper() == name.upper():
            raise Problem(f"The class {entry['class']} is taken; give another one with --class.")
    for file in (f"verifiers/{name}.cpp", f"tests/verifiers/{name}.test.cpp", sample_file(experiment, 1)):
        if (root / file).exists():
            raise Problem(f"{file} is there already.")


def _with_manifest_entry(text, entry):
    body = json.dumps(entry, indent=2, ensure_ascii=False).replace("\n", "\n    ")
    head, found, tail = text.rpartition("\n    }\n  ]")
    if not found:
        raise Problem(f"{MANIFEST} does not end as expected.")
    return f"{head}\n    }},\n    {body}\n  ]{tail}"


def _with_change(text, name, experiment):
    line = f"- A verifier of `{experiment}`: `{name}`.\n"
    head, found, tail = text.partition("### Added\n\n")
    if not found:
        raise Problem(f"{CHANGES} has no section \"### Added\".")
    return head + found + line + tail


def _with_one_more(text):
    raised, count = re.subn(r"(EXPERIMENTS_OF_A_RELEASE = )(\d+)",
                            lambda m: m.group(1) + str(int(m.group(2)) + 1), text)
    if count != 1:
        raise Problem(f"{PARITY} does not say how many experiments there are.")
    return raised


def laid_out(file, text):
    program = shutil.which("clang-format")
    if not program or not file.endswith(".cpp"):
        return text
    return subprocess.run([program, "--style=file", f"--assume-filename={ROOT / file}"], input=text,
                          capture_output=True, text=True, check=True, cwd=ROOT).stdout


def files_of(experiment, name, proves, base, samples, source, test, rules, bounds, root=ROOT):
    """Every file that changes, by its path below the root, with its new bytes."""
    def read(file):
        return (root / file).read_text(encoding="utf-8")

    entry = {"class": name, "experiment": experiment, "proves": proves, "base": base,
             "expect_empty_datafile": False, "tolerated_failures": ""}
    texts = {
        MANIFEST: _with_manifest_entry(read(MANIFEST), entry),
        f"verifiers/{name}.cpp": laid_out(f"verifiers/{name}.cpp", source),
        f"tests/verifiers/{name}.test.cpp": laid_out(f"tests/verifiers/{name}.test.cpp", test),
        BOUNDS: read(BOUNDS) + "".join(f"{experiment}\t{bound.call}\t{bound.minimum}\t{bound.maximum}\n"
                                       for bound in bounds),
        WATCHED: read(WATCHED) + watched.line(experiment, samples[0], rules, bounds),
        PARITY: _with_one_more(read(PARITY)),
        CHANGES: _with_change(read(CHANGES), name, experiment),
    }
    contents = {file: text.encode() for file, text in texts.items()}
    for run, sample in enumerate(samples, 1):
        contents[sample_file(experiment, run)] = sample.neutral_text().encode()
        if sample.area_file:
            contents[sample_file(experiment, run, "stimareas.tsv")] = sample.area_file.read_bytes()
    return contents


def write(contents, root=ROOT):
    for file, content in contents.items():
        path = root / file
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    # The page on the verifiers is made from the manifest and the table of what they watch.
    subprocess.run(["cmake", "-P", str(root / "scripts/make-verifier-table")], check=True,
                   stdout=subprocess.DEVNULL)
