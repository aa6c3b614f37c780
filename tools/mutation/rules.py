"""What may be changed where: for a place in the syntax tree, the pairs (range of bytes, new text)."""

import re

from clang.cindex import CursorKind as Kind

OPERATORS = {
    b"==": [b"!="], b"!=": [b"=="],
    b"<": [b"<=", b">="], b"<=": [b"<", b">"], b">": [b">=", b"<="], b">=": [b">", b"<"],
    b"&&": [b"||"], b"||": [b"&&"],
    b"+": [b"-"], b"-": [b"+"], b"*": [b"/"], b"/": [b"*"], b"%": [b"*"],
    b"&": [b"|"], b"|": [b"&"], b"^": [b"|"], b"<<": [b">>"], b">>": [b"<<"],
    b"+=": [b"-="], b"-=": [b"+="], b"*=": [b"/="], b"/=": [b"*="], b"%=": [b"*="],
    b"&=": [b"|="], b"|=": [b"&="], b"^=": [b"|="], b"<<=": [b">>="], b">>=": [b"<<="],
}  # fmt: skip
NOTHING = (b"{}", b"nullptr", b"std::nullopt", b"0", b"false", b"true", b'""')
ASSERT = b"assert("
LOG = b"platform().log.write("


def extent(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def text(source, cursor):
    start, end = extent(cursor)
    return source[start:end]


def operators(cursor, source):
    """== becomes !=, < becomes <= and >=, + becomes -, && becomes ||, and so on."""
    start = end = 0
    if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
        left, right = list(cursor.get_children())[:2]
        start, end = extent(left)[1], extent(right)[0]
    elif cursor.kind == Kind.DECL_REF_EXPR and cursor.spelling.startswith("operator") and cursor.spelling != "operator*":
        start, end = extent(cursor)
    sign = source[start:end].strip()
    start = source.find(sign, start)
    for new in OPERATORS.get(sign, []):
        yield (start, start + len(sign)), new


def signs(cursor, source):
    """!x and -x lose their sign, ++ and -- change places."""
    if cursor.kind != Kind.UNARY_OPERATOR:
        return
    start, end = extent(cursor)
    for sign, new in ((b"++", b"--"), (b"--", b"++")):
        if source.startswith(sign, start):
            yield (start, start + 2), new
        elif source.endswith(sign, start, end):
            yield (end - 2, end), new
    if re.match(rb"![^=]|-[^-=>]", source[start:end]):
        yield (start, start + 1), b""


def literals(cursor, source):
    """Numbers grow and shrink by one, truth is turned round, texts are emptied."""
    old, place = text(source, cursor), extent(cursor)
    if cursor.kind == Kind.INTEGER_LITERAL and old[:1].isdigit():
        yield place, {b"0": b"1", b"1": b"0"}.get(old, b"(" + old + b" + 1)")
        if old not in (b"0", b"1"):
            yield place, b"(" + old + b" - 1)"
    elif cursor.kind == Kind.FLOATING_LITERAL:
        yield place, b"(" + old + b" + 1)"
    elif cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR and old in (b"true", b"false"):
        yield place, b"false" if old == b"true" else b"true"
    elif cursor.kind == Kind.CHARACTER_LITERAL and b"'" in old:
        yield place, b"'?'" if old != b"'?'" else b"'!'"
    elif cursor.kind == Kind.STRING_LITERAL and old.endswith(b'"'):
        yield place, b'"x"' if old == b'""' else b'""'


def conditions(cursor, source):
    """A condition is turned round; relations and signs have rules of their own."""
    if cursor.kind not in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
        return
    first, *rest = cursor.get_children()
    if first.kind == Kind.VAR_DECL and cursor.kind == Kind.IF_STMT:
        end = extent(first)[1]
        yield (end, end), b"; !" + first.spelling.encode()
    condition = rest[0] if first.kind == Kind.DECL_STMT else first
    old = text(source, condition)
    if condition.kind.is_expression() and not old.startswith(b"!"):
        yield extent(condition), b"!(" + old + b")"


def statements(cursor, source):
    """A statement that is there for its effect goes away: a call, an assignment."""
    children = list(cursor.get_children())
    if cursor.kind in (Kind.FOR_STMT, Kind.WHILE_STMT, Kind.CXX_FOR_RANGE_STMT):
        children = children[-1:]
    elif cursor.kind not in (Kind.COMPOUND_STMT, Kind.IF_STMT):
        return
    for child in children:
        start, end = extent(child)
        ends = source[end : end + 1] == b";" and not source.startswith(ASSERT, start)
        if child.kind.is_expression() and start < end and ends:
            yield (start, end), b""


def returns(cursor, source):
    """A function answers the opposite, or nothing."""
    children = list(cursor.get_children())
    if cursor.kind != Kind.RETURN_STMT or not children:
        return
    old = text(source, children[0])
    if old and old not in NOTHING:
        yield extent(children[0]), b"!(" + old + b")" if children[0].type.spelling == "bool" else b"{}"


RULES = (operators, signs, literals, conditions, statements, returns)
