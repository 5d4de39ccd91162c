# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes small PDF files byte by byte, so that each holds exactly the structure it is a sample of."""

import hashlib
import struct

PASSWORD_PADDING = bytes.fromhex(
    "28bf4e5e4e758a4164004e56fffa01082e2e00b6d0683e802f0ca9fe6453697a"
)
# Old 40-bit encryption: every PDF library still reads it and it takes the fewest lines.
KEY_LENGTH = 5
PERMISSIONS = -4


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    i = j = 0
    out = bytearray()
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


def padded(password):
    return (password.encode("ascii") + PASSWORD_PADDING)[:32]


class Encryption:
    """The standard security handler, revision 2, with one password for user and owner."""

    def __init__(self, password, file_id):
        owner_key = hashlib.md5(padded(password)).digest()[:KEY_LENGTH]
        self.owner = rc4(owner_key, padded(password))
        seed = padded(password) + self.owner + struct.pack("<i", PERMISSIONS) + file_id
        self._key = hashlib.md5(seed).digest()[:KEY_LENGTH]
        self.user = rc4(self._key, PASSWORD_PADDING)

    def apply(self, number, data):
        seed = self._key + struct.pack("<I", number)[:3] + b"\0\0"
        return rc4(hashlib.md5(seed).digest()[: KEY_LENGTH + 5], data)

    def dictionary(self):
        return (
            f"<< /Filter /Standard /V 1 /R 2 /P {PERMISSIONS} "
            f"/O <{self.owner.hex()}> /U <{self.user.hex()}> >>"
        )


class PdfFile:
    """Objects are numbered in the order in which they are added, from 1."""

    def __init__(self, creator, password=None):
        self._id = hashlib.md5(creator.encode("ascii")).digest()
        self._encryption = Encryption(password, self._id) if password else None
        self._objects = []
        self._pages = []
        self._pages_number = self.reserve()
        creator_bytes = creator.encode("ascii")
        if self._encryption:
            creator_bytes = self._encryption.apply(len(self._objects) + 1, creator_bytes)
        self._info_number = self.add(f"<< /Creator <{creator_bytes.hex()}> >>")

    def reserve(self):
        self._objects.append(b"")
        return len(self._objects)

    def add(self, text):
        self._objects.append(text.encode("ascii"))
        return len(self._objects)

    def add_stream(self, entries, data):
        """entries: the stream dictionary's text without its Length."""
        number = self.reserve()
        if self._encryption:
            data = self._encryption.apply(number, data)
        head = f"<< {entries} /Length {len(data)} >>\nstream\n".encode("ascii")
        self._objects[number - 1] = head + data + b"\nendstream"
        return number

    def add_page(self, width, height, resources, content, entries=""):
        """width, height in points; resources and entries are dictionary texts."""
        contents = self.add_stream("", content.encode("ascii"))
        page = self.add(
            f"<< /Type /Page /Parent {self._pages_number} 0 R /MediaBox [0 0 {width} {height}] "
            f"/Resources << {resources} >> /Contents {contents} 0 R {entries}>>"
        )
        self._pages.append(page)

    def to_bytes(self):
        kids = " ".join(f"{page} 0 R" for page in self._pages)
        pages = f"<< /Type /Pages /Count {len(self._pages)} /Kids [{kids}] >>"
        self._objects[self._pages_number - 1] = pages.encode("ascii")
        root = self.add(f"<< /Type /Catalog /Pages {self._pages_number} 0 R >>")
        encrypt = ""
        if self._encryption:
            encrypt = f"/Encrypt {self.add(self._encryption.dictionary())} 0 R "
        out = bytearray(b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n")
        offsets = []
        for number, body in enumerate(self._objects, 1):
            offsets.append(len(out))
            out += f"{number} 0 obj\n".encode("ascii") + body + b"\nendobj\n"
        start = len(out)
        out += f"xref\n0 {len(offsets) + 1}\n0000000000 65535 f \n".encode("ascii")
        for offset in offsets:
            out += f"{offset:010} 00000 n \n".encode("ascii")
        identity = self._id.hex()
        out += (
            f"trailer\n<< /Size {len(offsets) + 1} /Root {root} 0 R /Info {self._info_number} 0 R "
            f"{encrypt}/ID [<{identity}> <{identity}>] >>\nstartxref\n{start}\n%%EOF\n"
        ).encode("ascii")
        return bytes(out)
