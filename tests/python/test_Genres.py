"""The genre list and its entries."""
import pytest

import corvane


def numpy_like(number):
    """A whole number of a type of its own."""

    class Whole:
        def __index__(self):
            return number

    return Whole()


def test_count_is_149():
    genres = corvane.Genres()
    assert genres.Count == len(genres) == 149


def test_the_last_position_is_the_undefined_genre():
    last = corvane.Genres().getGenreByIndex(149)
    assert (last.Num, last.Description) == (255, "<Undefined>")


def test_genre_n_stands_at_position_n_plus_1():
    genres = corvane.Genres()
    assert [genres[position].Num for position in range(1, 149)] == list(range(148))


@pytest.mark.parametrize("key, name", [("99", "Accoustic"), ("67", "Psychadelic"), ("255", "<Undefined>")])
def test_an_entry_is_found_by_its_key(key, name):
    genres = corvane.Genres()
    assert genres.getGenreByID(key).Description == genres.Item(key).Description == genres[key].Description == name


@pytest.mark.parametrize("key", ["148", "254", "", "017", " 17", "Rock", "17\0", "\ud800", "17\udc80"])
def test_a_text_that_is_no_key_gives_nothing(key):
    genres = corvane.Genres()
    assert genres.getGenreByID(key) is None and genres.Item(key) is None and genres[key] is None


@pytest.mark.parametrize("position", [0, -1, 150, 2**31 - 1, 2**31, -2**31 - 1, 2**40, -2**70, 1.5, 0.5, 1e300,
                                      float("nan"), float("inf")])
def test_a_position_out_of_range_gives_nothing(position):
    genres = corvane.Genres()
    assert genres.getGenreByIndex(position) is None and genres.Item(position) is None and genres[position] is None


@pytest.mark.parametrize("position", [18.0, True, numpy_like(18)])
def test_any_number_that_is_whole_is_a_position(position):
    genres = corvane.Genres()
    expected = genres.getGenreByIndex(int(position))
    assert expected is not None
    assert genres.getGenreByIndex(position) is genres.Item(position) is genres[position] is expected


@pytest.mark.parametrize("key", [None, b"17", 1j])
def test_a_key_that_is_neither_number_nor_text_is_a_type_error(key):
    with pytest.raises(TypeError):
        corvane.Genres()[key]


def test_iterates_in_the_order_of_the_table():
    assert [genre.Num for genre in corvane.Genres()] == [*range(148), 255]


def test_iterators_are_independent_and_keep_the_list_alive():
    first, second = iter(corvane.Genres()), iter(corvane.Genres())
    next(first)
    assert next(first).Num == 1 and next(second).Num == 0


def test_the_same_entry_is_handed_out_every_time():
    genres = corvane.Genres()
    assert genres[18] is genres["17"]


def test_a_written_number_changes_neither_key_nor_name_nor_another_list():
    genres = corvane.Genres()
    genres["17"].Num = 300
    assert genres["17"].Num == 300
    assert genres["17"].Description == "Rock"
    assert corvane.Genres()["17"].Num == 17


def test_an_entry_outlives_its_list():
    assert corvane.Genres()["17"].Description == "Rock"


def test_a_new_genre_is_empty():
    assert (corvane.Genre().Num, corvane.Genre().Description) == (0, "")


def test_the_name_is_read_only():
    with pytest.raises(AttributeError):
        corvane.Genre().Description = "Rock"
