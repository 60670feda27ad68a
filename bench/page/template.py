"""Puts figures into a text.

{NAME as UNIT} is a figure; {NAME over OTHER as times} the ratio of two; {NAME at most 20 us} (or at least) what is
wanted of it, with a word where that is missed. A line that begins with "?GROUP " stays where the group was measured,
one with "?!GROUP " where it was not.
"""
import re

UNITS = {"us": 1e-6, "ms": 1e-3, "s": 1.0, "%": 1.0, "MB": 1.0, "bytes": 1.0, "times": 1.0, "a second": 1.0, "": 1.0}

_PLACE = re.compile(r"\{([^{}]+)\}")
_FIGURE = re.compile(
    r"(?P<name>[\w./-]+)(?: over (?P<base>[\w./-]+))? (?:as ?(?P<unit>.*)"
    r"|(?P<sense>at most|at least) (?P<limit>[\d.,]+) ?(?P<limit_unit>.*))")


class UnknownName(Exception):
    """A text asks for a figure that nothing measured."""


def digits(value: float) -> str:
    """The value as one reads it: two or three digits that count."""
    size = abs(value)
    if size >= 100 or value == int(value):
        return f"{value:,.0f}"
    if size >= 10:
        return f"{value:.1f}"
    return f"{value:.2f}" if size < 1 else f"{value:.2g}"


def _with_unit(text: str, unit: str) -> str:
    return f"{text} {unit}".strip()


def _figure(place: str, figures: dict[str, float | str]) -> str:
    if place in figures:
        return str(figures[place])
    asked = _FIGURE.fullmatch(place)
    if not asked or asked["name"] not in figures or (asked["base"] and asked["base"] not in figures):
        raise UnknownName(place)
    value = float(figures[asked["name"]])
    if asked["base"]:
        base = float(figures[asked["base"]])
        value = value / base if base else float("inf")
    if asked["sense"] is None:
        return _with_unit(digits(value / UNITS[asked["unit"]]), asked["unit"])
    limit = float(asked["limit"].replace(",", "")) * UNITS[asked["limit_unit"]]
    kept = value <= limit if asked["sense"] == "at most" else value >= limit
    wish = _with_unit(f"{asked['sense']} {asked['limit']}", asked["limit_unit"])
    return wish if kept else f"{wish}: **missed**"


def fill(text: str, figures: dict[str, float | str], groups: set[str]) -> str:
    """The text with its figures in place. Raises UnknownName for one that there is not."""
    lines = []
    for line in text.splitlines():
        condition = re.match(r"\?(!?)(\w+) ?", line)
        if condition:
            if (condition[2] in groups) == bool(condition[1]):
                continue
            line = line[condition.end():]
        lines.append(_PLACE.sub(lambda place: _figure(place[1], figures), line))
    return "\n".join(lines) + "\n"
