"""The stub says what the module has, and type checkers can use it."""
import ast
import enum
import inspect
import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

import corvane

HERE = Path(__file__).resolve().parent
PACKAGE = Path(corvane.__file__).parent
STUB = ast.parse((PACKAGE / "__init__.pyi").read_text(encoding="utf-8"))
CLASSES = {node.name: node for node in STUB.body if isinstance(node, ast.ClassDef)}
FUNCTIONS = {node.name: node for node in STUB.body if isinstance(node, ast.FunctionDef)}
TYPES_ONLY = {"ScannedFile", "_Scan"}


def check_types(*words):
    """Output of mypy without its last line, in a folder that is not searched for settings."""
    done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", os.devnull, *words], cwd="/",
                          env=os.environ | {"MYPYPATH": str(PACKAGE.parent)}, capture_output=True, text=True,
                          check=False)
    assert done.stderr == ""
    return done.returncode, done.stdout.splitlines()[:-1]


def test_the_package_is_marked_as_typed():
    assert (PACKAGE / "py.typed").is_file()


def test_the_version_is_that_of_the_library():
    lists = Path(os.environ["CORVANE_SOURCE"], "CMakeLists.txt").read_text(encoding="utf-8")
    assert corvane.__version__ == re.search(r"project\(Corvane VERSION (\S+)", lists)[1]


def test_stub_and_example_pass_the_strict_type_check():
    assert check_types(str(PACKAGE / "__init__.pyi"), str(HERE / "typed_example.py")) == (0, [])


WRONG = [
    "corvane.FileHandler().Create(3)", "corvane.FileHandler().Size = 3", "corvane.ID3V1Tag().Title = b'x'",
    "corvane.ID3V1Tag().Track = '3'", "corvane.Genres()[1].Num", "corvane.FileHandler().Path + '/'",
    "corvane.ID3V2Tag().ID3V23Tag.Title", "corvane.scan(3)", "corvane.Genre().Name",
]


def test_every_wrong_line_is_found_by_the_type_check(tmp_path):
    program = tmp_path / "program.py"
    program.write_text("import corvane\n" + "\n".join(WRONG) + "\n", encoding="utf-8")
    code, lines = check_types(str(program))
    found = {int(line.split(":")[1]) for line in lines if ": error: " in line}
    assert (code, found) == (1, set(range(2, 2 + len(WRONG))))


def test_stubtest_finds_nothing():
    done = subprocess.run([sys.executable, "-m", "mypy.stubtest", "--concise", "corvane"], cwd="/",
                          env=os.environ | {"MYPYPATH": str(PACKAGE.parent)}, capture_output=True, text=True, check=False)
    assert done.stderr == ""
    # What is so in every extension module of this kind: the classes' own class, and the constructor of those that
    # cannot be made. ScannedFile is there for annotations only.
    expected = re.compile(r"corvane\.\w+ is inconsistent, metaclass differs"
                          r"|corvane\.\w+\.__init__ is inconsistent, stub does not have \*args argument \"args\""
                          r"|corvane\.ScannedFile is not present at runtime")
    assert [line for line in done.stdout.splitlines() if not expected.fullmatch(line)] == []


def public(names):
    return {name for name in names if not name.startswith("_") or name in ("__len__", "__getitem__", "__iter__")}


def test_has_every_class_and_function_and_no_other():
    classes = {name for name, value in vars(corvane).items() if inspect.isclass(value)}
    assert public(CLASSES) - TYPES_ONLY == classes - TYPES_ONLY
    assert public(FUNCTIONS) == {name for name, value in vars(corvane).items()
                                 if inspect.isbuiltin(value) and not name.startswith("_")}


def stub_members(name):
    """Each member of a class in the stub: 'read', 'write' or its parameters."""
    members = {}
    for node in CLASSES[name].body:
        if isinstance(node, ast.AnnAssign):
            members[node.target.id] = "write"
        elif isinstance(node, ast.FunctionDef):
            marks = {mark.id for mark in node.decorator_list}
            arguments = node.args.args if "staticmethod" in marks else node.args.args[1:]
            first_optional = len(arguments) - len(node.args.defaults)
            members[node.name] = "read" if "property" in marks else [
                (argument.arg, place >= first_optional) for place, argument in enumerate(arguments)]
    return members


