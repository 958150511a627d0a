"""Audio made by other programs, each variant once in a process."""
import functools
import math
import struct
import tempfile
import wave
from pathlib import Path

from support import run

SECONDS = 2.5  # far enough from a whole number that encoder delays do not change the seconds of a duration

_scratch = tempfile.TemporaryDirectory(prefix="corvane-interop-audio-")
_folder = Path(_scratch.name)


def _sample(index, rate):
    """A chord on the left, another on the right that comes and goes: something to do for joint stereo and for VBR."""
    time = index / rate
    left = 0.3 * math.sin(2 * math.pi * 440 * time) + 0.2 * math.sin(2 * math.pi * 1319 * time)
    right = 0.4 * math.sin(2 * math.pi * 554 * time) * abs(math.sin(3 * time))
    return int(left * 32767), int(right * 32767)


@functools.cache
def tone(rate=44100, channels=2, seconds=SECONDS):
    """A WAV file."""
    path = _folder / f"tone-{rate}-{channels}-{seconds}.wav"
    frames = bytearray()
    for index in range(int(rate * seconds)):
        frames += struct.pack(f"<{channels}h", *_sample(index, rate)[:channels])
    with wave.open(str(path), "wb") as file:
        file.setnchannels(channels)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(frames)
    return path


def stored(data, name):
    """A file for the life of this process."""
    path = _folder / name
    path.write_bytes(data)
    return path


def _made_by(*words, suffix):
    path = _folder / f"made{suffix}"
    path.unlink(missing_ok=True)
    run(*words, path)
    return path.read_bytes()


@functools.cache
def lame(*options, rate=44100, channels=2):
    """An MP3 file by lame, in the frequency of the tone unless an option says otherwise."""
    resample = () if "--resample" in options else ("--resample", f"{rate / 1000:g}")
    return _made_by("lame", "--quiet", "--noreplaygain", *resample, *options, tone(rate, channels), suffix=".mp3")


@functools.cache
def ffmpeg(*options, rate=44100, channels=2, suffix=".mp3"):
    """An MP3 file by ffmpeg, without tags unless an option asks for them."""
    untagged = () if "-id3v2_version" in options else ("-id3v2_version", "0")
    return _made_by("ffmpeg", "-v", "error", "-y", "-i", tone(rate, channels), *untagged, *options, suffix=suffix)


@functools.cache
def sox(*options, rate=44100, channels=2):
    """An MP3 file by sox."""
    return _made_by("sox", tone(rate, channels), *options, suffix=".mp3")


@functools.cache
def plain():
    """A short MP3 file without tags, for tests that are about tags."""
    return lame("-b", "128", "-m", "s")
