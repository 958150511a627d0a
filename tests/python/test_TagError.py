"""The views of error records, and the message box."""
import subprocess
import sys

import pytest

import corvane


@pytest.fixture
def boxes():
    shown = []
    corvane.setHostTexts("Player", "The player")
    corvane.setMessageBoxHook(lambda text, caption, icon: shown.append((text, caption, icon)))
    yield shown
    corvane.setMessageBoxHook(None)


def failed(path="/nowhere/a.mp3"):
    handler = corvane.FileHandler()
    assert not handler.Create(path)
    return handler


def test_a_view_of_no_record_is_empty():
    assert corvane.TagError().Stream() == "0, , "


def test_a_view_obtained_before_a_second_failure_shows_the_second_failure(write):
    handler = failed()
    view = handler.LastError
    assert view.Stream().endswith("No such file or directory")
    assert not handler.Create(write(b"PK\3\4" + bytes(100)))
    assert view.Stream() == "-2147221504, Create, This is a ZIP-File"


def test_the_record_lives_as_long_as_a_view_of_it():
    view = failed().LastError
    assert view.Stream().endswith("No such file or directory")


def test_every_view_is_a_new_object():
    handler = failed()
    assert handler.LastError is not handler.LastError


def test_show_hands_text_caption_and_icon_to_the_hook(boxes, write):
    handler = failed(write(b"PK\3\4" + bytes(100)))
    handler.LastError.Show()
    handler.LastError.Show("Open")
    assert [caption for _, caption, _ in boxes] == ["Player", "The player : Open"]
    text, _, icon = boxes[0]
    assert "This is a ZIP-File" in text
    assert icon == 16


def test_what_a_hook_raises_reaches_the_caller():
    def refuse(*_):
        raise LookupError("no screen")

    corvane.setMessageBoxHook(refuse)
    try:
        with pytest.raises(LookupError, match="no screen"):
            failed().LastError.Show()
    finally:
        corvane.setMessageBoxHook(None)


@pytest.mark.parametrize("hook", [3, "print"])
def test_a_hook_that_cannot_be_called_is_refused_and_the_old_one_stays(boxes, hook):
    with pytest.raises(TypeError):
        corvane.setMessageBoxHook(hook)
    failed().LastError.Show()
    assert len(boxes) == 1


def test_a_hook_that_is_still_set_does_not_harm_the_end_of_the_program():
    script = "import corvane; corvane.setMessageBoxHook(lambda *box: None)"
    assert subprocess.run([sys.executable, "-c", script], check=False).returncode == 0
