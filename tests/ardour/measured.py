"""What the two measuring programs share: sessions of Ardour 7, sounds played or exported, and claims on them."""

import base64
import contextlib
import math
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
BUILT = os.path.join(HERE, "../../build/release/vst3/Tessaly Bench [m].vst3")
LUA = os.path.join(HERE, "session.lua")
SCANNER = "/usr/lib/ardour7/ardour-vst3-scanner"
RATE = 48000
SECONDS = 6  # of tones
TONES_HZ = (100, 2000, 10000)
MID_HZ = 2000  # where "Mid F" stands by default; a step of "Mid G" is 0.1 dB, 180 of them are 0 dB
MID_G, MORPH, BYPASS = 13, 20, 21


class Broken(Exception):
    """Ardour did not do what it was told to."""


def follow(folder, *words):
    """Ardour's Lua host works on a session. @return what it wrote down: its own output is shared with other threads"""
    notes = folder + ".notes"
    open(notes, "w").close()
    done = subprocess.run(("ardour7-lua", LUA, folder, notes, *words), capture_output=True, text=True, timeout=300,
                          errors="replace")
    lines = open(notes).read().splitlines()
    if not lines or lines[-1] != "done":  # a crash after that, at its end, is its own affair
        raise Broken(f"{words} ended with {done.returncode} after {lines}:\n{done.stdout}{done.stderr}")
    return lines[:-1]


def floats(path):
    """The channels of a WAV file of 32-bit floats."""
    data = open(path, "rb").read()
    fmt = data.index(b"fmt ")
    channels = struct.unpack_from("<H", data, fmt + 10)[0]
    start = data.index(b"data", fmt) + 8
    count = (len(data) - start) // (4 * channels) * channels
    values = struct.unpack_from(f"<{count}f", data, start)
    return [values[i::channels] for i in range(channels)]


def level_db(samples, start, seconds=0.4, hz=MID_HZ):
    """Level of one tone in a piece of whole periods."""
    first, count = int(start * RATE), int(seconds * RATE)
    piece = samples[first:first + count]
    re_, im = 0.0, 0.0
    for i, x in enumerate(piece):
        angle = 2 * math.pi * hz * (first + i) / RATE
        re_ += x * math.cos(angle)
        im += x * math.sin(angle)
    return 20 * math.log10(max(2 * math.hypot(re_, im) / max(len(piece), 1), 1e-9))


