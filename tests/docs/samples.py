"""The code samples of README.md and docs/: the fenced blocks of the pages.

    samples.py library|controls SOURCE    writes the C++ samples as one source

C++ samples that include the controls are those of `controls`. Each stands in a namespace of its own, behind the includes
of all. A sample with a main can be run: the program's first argument is the sample's place, as "reading.md:17".
"""
import re
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
# The Python page is run by tests/python in a folder of its own, what is said of packages by the test that makes them.
ELSEWHERE = ("python.md", "packaging.md")
PAGES = [ROOT / "README.md", ROOT / "CONTRIBUTING.md", ROOT / "SECURITY.md",
         *(page for page in sorted((ROOT / "docs").glob("*.md")) if page.name not in ELSEWHERE)]

FENCE = re.compile(r"^```(\S*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
INCLUDE = re.compile(r"^#include .*$", re.MULTILINE)
MAIN = re.compile(r"^int main\((.*)\) \{$", re.MULTILINE)


@dataclass
class Sample:
    page: str
    line: int  # of the first line of code
    language: str
    code: str

    @property
    def place(self):
        return f"{self.page}:{self.line}"


def samples(*languages):
    found = []
    for page in PAGES:
        text = page.read_text(encoding="utf-8")
        for fence in FENCE.finditer(text):
            if not languages or fence[1] in languages:
                line = text.count("\n", 0, fence.start(2)) + 1
                found.append(Sample(str(page.relative_to(ROOT)), line, fence[1], fence[2]))
    return found


def uses_controls(sample):
    return "corvane/controls/" in sample.code


def programs(kind):
    """The C++ samples that can be run."""
    return [sample for sample in samples("cpp") if uses_controls(sample) == (kind == "controls") and MAIN.search(sample.code)]


def source(kind):
    chosen = [sample for sample in samples("cpp") if uses_controls(sample) == (kind == "controls")]
    includes = sorted({include for sample in chosen for include in INCLUDE.findall(sample.code)} | {"#include <string_view>"})
    parts, calls = [], []
    for number, sample in enumerate(chosen):
        code = INCLUDE.sub("", sample.code)
        if main := MAIN.search(code):
            call = f"sample{number}::sampleMain({'count - 1, arguments + 1' if main[1] else ''})"
            calls.append(f'    if (place == "{sample.place}") return {call};')
            code = MAIN.sub(lambda found: f"int sampleMain({found[1]}) {{", code)
            end = code.index("\n}\n", main.start())
            code = f"{code[:end]}\nreturn 0; }}\n{code[end + 3:]}"  # a main need not say so
        else:
            # Functions that nobody calls: only that they compile is of interest.
            code = code.replace("\nvoid ", "\n[[maybe_unused]] void ")
        parts.append(f'namespace sample{number} {{\n#line {sample.line} "{sample.page}"\n{code}}}\n')
    return "\n".join([*includes, "", *parts, "int main(int count, char** arguments) {",
                      "    const std::string_view place = count > 1 ? arguments[1] : \"\";", *calls, "    return 3;", "}", ""])


def main():
    path, text = Path(sys.argv[2]), source(sys.argv[1])
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
