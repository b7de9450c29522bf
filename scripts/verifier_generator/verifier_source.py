"""The text of verifiers/<class>.cpp."""

from . import cpp, expected_cells
from .columns import shown

FIRST_LINE = 101  # of the numbers that identify the rules of this verifier in the report


class Check:
    """One recorded result, in the order of the report: its test's name, and what is needed to write it."""

    def __init__(self, name, code, verbatim_column=None, line=None, subject=None, message=None, rule=None,
                 column=None):
        self.name, self.code, self.verbatim_column = name, code, verbatim_column
        self.line, self.subject, self.message = line, subject, message
        self.rule, self.column = rule, column


def _function_of(column):
    return "ExpectedCellsOf" + (cpp.camel(column) or "Column")


def _rule_checks(column, rule, line):
    """Yields (line, test name, condition, subject, message) for each part of a rule that is not verbatim."""
    plain, name = shown(column), cpp.words(column)
    if rule.kind == "any order":
        for first, last, fixed in rule.stretches:
            cells = rule.cells[first:last + 1]
            texts = cpp.text_list(cells if fixed else sorted(cells))
            way = "RunEquals" if fixed else "RunEqualsInAnyOrder"
            words = "in_order" if fixed else "in_any_order"
            rows = f"Rows {first} to {last} of {plain} do" if last > first else f"Row {first} of {plain} does"
            yield (line, f"{name}_of_rows_{first}_to_{last}_appears_{words}",
                   f"{way}(*m_reader, {cpp.literal(column)}, {first}, {texts})",
                   f"{rows} not hold what is expected.",
                   "We expected exactly the texts that the design gives, "
                   + ("in this order." if fixed else "in any order."))
            line += 1
        count = len(rule.cells)
        yield (line, f"{name}_has_{count}_rows", f"RowCount() == {count}",
               "The number of rows is wrong.", f"We expected exactly {count} rows.")
    elif rule.kind == "counts":
        for number, (text, count) in enumerate(rule.counts.items(), 1):
            yield (line, f"{name}_holds_text_{number}_{count}_times",
                   f"RowScan::Count({cpp.literal(text)}, {count}, {rule.last}).HoldsFor(*m_reader, "
                   f"{cpp.literal(column)})",
                   f"A text of {plain} does not appear as often as expected.",
                   f"We expected {{{text}}} exactly {count} times in {rule.last + 1} rows.")
            line += 1
    elif rule.kind == "last row":
        place = "RowCount() - 1" if rule.last is None else str(rule.last)
        yield (line, f"{name}_of_the_last_row",
               f"RunEquals(*m_reader, {cpp.literal(column)}, {place}, {{{cpp.literal(rule.text)}}})",
               f"The last row of {plain} does not hold the expected text.",
               f"We expected {{{rule.text}}} in the last row.")


def checks_of(rules):
    """rules: column to rule, in the order of the checks."""
    checks, line = [], FIRST_LINE
    for column, rule in rules.items():
        if rule.kind == "verbatim":
            checks.append(Check("Data_appears_completely_and_in_order",
                                f"VerifyVerbatimColumnContent({cpp.literal(column)}, {_function_of(column)}());",
                                verbatim_column=column, rule=rule, column=column))
            continue
        for number, name, condition, subject, message in _rule_checks(column, rule, line):
            code = (f"ReportCheck({condition}, {cpp.literal(name)}, {{{cpp.literal(subject)}, {number}, "
                    f"{cpp.literal(message)}}});")
            checks.append(Check(name, code, line=number, subject=subject, message=message, rule=rule,
                                column=column))
            line = number + 1
    return checks


def base_of(rules):
    verbatim = any(rule.kind == "verbatim" for rule in rules.values())
    return "TestCaseWithFullColumnStringComp_T" if verbatim else "IndividualTestCase_T"


def text(name, experiment, rules, checks, bounds):
    base = base_of(rules)
    verbatim = base == "TestCaseWithFullColumnStringComp_T"
    functions, expressions = "", ""
    for column, rule in rules.items():
        if rule.kind != "verbatim":
            continue
        expression = expected_cells.expression(rule.cells)
        expressions += expression
        functions += (f"const std::vector<wxString>& {_function_of(column)}() {{\n"
                      f"  static const std::vector<wxString> cells = {expression};\n  return cells;\n}}\n\n")
    body = "\n    ".join(check.code for check in checks)
    for bound in bounds:
        body += f"\n\n    // {bound.reason}\n    {bound.code()}"
    includes = [f"framework/{base}.h"]
    includes += ["framework/ExpectedCells.h"] if "ExpectedCells" in expressions else []
    includes += ["framework/RowRuns.h"] if "RunEquals" in body else []
    includes += ["framework/RowScan.h"] if "RowScan" in body else []
    include_lines = "".join(f'#include "{file}"\n' for file in sorted(includes))
    arguments = name if verbatim else f"{name}, false"
    return f"""{include_lines}
namespace Ombrelia {{

namespace {{

const wxString FOCUS_OF_THIS_TEST = {cpp.literal(experiment)};

{functions}}}  // namespace

class {name} : public {base}<{arguments}> {{
 public:
  {name}() : {base}(FOCUS_OF_THIS_TEST, false) {{}}

  void RunAllVerificationTests(VerificationNecessities) override {{
    {body.strip()}
  }}
}};

}}  // namespace Ombrelia

OMBRELIA_DEFINE_VERIFIER({name}, false);
"""