class Session:
    def __init__(self, base, channels):
        self.channels = channels
        self.folder = tempfile.mkdtemp(dir=base)
        os.rmdir(self.folder)
        follow(self.folder, "make", str(channels), str(SECONDS + 0.5))
        tone = [sum(0.05 * math.sin(2 * math.pi * hz * i / RATE) for hz in TONES_HZ) for i in range(SECONDS * RATE)]
        for path in self.files("Take1_T"):
            data = bytearray(open(path, "rb").read())
            start = data.index(b"data", data.index(b"fmt ")) + 8
            count = min(len(tone), (len(data) - start) // 4)
            struct.pack_into(f"<{count}f", data, start, *tone[:count])
            open(path, "wb").write(data)

    def files(self, begin):
        found = []
        for folder, _, names in os.walk(self.folder):
            found += [os.path.join(folder, name) for name in names if name.startswith(begin) and name.endswith(".wav")]
        return sorted(found, key=lambda path: path.replace("%L", "%0").replace("%R", "%1"))

    def copy(self):
        other = object.__new__(Session)
        other.channels = self.channels
        other.folder = self.folder + f"-{len(os.listdir(os.path.dirname(self.folder)))}"
        shutil.copytree(self.folder, other.folder)
        inner = os.path.join(other.folder, "interchange")
        os.rename(os.path.join(inner, os.path.basename(self.folder)), os.path.join(inner, os.path.basename(other.folder)))
        return other

    def open(self, *commands):
        """@return what was read, in the order of the commands"""
        return [float(value) for value in follow(self.folder, "open", *commands)]

    def played(self, *commands, after=()):
        """@return the channels, as played with the commands before, in the same session"""
        before = set(self.files(""))
        self.open(*commands, f"play:{SECONDS - 0.5}", *after)
        return self.recorded_since(before, SECONDS - 0.5)

    def recorded_since(self, before, seconds):
        """@return the channels of the take; waits for the rest of it, which a busy Ardour writes after it has stopped"""
        for _ in range(30):
            channels = [floats(path)[0] for path in self.files("") if path not in before and "REC" in path]
            if len(channels) == self.channels and all(len(samples) > (seconds - 0.3) * RATE for samples in channels):
                return channels
            time.sleep(1)
        raise Broken(f"recorded {[len(samples) for samples in channels]} samples")

    def exported(self):
        path = os.path.join(self.folder, "export.wav")
        for _ in range(3):  # the tool itself ends in a crash at times, after or amid its work
            if os.path.exists(path):
                os.remove(path)
            done = subprocess.run(("ardour7-export", "-b", "float", "-o", path, self.folder, "s"), capture_output=True,
                                  timeout=180)
            if done.returncode == 0:
                break
        channels = floats(path)[:self.channels]
        if any(len(samples) < (SECONDS - 1) * RATE for samples in channels):
            raise Broken(f"exported {len(channels[0])} samples")
        return channels

    def stored(self, index):
        """A parameter's normalized value in the saved state."""
        text = open(os.path.join(self.folder, "s.ardour")).read()
        chunk = base64.b64decode(re.search(r"<chunk>([^<]*)</chunk>", text).group(1))
        return struct.unpack_from(">f", chunk, chunk.index(b"2620") + 4 + 4 * index)[0]

    def lanes(self):
        """The points of each parameter's lane, as saved."""
        text = open(os.path.join(self.folder, "s.ardour")).read()
        lane = r'<AutomationList [^>]*automation-id="parameter-(\d+)"[^>]*>\s*<events>([^<]*)</events>'
        return {int(index): points.split() for index, points in re.findall(lane, text)}

    def undo_steps(self):
        text = open(os.path.join(self.folder, "s.history")).read()
        return re.findall(r'<UndoTransaction[^>]*name="([^"]*)"', text)


failures = 0


def claim(text, holds, numbers):
    global failures
    failures += not holds
    print(f"{'ok  ' if holds else 'FAIL'} {text}: {numbers}", flush=True)


def levels(channels, times):
    return [[round(level_db(samples, time), 1) for time in times] for samples in channels]


def near(a, b, within=0.3):
    return abs(a - b) <= within


def gains(rows):
    """Each channel's levels, less its first."""
    return [[round(value - row[0], 1) for value in row] for row in rows]


def steps_heard(rows):
    """A boost of 12 dB and a cut of 6, of a tone that the compressor works on."""
    return bool(rows) and all(8 < row[1] < 13 and -7 < row[2] < -4 for row in rows)


def lateness_ms(samples, at):
    """When a tone has become 3 dB louder, after the moment of its lane; to some ms, as it takes 10 ms to tell a level."""
    before = level_db(samples, at - 0.2, 0.1)
    for ms in range(-20, 200):
        if level_db(samples, at + ms / 1000, 0.01) > before + 3:
            return ms + 5
    return None


@contextlib.contextmanager
def home(bundle):
    """A home folder for Ardour that knows the bundle, and goes with everything in it."""
    base = tempfile.mkdtemp(prefix="tessaly-ardour-")
    os.environ["HOME"] = base
    for variable in ("XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"):
        os.environ.pop(variable, None)
    try:
        place = os.path.join(base, ".vst3", os.path.basename(bundle))
        shutil.copytree(bundle, place)
        for folder, _, names in os.walk(place):  # what is as new as the scan counts as changed since
            for name in names:
                os.utime(os.path.join(folder, name), (0, 0))
        subprocess.run([SCANNER, "-f", place], capture_output=True, timeout=60,
                       env=os.environ | {"LD_LIBRARY_PATH": os.path.dirname(SCANNER)}, check=True)
        yield base
    finally:
        shutil.rmtree(base, ignore_errors=True)


def attempt(check, *arguments):
    """A check that Ardour breaks off has failed, and those after it go on."""
    try:
        check(*arguments)
    except Exception as error:
        claim(f"{check.__name__} of a session", False, repr(error)[:2000])


def finish():
    sys.exit(1 if failures else 0)
