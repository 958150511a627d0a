"""Small pictures to put into tags."""
import functools

from support import run


@functools.cache
def made_by_ffmpeg(codec):
    return run("ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=size=24x16:rate=1", "-frames:v", "1", "-f",
               "image2pipe", "-c:v", codec, "-")


def png():
    return made_by_ffmpeg("png")


def jpeg():
    """Holds 0xFF bytes before others of every kind, which unsynchronisation has to take apart."""
    return made_by_ffmpeg("mjpeg")
