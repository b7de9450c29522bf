"""What a person can do something about: told in one sentence, and nothing is written."""


class Problem(Exception):
    pass
