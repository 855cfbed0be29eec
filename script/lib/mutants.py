"""The changes of a mutation test: comparisons, constants and signs of C++ sources."""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]

BINARY = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=",
}
WORDS = {"true": "false", "false": "true", "min": "max", "max": "min"}

# Relies on clang-format: binary operators have blanks around them, unary operators and template brackets do
# not.
TOKENS = re.compile(
    r"(?<=\s)(?P<binary><=|>=|==|!=|&&|\|\||[-+*/]=|[<>+*/%-])(?=\s)"
    r"|(?P<step>\+\+|--)(?=\w)"
    r"|(?<=[\s(\[{,])(?P<minus>-)(?=[\w(])"
    r"|(?P<no>!)(?=[\w(])"
    r"|(?<![\w.'])(?P<number>0x[0-9a-fp]+|\d+(?:\.\d+)?(?:e-?\d+)?)(?P<suffix>[uUlLfF]*)(?![\w.'])"
    r"|\b(?P<word>true|false)\b|\bstd::(?:ranges::)?(?P<extreme>min|max)\b"
)
HIDDEN = re.compile(
    r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])'", re.S | re.M)


@dataclasses.dataclass(frozen=True)
class Mutant:
    """One change: `old` at `start` becomes `new`."""

    path: str
    start: int
    line: int
    text: str
    old: str
    new: str
    # The number of the token among the same tokens on the line, from 1.
    occurrence: int

    @property
    def change(self):
        which = f" ({self.occurrence})" if self.occurrence > 1 else ""
        return f"{self.old or 'nothing'}{which} -> {self.new or 'nothing'}"

    @property
    def key(self):
        return f"{self.path} | {self.text} | {self.change}"


def changed_number(text):
    """Adds 1 to a whole number, and 10 % to a fraction."""
    if text.startswith("0x"):
        return "(1 + " + text + ")"
    if re.fullmatch(r"\d+", text):
        return str(int(text) + 1)
    value = float(text)
    return repr(value + 1 if value.is_integer() else round(value * 1.1, 9))


def replacement(kind, token):
    if kind == "binary":
        return BINARY[token]
    if kind == "step":
        return "--" if token == "++" else "++"
    if kind in ("minus", "no"):
        return ""
    if kind == "number":
        return changed_number(token)
    return WORDS[token]


def mutants_of(path):
    source = (ROOT / "VirelineKit" / path).read_text()
    code = HIDDEN.sub(lambda hidden: re.sub(r"[^\n]", " ", hidden[0]), source)
    found, seen = [], {}
    for match in TOKENS.finditer(code):
        kind = "number" if match.lastgroup == "suffix" else match.lastgroup
        start = match.start(kind)
        begin = source.rfind("\n", 0, start) + 1
        text = source[begin:source.find("\n", start)].strip()
        # Reserving memory has no visible effect.
        if ".reserve(" in text:
            continue
        old = match[kind]
        seen[text, old] = seen.get((text, old), 0) + 1
        found.append(Mutant(path, start, source.count("\n", 0, start) + 1, text, old,
                            replacement(kind, old), seen[text, old]))
    return found
