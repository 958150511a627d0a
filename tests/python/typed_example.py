"""A program that uses all kinds of members, as a type checker sees it."""
from pathlib import Path
from xml.etree.ElementTree import Element

import corvane


class Manager:
    def CheckCondition(self, Condition: bool, Message: str) -> bool:
        return Condition

    def StartStep(self, Text: str) -> None:
        print(Text)


def change(path: Path) -> str | None:
    handler = corvane.FileHandler()
    if not handler.Create(path):
        return handler.LastError.Stream()
    record: corvane.ID3V1Tag = handler.ID3v1xTag
    record.Title = "Title"
    record.TagType = corvane.EID3TagConstants.ID3V11
    handler.ID3v1xTag = record
    written: bool = handler.writeID3v1xTag()
    element: Element = record.xml_element()
    record.Tag = element
    reader = handler.ID3V2Tag.ID3V23Tag
    picture = handler.ID3V2Tag.Picture
    if reader is not None and picture is not None:
        found, number, name = reader.splittedGenre()
        image: bytes = picture.bytes
        print(found, number + 1, name.upper(), len(image))
        reader.Picture = corvane.Picture.fromBytes(image)
    return None if written else "not written"


def names(values: corvane.ID3V230) -> list[str]:
    value = values.FrameValue(corvane.ID3_FrameID.ID3FID_TITLE, "")
    if isinstance(value, str):
        print(value.upper())
    return [frame.FrameAbbr for frame in values.Frames]


def titles(folder: Path) -> dict[str, str]:
    return {file["path"]: file["title"] for file in corvane.scan([folder, b"b.mp3"], jobs=2) if "error" not in file}


def genre(key: int | str) -> str:
    entry = corvane.Genres()[key]
    return "" if entry is None else entry.Description


fixture: corvane.ITestFixture = corvane.TestFixture()
fixture.Setup(Manager(), Path("project"))
try:
    corvane.ID3V1Tag().Track = 99999
except corvane.Error as error:
    total: int = error.number + len(error.source) + len(error.description)
