"""The text forms of numbers and dates, and what becomes of a Null, as the logbook program has them.

A value is None (a Null), an int, a float, a str, or a datetime (a date column's). Failures are RunTimeErrors."""

import re
from datetime import datetime, timedelta
from decimal import ROUND_HALF_UP, Context, Decimal

ZERO_DATE = datetime(1899, 12, 30)

# A description of None stands for words that are the program's own affair.
WORDS = {
    6: "Overflow",
    9: "Subscript out of range",
    11: "Division by zero",
    13: "Type mismatch",
    20: None,
    52: "Bad file name or number",
    75: "Path/File access error",
    76: "Path not found",
    91: "Object variable or With block variable not set",
    94: "Invalid use of Null",
    3021: "Either BOF or EOF is True, or the current record has been deleted. "
          "Requested operation requires a current record.",
}

NUMBER = re.compile(r"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")
DATE = re.compile(r"([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})")
EXACT = Context(prec=400)
LINE_END = re.compile(r"\r\n|\r|\n")


def written_line(text):
    """The bytes of a line that is written; whatever ends a line within it is written as CR LF too."""
    return (LINE_END.sub("\r\n", text) + "\r\n").encode("utf-8", "surrogateescape")


class RunTimeError(Exception):
    """A failure with its number; its description is None where the words are not fixed."""

    def __init__(self, number):
        super().__init__(number)
        self.number = number
        self.description = WORDS.get(number)


def leading_number(text):
    """The number that a text begins with; blanks anywhere are skipped, no digits give 0."""
    found = NUMBER.match(re.sub(r"[ \t\n]", "", text))
    return finite(float(found.group())) if found else 0.0


def finite(number):
    if abs(number) == float("inf") or number != number:
        raise RunTimeError(6)
    return number


def to_double(value):
    if value is None:
        raise RunTimeError(94)
    if isinstance(value, str):
        return leading_number(value)
    if isinstance(value, datetime):
        return (value - ZERO_DATE) / timedelta(days=1)
    return float(value)


def number_of_text(value):
    """The numeric value of a field's text: a Null's text is empty, so it is 0."""
    return leading_number(to_text(value))


def whole(value, bits):
    """The nearest whole number, halves to even."""
    number = round(finite(to_double(value)))
    if not -(1 << bits - 1) <= number < 1 << bits - 1:
        raise RunTimeError(6)
    return number


def to_int16(value):
    return whole(value, 16)


def to_int32(value):
    return whole(value, 32)


def to_date(value):
    """A date field's value as a date; a text only where it is written M/d/yyyy."""
    if value is None:
        raise RunTimeError(94)
    if isinstance(value, datetime):
        return value
    if not isinstance(value, str):
        return ZERO_DATE + timedelta(days=value)
    found = DATE.fullmatch(value)
    if found is None:
        raise RunTimeError(13)
    month, day, year = map(int, found.groups())
    try:
        return datetime(year, month, day)
    except ValueError:
        raise RunTimeError(13) from None


def to_text(value):
    """The value as it stands in a concatenated text; a Null is nothing."""
    if value is None:
        return ""
    if isinstance(value, datetime):
        return date_text(value)
    return double_text(value) if isinstance(value, float) else str(value)


def double_text(number):
    """The shortest text that reads back as the same double, without a point for a whole number."""
    text = repr(number)
    return "0" if number == 0 else text.removesuffix(".0")


def format_number(value, decimals):
    """The number format: grouped thousands, a leading 0; the 15 significant digits of the double's decimal text
    are rounded half away from zero."""
    number = finite(to_double(value))
    digits = Decimal("%.14e" % number)
    rounded = digits.quantize(Decimal(1).scaleb(-decimals), ROUND_HALF_UP, EXACT)
    return f"{abs(rounded) if rounded == 0 else rounded:,f}"


def read_formatted(text):
    """Reads back a formatted number."""
    return leading_number(text.replace(",", ""))


def rounded(number, decimals):
    """A double rounded by way of the number format."""
    return read_formatted(format_number(number, decimals))


def short_date(when):
    return f"{when.month}/{when.day}/{when.year:04}"


def time_text(when):
    return f"{when.hour % 12 or 12}:{when.minute:02}:{when.second:02} {'AM' if when.hour < 12 else 'PM'}"


def date_text(when):
    """A date as text: its time of day only where it has one, and the zero date as midnight."""
    if when.date() == ZERO_DATE.date():
        return time_text(when)
    if when == when.replace(hour=0, minute=0, second=0):
        return short_date(when)
    return f"{short_date(when)} {time_text(when)}"
