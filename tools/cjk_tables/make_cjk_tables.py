#!/usr/bin/env python3
"""Writes the decoding tables of Far East pages:

    tools/cjk_tables/make_cjk_tables.py src/html_to_rtf/charsets/cjk_tables

Which cells are assigned is what the national standards say (EUC-JP without its
second plane, and GB2312), and the character of a cell is that of the Windows
code page (CP932, CP936), all by the C library's own converters. Rows that only
makers of systems have filled stay empty.
"""
import ctypes
import ctypes.util
import pathlib
import sys

ROWS = 94

c = ctypes.CDLL(None, use_errno=True)
c.iconv_open.restype = ctypes.c_void_p
c.iconv_open.argtypes = [ctypes.c_char_p, ctypes.c_char_p]
c.iconv.restype = ctypes.c_size_t
c.iconv.argtypes = [ctypes.c_void_p] + [ctypes.c_void_p] * 4


class Converter:
    def __init__(self, charset):
        self.handle = c.iconv_open(b"UTF-16BE", charset)
        if self.handle == ctypes.c_void_p(-1).value:
            sys.exit(f"the C library does not know {charset.decode()}")

    def character(self, two_bytes):
        """The one 16-bit character of two bytes, or 0."""
        source = ctypes.create_string_buffer(two_bytes, 2)
        target = ctypes.create_string_buffer(8)
        here, left = ctypes.c_void_p(ctypes.addressof(source)), ctypes.c_size_t(2)
        there, room = ctypes.c_void_p(ctypes.addressof(target)), ctypes.c_size_t(8)
        c.iconv(self.handle, None, None, None, None)
        refused = c.iconv(self.handle, ctypes.byref(here), ctypes.byref(left), ctypes.byref(there), ctypes.byref(room))
        if refused or left.value or room.value != 6:
            return 0
        return int.from_bytes(target.raw[:2], "big")


def euc(row, cell):
    return bytes([0xA1 + row, 0xA1 + cell])


def shift_jis(row, cell):
    lead = row // 2 + (0x81 if row < 62 else 0xC1)
    if row % 2:
        return bytes([lead, 0x9F + cell])
    return bytes([lead, 0x40 + cell + (cell >= 63)])


def table(standard, code_page, bytes_of):
    standard, code_page = Converter(standard), Converter(code_page)
    for row in range(ROWS):
        for cell in range(ROWS):
            assigned = standard.character(euc(row, cell))
            yield code_page.character(bytes_of(row, cell)) if assigned else 0


def write(path, characters):
    lines = ["// Made by tools/cjk_tables/make_cjk_tables.py. Not to be edited."]
    for row in range(ROWS):
        units = [f"0x{next(characters):04X}," for _ in range(ROWS)]
        lines.append("{")
        lines += [" ".join(units[at : at + 12]) for at in range(0, ROWS, 12)]
        lines.append("},")
    path.write_text("\n".join(lines) + "\n")


folder = pathlib.Path(sys.argv[1])
write(folder / "jis_x_0208.inc", table(b"EUC-JP", b"CP932", shift_jis))
write(folder / "gb_2312.inc", table(b"GB2312", b"CP936", euc))
