"""The chapters of the manual and their blocks of code, for the programs that run them."""
import difflib
import pathlib
import re
import shutil
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PAGES = sorted((PROJECT / "docs/manual").glob("*.md"))
CHAPTERS = [*PAGES, PROJECT / "docs/diez-pasos.md"]

# A block of code, with the mark before it; or a mark that needs none.
STEP = re.compile(
    r"(?:^<!-- archivo: (?P<file>[^,\n]+?)(?P<append>, al final)? -->\n)?"
    r"^(?P<indent> *)```(?P<language>\w+)\n(?P<body>.*?)^(?P=indent)```$"
    r"|^<!-- archivo: (?P<changed>[^,\n]+), «(?P<old>.*?)» por «(?P<new>.*?)» -->$", re.M | re.S)


class Block:
    """What stands in a block, without the indent of its list, and where."""

    def __init__(self, found):
        self.language, self.indent, self.place = found["language"], found["indent"], found.span("body")
        self.lines = [line.removeprefix(self.indent) for line in found["body"].splitlines()]


class Site:
    """A new folder with the manual's samples in it, which goes when the program ends. What the marks of a
    chapter say is done there:

    <!-- archivo: NAME -->                the next block is the whole file
    <!-- archivo: NAME, al final -->      the next block goes to the end of the file
    <!-- archivo: NAME, «A» por «B» -->   one text of the file is replaced
    """

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        for sample in (PROJECT / "docs/manual/muestras").iterdir():
            shutil.copy(sample, self.path)

    def follow(self, text):
        """The blocks of a chapter that are no files, in their order; each mark is done when it is reached."""
        for found in STEP.finditer(text):
            if found["changed"]:
                file = self.path / found["changed"]
                before = file.read_text(encoding="utf-8")
                if found["old"] not in before:
                    raise SystemExit(f"{found['changed']} has no «{found['old']}»")
                file.write_text(before.replace(found["old"], found["new"]), encoding="utf-8")
            elif found["file"]:
                with open(self.path / found["file"], "a" if found["append"] else "w", encoding="utf-8") as file:
                    file.write(found["body"])
            else:
                yield Block(found)


def matches(expected, printed):
    """Whether the lines agree; a line with nothing but an ellipsis stands for any lines."""
    if not expected:
        return not printed
    if expected[0] == "…":
        return any(matches(expected[1:], printed[i:]) for i in range(len(printed) + 1))
    return bool(printed) and expected[0].rstrip() == printed[0].rstrip() and matches(expected[1:], printed[1:])


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
