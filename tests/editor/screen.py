"""A program on an X screen of its own, driven by keys as a user presses them."""
import os
import subprocess
import time

PATIENCE = 30  # seconds
PAUSE = 0.5    # seconds that a user takes between two steps


class Screen:
    """An X server with a program on it, whose window has this title."""

    def __init__(self, folder, command, title):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1000x24", "-nolisten", "tcp"],
                                       pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            display = f":{number.readline().strip()}"
        self.environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")} | {
            "DISPLAY": display, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8", "HOME": str(folder),
            "XDG_RUNTIME_DIR": str(folder)}
        self.program = subprocess.Popen(command, env=self.environment)
        self.focus(title)

    def close(self):
        for process in (self.program, self.server):
            process.terminate()
            process.wait()

    def xdotool(self, *words):
        return subprocess.run(["xdotool", *words], env=self.environment, check=True, capture_output=True, text=True,
                              timeout=PATIENCE).stdout

    def focus(self, title):
        """There is no window manager, so the window is given the keys by hand."""
        window = self.xdotool("search", "--sync", "--onlyvisible", "--name", title).split()[-1]
        self.xdotool("windowfocus", "--sync", window)
        time.sleep(PAUSE)

    def press(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)
            time.sleep(PAUSE)

    def type(self, words):
        self.xdotool("type", "--delay", "20", words)
        time.sleep(PAUSE)
