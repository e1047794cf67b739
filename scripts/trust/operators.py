"""Changes of a source in one place, each of which a test should notice."""

from typing import NamedTuple

from .tokens import Lines, tokens_of


class Change(NamedTuple):
    kind: str  # one of KINDS
    start: int
    end: int
    replacement: str

    def apply(self, source):
        return source[: self.start] + self.replacement + source[self.end :]


_COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
_SWAPPED = {"+": "-", "-": "+", "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|="}
_CONNECTIVES = {"&&": "||", "||": "&&"}
_OPENING = {"(": ")", "[": "]", "{": "}"}
_ASSIGNMENTS = {"=", "+=", "-=", "|=", "&=", "*=", "/=", "%=", "^=", "<<=", ">>="}
_JUMPS = {"break", "continue", "return"}
_NO_STATEMENT = _JUMPS | set(
    """alignas auto case catch class co_return const constexpr default delete do else enum explicit extern for friend goto if
    inline namespace new operator private protected public register sizeof static static_assert struct switch template
    thread_local throw try typedef typename union using virtual volatile while""".split()
)


def changes_in(source):
    """All changes, in the order of their places."""
    tokens = tokens_of(source)
    partners = _partners(tokens)
    found = []
    for operator in KINDS.values():
        found += operator(source, tokens, partners)
    return sorted(found, key=lambda change: (change.start, change.end, change.replacement))


def table_lines(source):
    """Numbers of the lines that hold constants alone: no code is run there that coverage could count."""
    tokens = tokens_of(source)
    partners = _partners(tokens)
    lines = Lines(source)
    found = set()
    for index, token in enumerate(tokens):
        if token.text not in ("constexpr", "constinit") or (index > 0 and tokens[index - 1].text == "if"):
            continue
        end = _end_of_statement(tokens, partners, index)
        if end is not None and not _is_function(tokens, partners, index):
            found.update(range(lines.number(token.start), lines.number(tokens[end].start) + 1))
    return found


def _is_function(tokens, partners, index):
    """Whether a declaration that begins at `index` has a body and no value."""
    for at in _outside_brackets(partners, index, len(tokens)):
        if tokens[at].text in ("=", ";"):
            return False
        if tokens[at].text == "{":
            return tokens[at - 1].text in (")", "const", "noexcept", "override")
    return False


def _partners(tokens):
    """The index of each bracket's partner, both ways."""
    partners = {}
    open_ones = []
    for index, token in enumerate(tokens):
        if token.kind != "sign":
            continue
        if token.text in _OPENING:
            open_ones.append(index)
        elif token.text in _OPENING.values() and open_ones and _OPENING[tokens[open_ones[-1]].text] == token.text:
            opening = open_ones.pop()
            partners[opening] = index
            partners[index] = opening
    return partners


def _end_of_statement(tokens, partners, index):
    """The index of the ";" that ends what begins at `index`, or None."""
    while index < len(tokens):
        if tokens[index].text == ";":
            return index
        if tokens[index].text in _OPENING.values() and partners.get(index, index) < index:
            return None
        index = partners.get(index, index) + 1
    return None


def _is_spaced(source, token):
    """The house's format puts blanks around operators, and none around the brackets of templates and references."""
    return source[token.start - 1].isspace() and source[token.end : token.end + 1].isspace()


def _swaps(kind, table):
    def operator(source, tokens, _partners_of):
        return [
            Change(kind, token.start, token.end, table[token.text])
            for index, token in enumerate(tokens)
            if token.kind == "sign" and token.text in table and _is_spaced(source, token) and tokens[index - 1].text != "operator"
        ]

    return operator


def _negations(_source, tokens, _partners_of):
    return [Change("condition", token.start, token.end, "") for token in tokens if token.kind == "sign" and token.text == "!"]


def _conditions(source, tokens, partners):
    """Conditions of "if" that always or never hold, and of loops that never do. Those that declare a name are left alone."""
    found = []
    for index, token in enumerate(tokens[:-1]):
        if token.text not in ("if", "while", "for") or tokens[index + 1].text != "(" or index + 1 not in partners:
            continue
        closing = partners[index + 1]
        parts = _split(tokens, partners, index + 2, closing, ";")
        if token.text == "for" and len(parts) != 3:
            continue
        first, last = parts[1] if token.text == "for" else parts[-1]
        if first >= last or any(tokens[i].text == "=" for i in _outside_brackets(partners, first, last)):
            continue
        start, end = tokens[first].start, tokens[last - 1].end
        condition = source[start:end]
        found.append(Change("condition", start, end, f"({condition}) && false"))
        if token.text == "if":
            found.append(Change("condition", start, end, f"({condition}) || true"))
    return found


