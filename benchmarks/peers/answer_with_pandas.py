"""answer_with_pandas.py WORK FOLDER: answers one question about the data files of the folder, tab-separated.

Line 6, the second heading row, names the columns. Only the columns that a work needs are read.
"""
import pathlib
import sys

import pandas


def read(folder, columns=None):
    frames = [
        pandas.read_csv(file, sep="\t", skiprows=5, dtype=str, keep_default_na=False, quoting=3, usecols=columns)
        for file in sorted(pathlib.Path(folder).glob("*.txt"))
    ]
    return pandas.concat(frames, ignore_index=True)


def mean(folder):
    table = read(folder, ["Condition", "Time"])
    table["Time"] = pandas.to_numeric(table["Time"], errors="coerce")
    return table.groupby("Condition", sort=False)["Time"].mean().reset_index()


def where(folder):
    table = read(folder)
    return table[table["Condition"] == "condition_07"]


WORKS = {
    "sort": lambda folder: read(folder).sort_values("Stimulus", kind="stable"),
    "where": where,
    "distinct": lambda folder: read(folder, ["Condition"]).value_counts(sort=False).reset_index(),
    "mean": mean,
}

WORKS[sys.argv[1]](sys.argv[2]).to_csv(sys.stdout, sep="\t", index=False, quoting=3)
