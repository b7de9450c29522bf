"""What a new verifier watches, as verifiers/watched.tsv has it: worked out from the rules that it holds its columns by,
until `scripts/make-verifier-table --watched` writes what the built program finds."""

from . import data_file


def _noticed(rule, cells):
    if rule.kind == "counts":
        return sum(text in rule.counts for text in cells)
    return 1 if rule.kind == "last row" else len(cells)


def _fixes_the_number_of_rows(rule):
    return rule.kind != "last row" or rule.last is not None


def _named(name):
    # The number in this heading is that of one run.
    plain = data_file.EXPANSION.rstrip(": ") if name.startswith(data_file.EXPANSION) else name.replace("\n", " ")
    return f"`{plain}`"


def line(experiment, sample, rules, bounds):
    """One line of the table, for an experiment whose verifier compares these columns by these rules."""
    count = len(sample.rows)
    watched, unwatched = [], []
    for name in sample.columns:
        if name in rules:
            watched.append(f"{_named(name)} {_noticed(rules[name], sample.column(name))} of {count}")
        elif name.startswith(data_file.DURATION) and bounds:
            watched.append(f"{_named(name)} 0 of {count}, 1 in part")  # the last one, by the bounds on the duration
        else:
            unwatched.append(_named(name))
    rows = count if any(_fixes_the_number_of_rows(rule) for rule in rules.values()) else 1
    share = f"{rows} of {count}"
    of_bounds = f"{len(bounds)} of {len(bounds)}" if bounds else "none"
    return "\t".join([experiment, "; ".join(watched), "; ".join(unwatched), share, share, of_bounds, ""]) + "\n"
