#!/usr/bin/env python3
"""Reads the packed Vireline.app byte by byte, and fails on what would keep it from starting on a Mac.

  macos_app_test.py <archive.zip> <version> <folder of the sources>

It shares no code with what makes the archive.
"""
import hashlib
import plistlib
import stat
import struct
import sys
import unittest
import zipfile

X86_64, ARM64 = 0x01000007, 0x0100000C
LC_SYMTAB, LC_LOAD_DYLIB, LC_SEGMENT_64, LC_CODE_SIGNATURE, LC_BUILD_VERSION = 0x2, 0xC, 0x19, 0x1D, 0x32
LC_RPATH = 0x8000001C
PLATFORM_MACOS = 1


def unpack(layout, data, at=0):
    return struct.unpack_from(layout, data, at)


def commands_of(code):
    magic, cpu, _, kind, count, _, flags, _ = unpack("<8I", code)
    assert magic == 0xFEEDFACF, hex(magic)
    at = 32
    for _ in range(count):
        command, size = unpack("<2I", code, at)
        yield command, code[at : at + size]
        at += size


def blobs_of(signature):
    magic, length, count = unpack(">3I", signature)
    assert magic == 0xFADE0CC0, hex(magic)
    for index in range(count):
        slot, at = unpack(">2I", signature, 12 + 8 * index)
        _, size = unpack(">2I", signature, at)
        yield slot, signature[at : at + size]


class Directory:
    def __init__(self, data):
        (self.magic, _, self.version, self.flags, hashes, name, specials, pages, self.limit) = unpack(">9I", data)
        size, self.kind, _, bits = unpack(">4B", data, 36)
        _, self.text_start, self.text_size, self.segment_flags = unpack(">4Q", data, 56)
        self.page = 1 << bits
        self.identifier = data[name : data.index(b"\0", name)].decode()
        self.pages = [data[hashes + size * i : hashes + size * (i + 1)] for i in range(pages)]
        self.special = {i: data[hashes - size * i : hashes - size * (i - 1)] for i in range(1, specials + 1)}


