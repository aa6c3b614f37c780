"""One change to a source, and the words that name it."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Change:
    file: str  # relative to the tree
    line: int
    start: int  # the bytes replaced
    end: int
    new: bytes
    name: str = ""  # tells it from all others, whatever lines come and go around it

    def apply(self, source):
        return source[: self.start] + self.new + source[self.end :]

    def __str__(self):
        return self.name.replace(": ", f":{self.line}: ", 1)


def words(text):
    return " ".join(text.decode().split())


def difference(change, source):
    """The lines that it touches, before -> after."""
    first = source.rfind(b"\n", 0, change.start) + 1
    last = source.find(b"\n", change.end)
    before, after = source[first:last], source[first : change.start] + change.new + source[change.end : last]
    return f"{words(before)} -> {words(after)}"


def named(changes, sources):
    """The same with their names; where lines are alike, the second one says so."""
    met, answer = {}, []
    for change in sorted(set(changes), key=lambda c: (c.file, c.start, c.end, c.new)):
        name = f"{change.file}: {difference(change, sources[change.file])}"
        met[name] = met.get(name, 0) + 1
        if met[name] > 1:
            name += f" (number {met[name]})"
        answer.append(Change(change.file, change.line, change.start, change.end, change.new, name))
    return answer
