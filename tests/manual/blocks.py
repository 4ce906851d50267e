"""The blocks of code in the manual, for the programs that run them."""
import difflib
import os
import pathlib
import re
import shutil
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]
CHAPTERS = sorted((PROJECT / "docs/manual").glob("*.md"))
FENCE = re.compile(r"^(?P<indent> *)```(?P<language>\w+)\n(?P<body>.*?)^(?P=indent)```$", re.M | re.S)


def blocks(text):
    """Language, lines without the indent of their list, and place of each block."""
    for found in FENCE.finditer(text):
        indent = found["indent"]
        lines = [line.removeprefix(indent) for line in found["body"].splitlines()]
        yield found["language"], lines, found.span("body"), indent


def matches(expected, printed):
    """Whether the lines agree; a line with nothing but an ellipsis stands for any lines."""
    if not expected:
        return not printed
    if expected[0] == "…":
        return any(matches(expected[1:], printed[i:]) for i in range(len(printed) + 1))
    return bool(printed) and expected[0] == printed[0].rstrip() and matches(expected[1:], printed[1:])


def difference(expected, printed):
    return "\n".join(difflib.unified_diff(expected, printed, "manual", "printed", lineterm=""))


class Checks:
    """Counts, and tells the totals as the suites want them."""

    def __init__(self):
        self.passed = self.failed = 0

    def add(self, name, mistake):
        if mistake:
            print(f"FAIL {name}\n{mistake}")
            self.failed += 1
        else:
            print(f"PASS {name}")
            self.passed += 1

    def end(self):
        print(f"{self.passed} passed, {self.failed} failed")
        return 0 if self.passed and not self.failed else 1


class Site:
    """A new folder with the manual's samples in it, which goes when the program ends."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        for sample in (PROJECT / "docs/manual/muestras").iterdir():
            shutil.copy(sample, self.path)
        # A capture without a head is of its file's day.
        for sample in self.path.iterdir():
            os.utime(sample, (1547640000, 1547640000))
