"""Reads a compiled resource file: strings, dialog templates and icons by their ids."""

import struct
from dataclasses import dataclass, field

ICON, DIALOG, STRING, GROUP_ICON = 3, 5, 6, 14
CLASSES = {0x80: "BUTTON", 0x81: "EDIT", 0x82: "STATIC", 0x83: "LISTBOX", 0x84: "SCROLLBAR", 0x85: "COMBOBOX"}
NO_ID = 0xFFFFFFFF


@dataclass
class Control:
    id: int
    window_class: str
    style: int
    x: int
    y: int
    width: int
    height: int
    text: str

    @property
    def kind(self):
        """The kind by class and style: what a user would call it."""
        low = self.style & 0xF
        if self.window_class == "BUTTON":
            return {0: "button", 1: "button", 3: "check", 7: "frame", 9: "radio", 11: "drawn button"}.get(low, f"button {low}")
        if self.window_class == "COMBOBOX":
            return {1: "combo simple", 2: "combo edit", 3: "combo list"}[self.style & 3]
        if self.window_class == "EDIT":
            number = " number" if self.style & 0x2000 else ""
            return ("edit lines" if self.style & 0x4 else "edit") + number
        return self.window_class.lower()


@dataclass
class Dialog:
    style: int
    width: int
    height: int
    title: str
    controls: list = field(default_factory=list)

    def control(self, id):
        return next(control for control in self.controls if control.id == id)


class _Reader:
    def __init__(self, data):
        self.data, self.at = data, 0

    def take(self, form):
        values = struct.unpack_from("<" + form, self.data, self.at)
        self.at += struct.calcsize("<" + form)
        return values if len(values) > 1 else values[0]

    def align(self):
        self.at = (self.at + 3) & ~3

    def text(self):
        end = self.at
        while self.data[end:end + 2] != b"\0\0":
            end += 2
        text = self.data[self.at:end].decode("utf-16-le")
        self.at = end + 2
        return text

    def name(self):
        """A number, or a text."""
        if self.data[self.at:self.at + 2] == b"\xff\xff":
            self.at += 2
            return self.take("H")
        return self.text()


def resources(path):
    """Each resource of the file as (type, id, bytes)."""
    data = path.read_bytes()
    at = 0
    while at + 8 <= len(data):
        size, header = struct.unpack_from("<II", data, at)
        reader = _Reader(data[at + 8:at + header])
        yield reader.name(), reader.name(), data[at + header:at + header + size]
        at = (at + header + size + 3) & ~3


def strings(path):
    """id -> text of every string that isn't empty."""
    table = {}
    for kind, block, data in resources(path):
        if kind != STRING:
            continue
        reader = _Reader(data)
        for index in range(16):
            length = reader.take("H")
            text = data[reader.at:reader.at + 2 * length].decode("utf-16-le")
            reader.at += 2 * length
            if text:
                table[(block - 1) * 16 + index] = text
    return table


def dialogs(path):
    """Template id -> Dialog."""
    return {name: _dialog(data) for kind, name, data in resources(path) if kind == DIALOG}


def icon_sizes(path):
    """Icon id -> list of (width, height)."""
    sizes = {}
    for kind, name, data in resources(path):
        if kind == GROUP_ICON:
            count = struct.unpack_from("<H", data, 4)[0]
            sizes[name] = [struct.unpack_from("<BB", data, 6 + 14 * i) for i in range(count)]
    return sizes


def _dialog(data):
    reader = _Reader(data)
    version, signature, _help, _extended, style, count = reader.take("HHIIIH")
    if (version, signature) != (1, 0xFFFF):
        raise ValueError("not an extended dialog template")
    _x, _y, width, height = reader.take("hhhh")
    _menu, _class, title = reader.name(), reader.name(), reader.text()
    reader.take("HHBB")
    reader.text()
    dialog = Dialog(style, width, height, title)
    for _ in range(count):
        reader.align()
        _help, _extended, style, x, y, w, h, id = reader.take("IIIhhhhI")
        window_class, text = reader.name(), reader.name()
        extra = reader.take("H")
        reader.at += extra
        dialog.controls.append(Control(id, CLASSES.get(window_class, window_class), style, x, y, w, h, str(text)))
    return dialog
