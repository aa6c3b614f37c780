"""The changes that are known to change nothing: a line names one, indented lines below say why."""

from pathlib import Path


def read_accepted(file):
    """name -> reason"""
    accepted, name = {}, ""
    for line in Path(file).read_text().splitlines() if Path(file).exists() else []:
        if line.startswith((" ", "\t")):
            accepted[name] = f"{accepted[name]} {line.strip()}".strip()
        elif line and not line.startswith("#"):
            name = line
            accepted[name] = ""
    return accepted


def complaints(accepted, changes, killed):
    """What is wrong with the list, a line each."""
    names = {change.name for change in changes}
    noticed = {change.name for change in killed}
    for name, reason in accepted.items():
        if name not in names:
            yield f"no such change any more: {name}"
        elif name in noticed:
            yield f"a test notices it: {name}"
        elif not reason:
            yield f"no reason given: {name}"
