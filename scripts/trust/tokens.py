"""C++ taken apart into tokens, as far as changing it in one place takes: no types, no templates, no macros."""

import bisect
import re
from typing import NamedTuple

_PATTERN = re.compile(
    r"""
    (?P<skip>\s+ | //[^\n]* | /\*.*?\*/)
  | (?P<text>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*")
  | (?P<char>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\.?[0-9](?:[eEpP][+-]|'[0-9a-fA-F]|[0-9a-zA-Z_.])*)
  | (?P<name>[A-Za-z_][A-Za-z0-9_]*)
  | (?P<sign><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
    """,
    re.VERBOSE | re.DOTALL,
)
_RAW_TEXT = re.compile(r'(?:u8|u|U|L)?R"([^(\s]*)\(.*?\)\1"', re.DOTALL)
_DIRECTIVE = re.compile(r"[ \t]*#(?:[^\n\\]|\\.)*", re.DOTALL)


class Token(NamedTuple):
    kind: str  # text, char, number, name or sign
    text: str
    start: int
    end: int


def tokens_of(source):
    """All tokens outside of comments, directives and raw texts."""
    found = []
    at = 0
    at_line_start = True
    while at < len(source):
        if at_line_start and (directive := _DIRECTIVE.match(source, at)):
            at = directive.end()
            at_line_start = False
            continue
        if raw := _RAW_TEXT.match(source, at):
            at = raw.end()
            at_line_start = False
            continue
        match = _PATTERN.match(source, at)
        if match.lastgroup == "skip":
            at_line_start = at_line_start or "\n" in match.group()
        else:
            found.append(Token(match.lastgroup, match.group(), match.start(), match.end()))
            at_line_start = False
        at = match.end()
        if match.lastgroup == "skip" and match.group().startswith("//"):
            at_line_start = False
    return found


class Lines:
    """Line numbers of places in a source, from 1 on."""

    def __init__(self, source):
        self._starts = [0] + [match.end() for match in re.finditer("\n", source)]
        self._source = source

    def number(self, place):
        return bisect.bisect_right(self._starts, place)

    def text(self, number):
        start = self._starts[number - 1]
        end = self._source.find("\n", start)
        return self._source[start : end if end >= 0 else len(self._source)]
