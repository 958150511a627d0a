#!/usr/bin/python3
"""Turns the comments of a header into those that Doxygen reads; the code and the numbers of its lines stay.

    filter.py HEADER

The headers are written for people who read them. So a comment tells of

- the file and its first class, when it opens the header;
- all declarations that follow it up to the next empty line or comment;
- the declaration in whose line it stands, in front of what is said of all of them. An overload of the same name that
  says nothing itself shares it.

Destructors and deleted operations have nothing to tell and are left out.
"""
import re
import sys

SPECIAL = re.compile(r"[\\@<>&#%]")
DEFINITION = re.compile(r"^\s*(?:class|struct|enum class)\s(?!.*;\s*$)")
PASSED_OVER = re.compile(r"^\s*(?:#|friend (?:class|struct) |namespace |\}|(?:class|struct|enum class) [\w:]+(?: : [\w:]+)?;"
                         r"|static_assert|Q_[A-Z_]+\b(?!S)|using RuntimeFailure::)")
NOTHING_TO_TELL = re.compile(r"^\s*(?:(?:virtual )?~\w+\(|.*= delete;)|^\s*(?:RuntimeFailure|DamageFailure)(?:& operator=)?\(const")
SEVERAL = re.compile(r"^\s*(std::string) (\w+(?:, \w+)+);$")
NAME = re.compile(r"(operator\W+|~?\w+)\(|(\w+)(?: = [^;]*|\{\})?[;,]")


ENTITIES = {"<": "&lt;", ">": "&gt;", "&": "&amp;"}


def escaped(text):
    """What Doxygen would take for commands and markup made plain text; between quotation marks it takes nothing so."""
    def plain(part):
        return SPECIAL.sub(lambda found: ENTITIES.get(found.group(), "\\" + found.group()), part)

    return "".join(part if part.startswith('"') else plain(part) for part in re.split(r'("[^"]*")', text))


def paragraphs(lines):
    """A comment as one line: paragraphs as such, lists as lists, indented tables as they stand."""
    parts, table = [], []
    for line in [*lines, ""]:
        if line.startswith("   "):
            table.append(escaped(line))
            continue
        if table:
            parts.append("<pre>" + "<br>".join(table) + "</pre>")
            table = []
        parts.append("<p>" if not line else escaped(line))
    while parts and parts[-1] == "<p>":
        parts.pop()
    return " ".join(parts)


def doxygen(*texts):
    told = [text for text in texts if text]
    return f"/** {'. '.join(text.removesuffix('.') for text in told)}. */ " if told else ""


def trailing_comment(line):
    """A line's code and the comment behind it."""
    match = re.search(r"(?<=[;,}{\w\"])\s+// (?!NOLINT)(.*)$", line)
    return (line[:match.start()], match.group(1)) if match else (line, "")


class Filter:
    def __init__(self):
        self.begun = False   # whether the comment that opens the header has begun
        self.opening = None  # what it says, until a class has taken it
        self.comment = []    # full lines of comment in front of the next declaration
        self.shared = ""     # what is said of the declarations up to the next empty line
        self.named = ("", "")  # the last declaration's name, and what is said in its line

    def lines(self, lines):
        number = 0
        while number < len(lines):
            end = self.end_of_statement(lines, number)
            yield from self.statement(lines[number:end])
            number = end

    @staticmethod
    def end_of_statement(lines, number):
        """A declaration may take several lines; a definition of a class counts as its first line alone."""
        line = lines[number]
        if not line.strip() or line.lstrip().startswith("//") or PASSED_OVER.match(line) or DEFINITION.match(line):
            return number + 1
        depth = 0
        for end in range(number, len(lines)):
            code = trailing_comment(lines[end])[0].split("//")[0]
            depth += sum(map(code.count, "({")) - sum(map(code.count, ")}"))
            if depth <= 0 and re.search(r"[;},:]\s*$", code):
                return end + 1
        return len(lines)

    def statement(self, lines):
        first = lines[0]
        stripped = first.strip()
        if not stripped or re.fullmatch(r"(?:public|protected|private|Q_SIGNALS|public Q_SLOTS):", stripped):
            yield from self.forget(first)
        elif stripped.startswith("//"):
            if not self.comment:
                self.shared, self.named = "", ("", "")
            self.comment.append(stripped[2:].removeprefix(" "))
            yield "" if self.begun else "/** @file"
            self.begun = True
        elif first.startswith("#pragma once"):
            self.opening = self.take_comment()
            yield f"{self.opening} */"
        elif DEFINITION.match(first):
            yield self.definition(first)
        elif PASSED_OVER.match(first):
            yield from self.forget(*lines)
        elif NOTHING_TO_TELL.match(first):
            self.shared = self.take_comment() or self.shared
            yield from ("" for _ in lines)
        else:
            yield from self.declaration(lines)

    def take_comment(self):
        text, self.comment = paragraphs(self.comment), []
        return text

    def forget(self, *lines):
        self.comment, self.shared, self.named = [], "", ("", "")
        yield from lines

    def definition(self, line):
        text = self.take_comment()
        if not text and self.opening:
            text = self.opening
        self.opening = None
        self.shared = ""
        return doxygen(text) + trailing_comment(line)[0]

    def declaration(self, lines):
        self.shared = self.take_comment() or self.shared
        split = [trailing_comment(line) for line in lines]
        own = escaped(" ".join(comment for _, comment in split if comment))
        own = own[:1].upper() + own[1:]
        name = "".join(NAME.search(" ".join(lines)).groups("")) if NAME.search(" ".join(lines)) else ""
        if not own and name == self.named[0]:
            own = self.named[1]
        self.named = (name, own)
        code = [code for code, _ in split]
        if several := SEVERAL.match(code[0]):  # Doxygen gives the comment to the first of them only
            code[0] = " ".join(f"{doxygen(own, self.shared)}{several[1]} {each};" for each in several[2].split(", "))
            yield code[0]
            return
        yield doxygen(own, self.shared) + code[0]
        yield from code[1:]


def main():
    with open(sys.argv[1], encoding="utf-8") as header:
        for line in Filter().lines(header.read().splitlines()):
            print(line)


if __name__ == "__main__":
    main()
