"""The text of tests/verifiers/<class>.test.cpp."""

from . import cpp


def _lines(lines):
    return "Lines{" + ", ".join(lines) + "}"


def _rule_failure(check):
    return (f"Fail({cpp.narrow(check.name)}, {cpp.narrow(check.subject)}, EXPERIMENT, {check.line}, "
            f"{cpp.narrow(check.message)})")


def text(name, experiment, samples, rules, checks, bounds):
    sample = samples[0]
    passing = [f"suite {experiment}", f"pass VerifyDatafile_was_called_for_{experiment}"]
    passing += [f"pass {check.name}" for check in checks]
    kinds = {"duration_all": "Experiment_duration_", "expansion_all": "Expansion_duration_"}
    passing += [f"pass {kinds[bound.call]}{experiment}" for bound in bounds]
    passing += [f"pass __TIMING__TRACKING__{experiment}__{sample.duration}_ms",
                f"pass __EXPANSION__TRACKING__{experiment}__{sample.expansion}_ms"]
    passing_lines = ",\n".join(cpp.narrow(line) for line in passing)
    rows = len(sample.rows)
    verbatim = [check.verbatim_column for check in checks if check.verbatim_column]

    tests = f"""TEST({name}, PassesItsSample) {{
  EXPECT_EQ(DataFile::Sample(EXPERIMENT).Verify(), PASSING);
}}
"""
    if len(samples) > 1:
        tests += f"""
TEST({name}, PassesItsFurtherSamples) {{
  for (int run = 2; run <= {len(samples)}; ++run) {{
    EXPECT_EQ(DataFile::Sample(EXPERIMENT, run).Failures(), Lines{{}}) << run;
  }}
}}
"""
    for number, column in enumerate(verbatim, 1):
        tests += f"""
TEST({name}, ComparesEachCellOf{cpp.camel(column) or f"Column{number}"}) {{
  ExpectEachCellIsCompared(EXPERIMENT, {cpp.narrow(column)});
}}
"""
    for check in checks:
        if check.verbatim_column:
            continue
        tests += f"""
TEST({name}, FailsWithout_{check.name}) {{
  DataFile file = DataFile::Sample(EXPERIMENT);
  file.RemoveColumn({cpp.narrow(check.column)});
  const Lines failures = file.Failures();
  EXPECT_EQ(std::count(failures.begin(), failures.end(), {_rule_failure(check)}), 1);
}}
""" if not check.name.endswith("_rows") else f"""
TEST({name}, Counts_{check.name}) {{
  const Lines failures = DataFile::Sample(EXPERIMENT).RepeatLastRow().Failures();
  EXPECT_EQ(std::count(failures.begin(), failures.end(), {_rule_failure(check)}), 1);
}}
"""
    if verbatim:
        few = (f"Lines({len(verbatim)}, TooFewCells(EXPERIMENT))" if rows > 1 else "Lines{CannotBeRead(EXPERIMENT)}")
        compare = ("EXPECT_EQ(DataFile::Sample(EXPERIMENT).{change}.Failures(), {lines});" if len(verbatim) == len(checks)
                   else "const Lines failures = DataFile::Sample(EXPERIMENT).{change}.Failures();\n"
                        "  const Lines expected = {lines};\n"
                        "  EXPECT_EQ(std::count(failures.begin(), failures.end(), expected.at(0)),\n"
                        "            static_cast<std::ptrdiff_t>(expected.size()));")
        tests += f"""
TEST({name}, FailsOnARowTooMany) {{
  {compare.format(change="RepeatLastRow()", lines=f"Lines({len(verbatim)}, TooManyCells(EXPERIMENT))")}
}}

TEST({name}, FailsOnARowTooFew) {{
  {compare.format(change="RemoveRow(0)", lines=few)}
}}
"""
    for bound in bounds:
        duration = bound.call == "duration_all"
        change, failure, what = (("SetDuration", "DurationOutOfBounds", "Durations") if duration else
                                 ("SetExpansion", "ExpansionOutOfBounds", "ExpansionTimes"))
        low = f"""  EXPECT_EQ(sample({bound.minimum - 1}), Lines{{{failure}(EXPERIMENT, {bound.minimum}, {bound.maximum}, "{bound.minimum - 1}")}});
""" if bound.minimum > 0 else ""
        tests += f"""
TEST({name}, Bounds{what}) {{
  const auto sample = [](int milliseconds) {{
    return DataFile::Sample(EXPERIMENT).{change}(std::to_string(milliseconds)).Failures();
  }};
{low}  EXPECT_EQ(sample({bound.minimum}), Lines{{}});
  EXPECT_EQ(sample({bound.maximum}), Lines{{}});
  EXPECT_EQ(sample({bound.maximum + 1}),
            Lines{{{failure}(EXPERIMENT, {bound.minimum}, {bound.maximum}, "{bound.maximum + 1}")}});
}}
"""
    includes = "".join(f'#include "tests/support/{file}.h"\n' for file, word in
                       (("DataFile", "DataFile"), ("FrameFailures", "OutOfBounds"), ("VerbatimFailures", "CellIs"))
                       if word in tests or file == "DataFile" or
                       (file == "FrameFailures" and "CannotBeRead" in tests) or
                       (file == "VerbatimFailures" and ("EachCellIs" in tests or "Cells(" in tests)))
    algorithm = "#include <algorithm>\n\n" if "std::count" in tests else ""
    return f"""#include <gtest/gtest.h>

{algorithm}{includes}
namespace Tests {{
namespace {{

const char* const EXPERIMENT = {cpp.narrow(experiment)};

const Lines PASSING = {{{passing_lines}}};

{tests}
}}  // namespace
}}  // namespace Tests
"""
