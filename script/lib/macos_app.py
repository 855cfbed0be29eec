#!/usr/bin/env python3
"""Combines bundles for single processors into one universal Vireline.app, and packs it.

  macos_app.py <archive.zip> <bundle>...

The executable is stripped and has a slice for each processor. The bundle has an ad-hoc signature, without which
macOS does not run a program on Apple silicon.
"""
import hashlib
import pathlib
import plistlib
import shutil
import struct
import subprocess
import sys
import tempfile

# <mach-o/loader.h>
LC_SEGMENT_64 = 0x19
LC_CODE_SIGNATURE = 0x1D
HEADER_BYTES = 32

# <Kernel/kern/cs_blobs.h>; signatures are big-endian.
MAGIC_REQUIREMENTS = 0xFADE0C01
MAGIC_CODE_DIRECTORY = 0xFADE0C02
MAGIC_SIGNATURE = 0xFADE0CC0
MAGIC_WRAPPER = 0xFADE0B01
SLOT_CODE_DIRECTORY = 0
SLOT_REQUIREMENTS = 2
SLOT_CMS = 0x10000
WITH_EXECUTABLE_SEGMENT = 0x20400
AD_HOC = 0x2
MAIN_BINARY = 1
SHA256 = 2
PAGE_BITS = 12

# The resource rules of a signature, as codesign writes them.
RULES = {
    "^Resources/": True,
    "^Resources/.*\\.lproj/": {"optional": True, "weight": 1000.0},
    "^Resources/.*\\.lproj/locversion.plist$": {"omit": True, "weight": 1100.0},
    "^Resources/Base\\.lproj/": {"weight": 1010.0},
    "^version.plist$": True,
}
RULES2 = {
    ".*\\.dSYM($|/)": {"weight": 11.0},
    "^(.*/)?\\.DS_Store$": {"omit": True, "weight": 2000.0},
    "^(Frameworks|SharedFrameworks|PlugIns|Plug-ins|XPCServices|Helpers|MacOS"
    "|Library/(Automator|Spotlight|LoginItems))/": {"nested": True, "weight": 10.0},
    "^.*": True,
    "^Info\\.plist$": {"omit": True, "weight": 20.0},
    "^PkgInfo$": {"omit": True, "weight": 20.0},
    "^Resources/": {"weight": 20.0},
    "^Resources/.*\\.lproj/": {"optional": True, "weight": 1000.0},
    "^Resources/.*\\.lproj/locversion.plist$": {"omit": True, "weight": 1100.0},
    "^Resources/Base\\.lproj/": {"weight": 1010.0},
    "^[^/]+$": {"nested": True, "weight": 10.0},
    "^embedded\\.provisionprofile$": {"weight": 20.0},
    "^version\\.plist$": {"weight": 20.0},
}


