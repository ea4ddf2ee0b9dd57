#!/usr/bin/python3
"""Checks that docs/testing.md and docs/security.md name only files and tests that exist.

    check_testing_page.py [SOURCE_ROOT]   prints every name that leads nowhere; status 1 when there is one
    check_testing_page.py --prove         proves on a made-up tree that wrong names are caught and right ones are not

A name is `tests/…` or `addon/tests/…` in backticks: a file or folder, or "FILE: TEST" with the function's name, or, for the
add-on, the sentence that its test is called by.
"""

import re
import sys
import tempfile
from pathlib import Path

PAGES = ("docs/testing.md", "docs/security.md")
NAME = re.compile(r"`((?:addon/)?tests/[^`:]+)(?:: ([^`]+))?`")

# How a test is written, by the ending of its file.
WRITTEN = {
    ".cpp": r"\bvoid (?:\w+::)?{}\(\)",
    ".py": r"\bdef {}\(",
    ".mjs": r'^test\("{}",',
}


def has_test(file, test):
    written = WRITTEN.get(file.suffix)
    return written and re.search(written.format(re.escape(test)), file.read_text(), re.M)


def problems(root, page):
    found = 0
    for number, line in enumerate((root / page).read_text().splitlines(), 1):
        for path, test in NAME.findall(line):
            found += 1
            if not (root / path).exists():
                yield f"{page}:{number}: there is no {path}"
            elif test and not has_test(root / path, test):
                yield f"{page}:{number}: {path} has no test {test}"
    if not found:
        yield f"{page}: names no test at all"


def prove():
    files = {
        "tests/unit/tst_a.cpp": "    void one()\n    {\n    }\nvoid A::two()\n{\n}\n", "tests/b.py": "    def test_b(self):\n",
        "addon/tests/c.test.mjs": 'test("it holds, in (all) cases", () => {});\n',
    }
    right = ["tests/unit", "tests/unit/tst_a.cpp", "tests/unit/tst_a.cpp: one", "tests/unit/tst_a.cpp: two", "tests/b.py: test_b",
             "addon/tests/c.test.mjs: it holds, in (all) cases"]
    wrong = ["tests/unit/tst_z.cpp", "tests/unit/tst_z.cpp: one", "tests/unit/tst_a.cpp: on", "tests/unit/tst_a.cpp: ones",
             "tests/b.py: b", "addon/tests/c.test.mjs: it holds", "addon/tests/none.mjs"]
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name, text in {**files, PAGES[0]: "\n".join(f"- x — `{name}`" for name in right + wrong)}.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        caught = {int(problem.split(":")[1]) for problem in problems(root, PAGES[0])}
    expected = set(range(len(right) + 1, len(right) + len(wrong) + 1))
    for number in sorted(expected ^ caught):
        print(f"{(right + wrong)[number - 1]}: {'not caught' if number in expected else 'caught, but right'}")
    return 1 if expected ^ caught else 0


def main():
    if "--prove" in sys.argv:
        return prove()
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parents[2]
    found = [problem for page in PAGES for problem in problems(root, page)]
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
