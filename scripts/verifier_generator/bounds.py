"""Bounds on run times, proposed from the times that were seen."""

import math

STEP = 50  # milliseconds


class Bound:
    def __init__(self, call, minimum, maximum, reason, seen):
        self.call = call  # as tests/verifiers/bounds.tsv names it
        self.minimum, self.maximum, self.reason, self.seen = minimum, maximum, reason, seen

    def code(self):
        if self.call == "duration_all":
            return f"PerformDurationBoundsTest({self.minimum}, {self.maximum}, false);"
        return (f"PerformBoundsTest({self.minimum}, {self.maximum}, EXPANSION_TIME_COLUMN_NAME, true, "
                "false);")


def _list(times):
    return ", ".join(str(time) for time in times[:5]) + (", …" if len(times) > 5 else "")


def proposed(files):
    bounds = []
    durations = [file.duration for file in files]
    if None not in durations:
        low = min(durations) * 95 // 100 // STEP * STEP
        high = math.ceil((max(durations) * 1.25 + 100) / STEP) * STEP
        bounds.append(Bound("duration_all", low, high,
                            f"Seen: {_list(durations)} ms. A twentieth less, a quarter and 100 ms more are allowed.",
                            durations))
    expansions = [file.expansion for file in files]
    if None not in expansions:
        high = math.ceil((max(expansions) * 5 + 100) / STEP) * STEP
        bounds.append(Bound("expansion_all", 0, high,
                            f"Seen: {_list(expansions)} ms. Five times as much and 100 ms are allowed.",
                            expansions))
    return bounds
