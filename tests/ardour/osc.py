"""Open Sound Control messages to the Ardour of this machine, and its answers. Ardour listens at 3819 and, as it comes,
answers to 8000, so one program at a time."""

import socket
import struct

ARDOUR = ("127.0.0.1", 3819)
ANSWERS = ("127.0.0.1", 8000)
FORMATS = {"i": ">i", "f": ">f", "d": ">d", "h": ">q"}


def padded(text):
    data = text.encode()
    return data + b"\0" * (4 - len(data) % 4)


def text_at(data, start):
    """@return a text and where the next value begins"""
    end = data.index(b"\0", start)
    return data[start:end].decode(errors="replace"), (end // 4 + 1) * 4


class Osc:
    def __init__(self):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind(ANSWERS)

    def send(self, path, *values):
        kinds = "".join({int: "i", float: "f", str: "s"}[type(value)] for value in values)
        data = b"".join(padded(value) if kind == "s" else struct.pack(FORMATS[kind], value)
                        for kind, value in zip(kinds, values))
        self.socket.sendto(padded(path) + padded("," + kinds) + data, ARDOUR)

    def receive(self, timeout):
        """@return path and values of the next message, or None"""
        self.socket.settimeout(timeout)
        try:
            data = self.socket.recv(65536)
        except (TimeoutError, BlockingIOError):
            return None
        path, at = text_at(data, 0)
        kinds, at = text_at(data, at)
        values = []
        for kind in kinds[1:]:
            if kind == "s":
                value, at = text_at(data, at)
            else:
                value = struct.unpack_from(FORMATS[kind], data, at)[0]
                at += struct.calcsize(FORMATS[kind])
            values.append(value)
        return path, values

    def ask(self, path, *values, until, timeout=2.0):
        """@return the values of the answers up to the one of the path `until`"""
        while self.receive(0):
            pass
        self.send(path, *values)
        answers = []
        while answer := self.receive(timeout):
            answers.append(answer[1])
            if answer[0] == until:
                break
        return answers