def _outside_brackets(partners, first, last):
    while first < last:
        yield first
        first = partners[first] + 1 if partners.get(first, -1) > first else first + 1


def _split(tokens, partners, first, last, separator):
    """Ranges of token indices between separators that stand in no brackets of their own."""
    parts = []
    start = first
    for index in _outside_brackets(partners, first, last):
        if tokens[index].text == separator:
            parts.append((start, index))
            start = index + 1
    return parts + [(start, last)]


def _constants(_source, tokens, _partners_of):
    found = []
    for index, token in enumerate(tokens):
        replacements = ()
        if token.text in ("true", "false"):
            replacements = ("false" if token.text == "true" else "true",)
        elif token.kind == "number":
            replacements = _other_numbers(token.text)
        elif token.kind == "char":
            replacements = (_other_character(token.text),)
        if index > 0 and tokens[index - 1].text == "operator":
            continue
        found += [Change("constant", token.start, token.end, replacement) for replacement in replacements]
    return found


def _other_numbers(text):
    """One more and one less of a whole number, in its own base and with its own suffix."""
    digits = text.rstrip("uUlLzZ")
    suffix = text[len(digits) :]
    try:
        value = int(digits.replace("'", ""), 0)
    except ValueError:
        return ()
    write = hex if digits[:2] in ("0x", "0X") else str
    return tuple(write(other) + suffix for other in (value + 1, value - 1) if other >= 0)


def _other_character(text):
    prefix, inner = text.split("'", 1)
    inner = inner[:-1]
    return f"{prefix}'{chr(ord(inner) + 1) if len(inner) == 1 and inner.isalnum() else '_' if inner != '_' else '~'}'"


def _texts(_source, tokens, _partners_of):
    return [
        Change("text", token.start, token.end, token.text[:-1] + '~"')
        for token in tokens
        if token.kind == "text" and token.text.split('"', 1)[1] != '"'
    ]


def _left_out(_source, tokens, partners):
    """Statements that are a call, an assignment or a jump, left out."""
    found = []
    for first in _statement_starts(tokens, partners):
        end = _end_of_statement(tokens, partners, first)
        if end is not None and (kind := _kind_of_statement(tokens, partners, first, end)):
            found.append(Change(kind, tokens[first].start, tokens[end].start, ""))
    return found


def _statement_starts(tokens, partners):
    heads = set()  # closing brackets of "if (...)" and the like
    for index, token in enumerate(tokens[:-1]):
        if token.text in ("if", "while", "for", "switch") and tokens[index + 1].text == "(" and index + 1 in partners:
            heads.add(partners[index + 1])
    depth = []
    for index, token in enumerate(tokens[:-1]):
        if token.text in _OPENING:
            depth.append(token.text)
        elif token.text in _OPENING.values() and depth:
            depth.pop()
        is_start = index in heads or token.text in ("{", "}", ";", "else") or (token.text == ":" and _is_label(tokens, index))
        if is_start and (not depth or depth[-1] == "{"):
            yield index + 1


def _is_label(tokens, index):
    back = index - 1
    while back >= 0 and (tokens[back].kind in ("name", "number", "char") or tokens[back].text == "::"):
        if tokens[back].text in ("case", "default"):
            return True
        back -= 1
    return False


def _kind_of_statement(tokens, partners, first, end):
    if tokens[first].text in _JUMPS:
        return "statement" if end == first + 1 else None
    index = first
    called = False
    expects_name = True
    while index < end:
        token = tokens[index]
        if expects_name and token.kind == "name" and token.text not in _NO_STATEMENT:
            expects_name = False
        elif expects_name and index == first and token.text in ("*", "::"):
            pass
        elif not expects_name and token.text in (".", "->", "::"):
            expects_name = True
            called = False
        elif not expects_name and token.text in ("(", "["):
            called = token.text == "("
            index = partners.get(index, end)
        elif not expects_name and token.text in _ASSIGNMENTS:
            return "statement"
        else:
            return None
        index += 1
    return "call" if called else None


KINDS = {
    "comparison": _swaps("comparison", _COMPARISONS),
    "connective": _swaps("condition", _CONNECTIVES),
    "arithmetic": _swaps("constant", _SWAPPED),
    "negation": _negations,
    "condition": _conditions,
    "constant": _constants,
    "text": _texts,
    "left out": _left_out,
}
