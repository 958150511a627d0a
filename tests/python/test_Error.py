"""Failures that reach the caller."""
import pickle

import pytest

import corvane


def test_has_number_source_and_description():
    error = corvane.Error(6, "Track", "Overflow")
    assert (error.number, error.source, error.description) == (6, "Track", "Overflow")
    assert str(error) == "6, Track, Overflow"
    assert repr(error) == "Error(6, 'Track', 'Overflow')"


def test_is_made_of_all_three_by_place_or_by_name():
    error = corvane.Error(description="Overflow", source="Track", number=6)
    assert error.args == (6, "Track", "Overflow") and str(error) == "6, Track, Overflow"
    for arguments in ((), (6,), (6, "Track"), ("6", "Track", "Overflow"), (6, "Track", "Overflow", None)):
        with pytest.raises(TypeError):
            corvane.Error(*arguments)


def test_is_an_exception_that_can_be_sent_to_another_process():
    copy = pickle.loads(pickle.dumps(corvane.Error(91, "a", "b")))
    assert isinstance(copy, corvane.Error) and isinstance(copy, Exception)
    assert (copy.number, copy.source, copy.description) == (91, "a", "b")


def test_a_system_failure_has_the_number_and_text_of_errno():
    with pytest.raises(corvane.Error) as failed:
        corvane.File.ofPath("/nowhere/a.mp3")
    assert failed.value.number == 2
    assert failed.value.description == "No such file or directory"


@pytest.mark.parametrize("number", [32768, -32769, 10**30])
def test_a_number_that_does_not_fit_is_an_overflow_and_changes_nothing(number):
    genre = corvane.Genre()
    genre.Num = 5
    with pytest.raises(corvane.Error) as failed:
        genre.Num = number
    assert failed.value.number == 6
    assert genre.Num == 5


@pytest.mark.parametrize("value", [1.0, "1", None, b"1"])
def test_what_is_no_whole_number_is_a_type_error(value):
    with pytest.raises(TypeError):
        corvane.Genre().Num = value


@pytest.mark.parametrize("value", [b"Title", 1, None])
def test_what_is_no_text_is_a_type_error(value):
    with pytest.raises(TypeError):
        corvane.ID3V1Tag().Title = value


def test_a_text_with_half_a_character_is_refused():
    with pytest.raises(UnicodeEncodeError):
        corvane.ID3V1Tag().Title = "\ud83c"