def parameters_of(function):
    """Names of the parameters and whether they are optional, from the first line of the docstring."""
    inside = re.search(r"\((.*)\) -> ", function.__doc__.splitlines()[0]).group(1)
    inside = re.sub(r"\[[^]]*\]", "", inside)
    parts = [part.strip() for part in inside.split(",") if part.strip()]
    return [(part.split(":")[0], "=" in part) for part in parts if part.split(":")[0] != "self"]


def runtime_members(cls):
    members = {}
    for name, value in vars(cls).items():
        if isinstance(value, property):
            members[name] = "read" if value.fset is None else "write"
        elif name not in ("__init__", "__doc__", "__module__"):
            members[name] = value if not callable(getattr(cls, name)) else parameters_of(getattr(cls, name))
    return members


BOUND = [name for name, value in vars(corvane).items()
         if inspect.isclass(value) and name not in ("Error", "_Scan") and not issubclass(value, enum.IntEnum)]


@pytest.mark.parametrize("name", BOUND)
def test_members_are_the_same_and_as_writable(name):
    stub, runtime = stub_members(name), runtime_members(getattr(corvane, name))
    assert public(stub) == public(runtime)
    for member in public(stub) - {"__len__", "__getitem__", "__iter__"}:
        assert stub[member] == runtime[member], member


def members_in_header(name):
    """The public members of a class of the library."""
    header, = Path(os.environ["CORVANE_SOURCE"], "corvane").glob(f"*/{name}.h") if name not in HEADERS else HEADERS[name]
    source = re.sub(r"//.*", "", header.read_text(encoding="utf-8"))
    body = re.search(rf"^(?:class|struct) (?:CORVANE_EXPORT )?{name}\b[^;{{]*{{(.*?)^}};", source, re.M | re.S)[1]
    body = re.sub(r"^private:.*", "", body, flags=re.M | re.S)
    names = set(re.findall(r"^    (?:virtual |static |inline )*(?!using|return|friend)[\w:<>,]+[\w:<>, ]*[ &*]+(\w+)\(", body, re.M))
    names |= set(re.findall(r"^    (?!class |using )[\w:]+ (\w+)(?: = \S+)?;", body, re.M))
    return names - {name}


FIXTURE = [Path(os.environ["CORVANE_SOURCE"], "corvane/selftest/ITestFixture.h")]
HEADERS = {"ITestFixture": FIXTURE, "ITestManager": FIXTURE}
OTHERWISE = {"begin": "__iter__", "end": "__iter__"}


@pytest.mark.parametrize("name", BOUND)
def test_has_every_member_of_the_librarys_class_and_no_other(name):
    cls = getattr(corvane, name)
    members = {OTHERWISE.get(member, member) for member in members_in_header(name)}
    inherited = public(vars(corvane.ITestFixture)) if name == "TestFixture" else set()
    found = public(vars(cls)) | inherited
    assert found - {"xml_element", "__len__", "__getitem__"} == members
    assert ("xml_element" in found) == ("xml" in members)
    assert ({"__len__", "__getitem__"} <= found) == ("__iter__" in members)


@pytest.mark.parametrize("name", BOUND)
def test_only_what_the_stub_lets_make_can_be_made(name):
    if "__init__" in stub_members(name) or name == "ITestManager":
        assert getattr(corvane, name)() is not None
    elif name != "TestFixture":
        with pytest.raises(TypeError):
            getattr(corvane, name)()


@pytest.mark.parametrize("name", BOUND)
def test_every_class_and_member_has_a_docstring(name):
    cls = getattr(corvane, name)
    assert cls.__doc__
    missing = [member for member in public(vars(cls)) if not member.startswith("__") and
               not re.sub(r"^.*-> .*$", "", getattr(cls, member).__doc__ or "", count=1, flags=re.M).strip()]
    assert missing == []


def test_every_function_has_a_docstring():
    for name in FUNCTIONS:
        assert len(getattr(corvane, name).__doc__.splitlines()) > 2