def aligned(value, alignment):
    return -(-value // alignment) * alignment


def blob(magic, content=b""):
    return struct.pack(">II", magic, 8 + len(content)) + content


class Slice:
    """An executable for one processor, whose load commands are changed in place."""

    def __init__(self, data):
        self.data = bytearray(data)
        self.text = self.linkedit = self.signature = None
        count, self.command_bytes = struct.unpack_from("<II", self.data, 16)
        at = HEADER_BYTES
        for _ in range(count):
            command, size = struct.unpack_from("<II", self.data, at)
            if command == LC_SEGMENT_64:
                name = self.data[at + 8 : at + 24].rstrip(b"\0")
                self.text = at if name == b"__TEXT" else self.text
                self.linkedit = at if name == b"__LINKEDIT" else self.linkedit
            elif command == LC_CODE_SIGNATURE:
                self.signature = at
            at += size
        self.end_of_commands = at

    def make_room(self, size):
        """Reserves space for a signature of this many bytes at the end of the file; returns where it starts."""
        if self.signature is None:
            self.add_signature_command()
        start, _ = struct.unpack_from("<II", self.data, self.signature + 8)
        if start == 0:
            start = aligned(len(self.data), 16)
        self.data = self.data[:start].ljust(start, b"\0")
        struct.pack_into("<II", self.data, self.signature + 8, start, size)
        _, _, offset, _ = struct.unpack_from("<QQQQ", self.data, self.linkedit + 24)
        length = start + size - offset
        struct.pack_into("<Q", self.data, self.linkedit + 32, aligned(length, 1 << 14))
        struct.pack_into("<Q", self.data, self.linkedit + 48, length)
        return start

    def add_signature_command(self):
        count, size = struct.unpack_from("<II", self.data, 16)
        at = self.end_of_commands
        if any(self.data[at : at + 16]):
            sys.exit("macos_app: no room for the command that names the signature")
        struct.pack_into("<II", self.data, 16, count + 1, size + 16)
        struct.pack_into("<IIII", self.data, at, LC_CODE_SIGNATURE, 16, 0, 0)
        self.signature = at

    def text_extent(self):
        return struct.unpack_from("<QQ", self.data, self.text + 40)


def code_directory(identifier, code, sealed, text_extent):
    """The hashes of the code's pages, preceded by those of the other signed parts."""
    page = 1 << PAGE_BITS
    hashes = [hashlib.sha256(code[at : at + page]).digest() for at in range(0, len(code), page)]
    specials = [hashlib.sha256(each).digest() for each in reversed(sealed)]
    name = identifier.encode() + b"\0"
    head = 88
    first_hash = head + len(name) + 32 * len(specials)
    content = struct.pack(
        ">IIIIIIIBBBBIIIIQQQQ",
        WITH_EXECUTABLE_SEGMENT, AD_HOC, first_hash, head, len(specials), len(hashes), len(code),
        32, SHA256, 0, PAGE_BITS, 0, 0, 0, 0, 0, *text_extent, MAIN_BINARY,
    )
    return blob(MAGIC_CODE_DIRECTORY, content + name + b"".join(specials) + b"".join(hashes))


def signature(identifier, code, info, resources, text_extent):
    requirements = blob(MAGIC_REQUIREMENTS, struct.pack(">I", 0))
    directory = code_directory(identifier, code, [info, requirements, resources], text_extent)
    parts = {SLOT_CODE_DIRECTORY: directory, SLOT_REQUIREMENTS: requirements, SLOT_CMS: blob(MAGIC_WRAPPER)}
    index, content = b"", b""
    first = 12 + 8 * len(parts)
    for slot, part in parts.items():
        index += struct.pack(">II", slot, first + len(content))
        content += part
    return blob(MAGIC_SIGNATURE, struct.pack(">I", len(parts)) + index + content)


def sign(executable, identifier, info, resources):
    piece = Slice(executable.read_bytes())
    # The size of the signature depends only on the length of the code, but its hashes cover the load command
    # that has the signature's position, so that is set first.
    start = piece.make_room(0)
    size = len(signature(identifier, bytes(start), info, resources, piece.text_extent()))
    start = piece.make_room(aligned(size, 16))
    signed = signature(identifier, bytes(piece.data), info, resources, piece.text_extent())
    executable.write_bytes(bytes(piece.data) + signed.ljust(aligned(size, 16), b"\0"))


def code_resources(contents):
    files, files2 = {}, {}
    for path in sorted((contents / "Resources").rglob("*")):
        if path.is_file():
            name = str(path.relative_to(contents))
            files[name] = hashlib.sha1(path.read_bytes()).digest()
            files2[name] = {"hash2": hashlib.sha256(path.read_bytes()).digest()}
    return plistlib.dumps({"files": files, "files2": files2, "rules": RULES, "rules2": RULES2})


def make_universal(bundles, app, work):
    shutil.copytree(bundles[0], app)
    contents = app / "Contents"
    info = (contents / "Info.plist").read_bytes()
    settings = plistlib.loads(info)
    name = settings["CFBundleExecutable"]
    resources = code_resources(contents)
    (contents / "_CodeSignature").mkdir(exist_ok=True)
    (contents / "_CodeSignature/CodeResources").write_bytes(resources)
    slices = []
    for number, bundle in enumerate(bundles):
        thin = work / f"{name}.{number}"
        subprocess.run(["llvm-strip-19", "-o", thin, bundle / "Contents/MacOS" / name], check=True)
        sign(thin, settings["CFBundleIdentifier"], info, resources)
        slices.append(thin)
    executable = contents / "MacOS" / name
    subprocess.run(["llvm-lipo-19", "-create", *slices, "-output", executable], check=True)
    executable.chmod(0o755)


def main(archive, *bundles):
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        app = work / pathlib.Path(bundles[0]).name
        make_universal([pathlib.Path(each) for each in bundles], app, work)
        pathlib.Path(archive).parent.mkdir(parents=True, exist_ok=True)
        pack = ["cmake", "-E", "tar", "cf", str(pathlib.Path(archive).resolve()), "--format=zip", app.name]
        subprocess.run(pack, cwd=work, check=True)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