class MacApplication(unittest.TestCase):
    archive = version = sources = ""

    @classmethod
    def setUpClass(cls):
        cls.files, cls.modes = {}, {}
        with zipfile.ZipFile(cls.archive) as packed:
            for entry in packed.infolist():
                cls.modes[entry.filename] = entry.external_attr >> 16
                if not entry.is_dir():
                    cls.files[entry.filename] = packed.read(entry)
        cls.executable = cls.files.get("Vireline.app/Contents/MacOS/Vireline", b"")
        cls.slices = {}
        magic, count = unpack(">2I", cls.executable)
        assert magic == 0xCAFEBABE, hex(magic)
        for index in range(count):
            cpu, _, at, size, _ = unpack(">5I", cls.executable, 8 + 20 * index)
            cls.slices[cpu] = cls.executable[at : at + size]

    def each(self):
        for cpu, code in self.slices.items():
            with self.subTest(processor=hex(cpu)):
                yield code, list(commands_of(code))

    def test_holds_a_whole_bundle_and_nothing_else(self):
        inside = {name.removeprefix("Vireline.app/Contents/") for name in self.files}
        self.assertEqual(
            inside, {"Info.plist", "MacOS/Vireline", "Resources/Vireline.icns", "_CodeSignature/CodeResources"}
        )

    def test_may_be_run(self):
        mode = self.modes["Vireline.app/Contents/MacOS/Vireline"]
        self.assertTrue(stat.S_ISREG(mode))
        self.assertEqual(stat.S_IMODE(mode), 0o755)

    def test_says_what_it_is(self):
        info = plistlib.loads(self.files["Vireline.app/Contents/Info.plist"])
        self.assertEqual(info["CFBundleExecutable"], "Vireline")
        self.assertEqual(info["CFBundlePackageType"], "APPL")
        self.assertEqual(info["CFBundleShortVersionString"], self.version)
        self.assertEqual(info["LSMinimumSystemVersion"], "13.0")
        self.assertIs(info["LSUIElement"], True)

    def test_has_an_icon_that_is_as_long_as_it_says(self):
        info = plistlib.loads(self.files["Vireline.app/Contents/Info.plist"])
        icon = self.files[f"Vireline.app/Contents/Resources/{info['CFBundleIconFile']}.icns"]
        magic, length = unpack(">4sI", icon)
        self.assertEqual((magic, length), (b"icns", len(icon)))

    def test_runs_on_both_processors(self):
        self.assertEqual(set(self.slices), {X86_64, ARM64})

    def test_asks_for_macos_13(self):
        for _, commands in self.each():
            versions = [unpack("<2I", data, 8) for kind, data in commands if kind == LC_BUILD_VERSION]
            self.assertEqual(versions, [(PLATFORM_MACOS, 13 << 16)])

    def test_is_linked_with_the_systems_own_libraries_only(self):
        for _, commands in self.each():
            names = [
                data[unpack("<I", data, 8)[0] :].split(b"\0")[0].decode()
                for kind, data in commands
                if kind == LC_LOAD_DYLIB
            ]
            self.assertGreater(len(names), 5)
            for name in names:
                self.assertRegex(name, r"^(/System/Library/Frameworks|/usr/lib)/")
            self.assertNotIn(LC_RPATH, [kind for kind, _ in commands])

    def test_is_stripped(self):
        debugging = 0xE0
        for code, commands in self.each():
            at, count = next(unpack("<2I", data, 8) for kind, data in commands if kind == LC_SYMTAB)
            types = [code[at + 16 * index + 4] for index in range(count)]
            self.assertFalse(any(kind & debugging for kind in types))
            self.assertFalse([data for kind, data in commands if b"__DWARF" in data])

    def test_names_no_folder_of_the_machine_that_built_it(self):
        for folder in (self.sources, "/home/", "/root/"):
            self.assertFalse(folder.encode() in self.executable, folder)

    def signed(self):
        for code, commands in self.each():
            places = [unpack("<2I", data, 8) for kind, data in commands if kind == LC_CODE_SIGNATURE]
            self.assertEqual(len(places), 1)
            start, size = places[0]
            self.assertEqual(start + size, len(code))
            yield code, commands, start, dict(blobs_of(code[start:]))

    def test_every_page_is_as_it_was_signed(self):
        for code, _, start, blobs in self.signed():
            directory = Directory(blobs[0])
            self.assertEqual((directory.magic, directory.kind, directory.limit), (0xFADE0C02, 2, start))
            step = directory.page
            pages = [hashlib.sha256(code[at : min(at + step, start)]).digest() for at in range(0, start, step)]
            self.assertEqual(directory.pages, pages)

    def test_the_signature_is_of_this_program_and_nobodys(self):
        info = plistlib.loads(self.files["Vireline.app/Contents/Info.plist"])
        ad_hoc = 0x2
        for _, _, _, blobs in self.signed():
            directory = Directory(blobs[0])
            self.assertEqual(directory.identifier, info["CFBundleIdentifier"])
            self.assertEqual(directory.flags, ad_hoc)

    def test_the_signature_seals_what_lies_beside_the_executable(self):
        info = self.files["Vireline.app/Contents/Info.plist"]
        resources = self.files["Vireline.app/Contents/_CodeSignature/CodeResources"]
        for _, _, _, blobs in self.signed():
            sealed = Directory(blobs[0]).special
            self.assertEqual(sealed[1], hashlib.sha256(info).digest())
            self.assertEqual(sealed[2], hashlib.sha256(blobs[2]).digest())
            self.assertEqual(sealed[3], hashlib.sha256(resources).digest())
        icon = self.files["Vireline.app/Contents/Resources/Vireline.icns"]
        seal = plistlib.loads(resources)["files2"]["Resources/Vireline.icns"]["hash2"]
        self.assertEqual(seal, hashlib.sha256(icon).digest())

    def test_the_signature_lies_in_the_last_segment(self):
        for code, commands, start, _ in self.signed():
            segments = {
                data[8:24].rstrip(b"\0"): unpack("<4Q", data, 24) for kind, data in commands if kind == LC_SEGMENT_64
            }
            _, in_memory, offset, size = segments[b"__LINKEDIT"]
            self.assertEqual(offset + size, len(code))
            self.assertGreaterEqual(in_memory, size)
            self.assertLess(offset, start)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    MacApplication.archive, MacApplication.version, MacApplication.sources = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
