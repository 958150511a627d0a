"""The self-test run by a test manager that is written in Python."""
import os

import pytest

import corvane

BOX = "MP3Tst00.mp3"


class Manager:
    """Derived from nothing: a manager is what has these two methods."""

    def __init__(self):
        self.steps, self.checks = [], []

    def CheckCondition(self, Condition, Message):
        self.checks.append((Condition, Message))

    def StartStep(self, Text):
        self.steps.append(Text)


class DerivedManager(corvane.ITestManager):
    def __init__(self):
        super().__init__()
        self.steps, self.checks = [], []

    def CheckCondition(self, Condition, Message):
        self.checks.append((Condition, Message))
        return Condition

    def StartStep(self, Text):
        self.steps.append(Text)


def run(manager):
    fixture = corvane.TestFixture()
    assert isinstance(fixture, corvane.ITestFixture)
    fixture.Setup(manager, "project.vbp")
    fixture.RunTest()
    fixture.TearDown()
    return fixture


ROUND = ["Write Tag", "Check if Tag exists", "Testing file size", "Comparing written Tag"]


@pytest.mark.parametrize("kind", [Manager, DerivedManager])
def test_without_the_scratch_file_one_check_fails_and_all_others_pass(tmp_path, monkeypatch, kind):
    monkeypatch.chdir(tmp_path)
    manager = kind()
    run(manager)
    assert manager.steps == ["Deleting Test-File", "Create Test-File", "Testing file size", *ROUND, "- REWRITE TAG -",
                             *ROUND]
    assert [message for passed, message in manager.checks if not passed] == ["Couldn't delete the Test-File"]
    assert all(isinstance(passed, bool) for passed, _ in manager.checks)
    assert len(manager.checks) == 1 + 1 + 2 * (1 + 1 + 8)
    assert os.path.getsize(BOX) == 138


def test_with_the_scratch_file_every_check_passes(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    run(Manager())
    manager = Manager()
    run(manager)
    assert all(passed for passed, _ in manager.checks)


def test_in_a_folder_that_takes_no_file_checks_fail_and_nothing_is_raised(tmp_path, monkeypatch):
    (tmp_path / BOX / "inside").mkdir(parents=True)
    monkeypatch.chdir(tmp_path)
    manager = Manager()
    run(manager)
    assert (False, f"Couldn't create the Test-File '{BOX}'") in manager.checks


def test_name_and_rule():
    fixture = corvane.TestFixture()
    assert (fixture.Name, fixture.ContinueAfterError) == ("ID3v1xTagRW Test", True)


def test_the_manager_is_released():
    manager = Manager()
    fixture = corvane.TestFixture()
    before = __import__("sys").getrefcount(manager)
    fixture.Setup(manager, "")
    assert __import__("sys").getrefcount(manager) == before + 1
    fixture.TearDown()
    assert __import__("sys").getrefcount(manager) == before


def test_a_manager_that_defines_nothing_refuses():
    with pytest.raises(NotImplementedError):
        corvane.ITestManager().StartStep("x")


def test_without_a_manager_running_raises():
    with pytest.raises(corvane.Error) as failed:
        corvane.TestFixture().RunTest()
    assert failed.value.number == 91


def test_what_a_manager_raises_reaches_the_caller(tmp_path, monkeypatch):
    class Stopping(Manager):
        def StartStep(self, Text):
            raise KeyboardInterrupt

    monkeypatch.chdir(tmp_path)
    with pytest.raises(KeyboardInterrupt):
        run(Stopping())


def test_a_result_that_is_neither_true_nor_false_is_the_managers_failure(tmp_path, monkeypatch):
    class Neither:
        def __bool__(self):
            raise LookupError("neither")

    class Odd(Manager):
        def CheckCondition(self, Condition, Message):
            return Neither()

    monkeypatch.chdir(tmp_path)
    with pytest.raises(LookupError, match="neither"):
        run(Odd())


def test_a_manager_may_stop_the_run_at_the_first_failed_check(tmp_path, monkeypatch):
    class Stopping(Manager):
        def CheckCondition(self, Condition, Message):
            super().CheckCondition(Condition, Message)
            if not Condition:
                fixture.TearDown()

    monkeypatch.chdir(tmp_path)
    fixture, manager = corvane.TestFixture(), Stopping()
    fixture.Setup(manager, "")
    fixture.RunTest()
    assert manager.checks == [(False, "Couldn't delete the Test-File")]
    assert manager.steps == ["Deleting Test-File"]
    assert os.listdir(tmp_path) == []
