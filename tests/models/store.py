"""A logbook as the reports see it: its rows, the SELECT statements that find them, and recordsets over them.

Rows come in key order, or in the order of ORDER BY with ties in key order and Nulls first. Text is compared without
case. A comparison with a Null, or with a value of another kind than its column, finds nothing."""

import operator
import re
import sqlite3
from datetime import datetime

from forms import RunTimeError, leading_number, to_date

NO_CURRENT_ROW = 3021
UNKNOWN_FIELD = 3265
CLOSED = 3704
OPEN = 3705
NOT_UNDERSTOOD = -2147217900
UNKNOWN_COLUMN = -2147217904
WRONG_KIND = -2147217913

# Each table's columns with their kinds: a number, a text or a date. The first is the key.
TABLES = {
    "tblEventInfo": {
        "fldSessionNum": "number", "fldEventName": "text", "fldDateBowled": "date", "fldCenterName": "text",
        "fldCenterLoc": "text", "fldEventType": "text", "fldNumGames": "number", "fldGmsRecorded": "number",
        "fldSeriesTot": "number", "fldSeriesAvg": "number", "fldComment": "text", "fldHHRecordID": "text"},
    "tblGameInfo": {
        "fldGameKey": "number", "fldSessionNum": "number", "fldGameNum": "number", "fldStartLane": "number",
        "fldLeftLane": "number", "fldRightLane": "number", "fldLanePair": "text", "fldGameScore": "number",
        "fldLaneCond": "text", "fldComment": "text", "fldScoreType": "text", "fldFrmsRecorded": "number",
        "fldHHRecordID": "text", "fldBowlHand": "text"},
    "tblFrameInfo": {
        "fldFrameKey": "number", "fldSessionNum": "number", "fldGameNum": "number", "fldFrameNum": "number",
        "fldLaneBowled": "number", "fldBallUsed": "text", "fldFootPos": "text", "fldLaneTgt": "text",
        "fldFirstBallRes": "text", "fldSecondBallRes": "text", "fldFillBallRes": "text", "fldComment": "text",
        "fldLineScore": "text", "fldHHRecordID": "text"},
}

ISO_DATE = re.compile(r"[0-9]{4}-[0-9]{2}-[0-9]{2}")
TOKEN = re.compile(r"""\s*(?:
    (?P<text>'(?:[^']|'')*')
  | (?P<date>\#[^#]*\#)
  | (?P<number>[+-]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+)(?![\w.]))
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign>>=|<=|[=<>*.,])
  | (?P<end>$)
  )""", re.VERBOSE | re.ASCII)
TYPES = {"number": (int, float), "text": str, "date": datetime}  # of the values of a kind
COMPARISONS = {"=": operator.eq, ">=": operator.ge, "<=": operator.le, ">": operator.gt, "<": operator.lt}


class Logbook:
    """The rows of a logbook file."""

    def __init__(self, path):
        connection = sqlite3.connect(path)
        try:
            self.tables = {name: self._read(connection, name) for name in TABLES}
        finally:
            connection.close()

    @staticmethod
    def _read(connection, table):
        columns = TABLES[table]
        found = connection.execute(f"SELECT {', '.join(columns)} FROM {table} ORDER BY 1")
        return [{name: meaning(value, columns[name]) for name, value in zip(columns, row)} for row in found]

    def select(self, sql):
        """The rows that a statement finds."""
        return Statement(sql).rows(self.tables)


def meaning(stored, kind):
    """What a stored value means in its column. A text in a date column that is no date stays a text."""
    if isinstance(stored, bytes):
        stored = stored.decode("utf-8", "surrogateescape")
    if kind == "date" and isinstance(stored, str) and ISO_DATE.fullmatch(stored):
        try:
            return datetime.strptime(stored, "%Y-%m-%d")
        except ValueError:
            return stored
    return stored


def fold(text):
    return text.casefold()


def like(text, pattern):
    expression = "".join({"%": ".*", "_": "."}.get(letter, re.escape(letter)) for letter in fold(pattern))
    return re.fullmatch(expression, fold(text), re.DOTALL) is not None


class Statement:
    """One SELECT over one table."""

    def __init__(self, sql):
        self.tokens = self._cut(sql)
        self._expect("word", "SELECT")
        distinct_or_name = self._take("sign", "*") or self._word()
        if distinct_or_name != "*":  # table.*
            self._expect("sign", ".")
            self._expect("sign", "*")
        self._expect("word", "FROM")
        self.table = next((name for name in TABLES if fold(name) == fold(self._word(keep=True))), None)
        if self.table is None:
            raise RunTimeError(NOT_UNDERSTOOD)
        self._word()
        self.any_of = self._criteria() if self._take("word", "WHERE") else []
        self.order = self._order() if self._take("word", "ORDER") else []
        self._expect("end", "")

    @staticmethod
    def _cut(sql):
        tokens, at = [], 0
        while not tokens or tokens[-1][0] != "end":
            found = TOKEN.match(sql, at)
            if found is None:
                raise RunTimeError(NOT_UNDERSTOOD)
            tokens.append((found.lastgroup, found.group(found.lastgroup)))
            at = found.end()
        return tokens

    def _take(self, kind, text):
        if self.tokens[0][0] == kind and fold(self.tokens[0][1]) == fold(text):
            return self.tokens.pop(0)[1]
        return None

    def _expect(self, kind, text):
        if self._take(kind, text) is None:
            raise RunTimeError(NOT_UNDERSTOOD)

    def _word(self, keep=False):
        if self.tokens[0][0] != "word":
            raise RunTimeError(NOT_UNDERSTOOD)
        return self.tokens[0][1] if keep else self.tokens.pop(0)[1]

    def _column(self):
        word = self._word()
        column = next((name for name in TABLES[self.table] if fold(name) == fold(word)), None)
        if column is None:
            raise RunTimeError(UNKNOWN_COLUMN)
        return column

    def _criteria(self):
        """Groups of criteria: AND binds tighter than OR."""
        groups = [[self._criterion()]]
        while True:
            if self._take("word", "AND"):
                groups[-1].append(self._criterion())
            elif self._take("word", "OR"):
                groups.append([self._criterion()])
            else:
                return groups

    def _criterion(self):
        column = self._column()
        sign = "LIKE" if self._take("word", "LIKE") else self.tokens.pop(0)[1]
        if sign != "LIKE" and sign not in COMPARISONS:
            raise RunTimeError(NOT_UNDERSTOOD)
        kind, literal = self.tokens[0]
        if kind not in ("text", "date", "number"):
            raise RunTimeError(NOT_UNDERSTOOD)
        if kind != ("text" if sign == "LIKE" else TABLES[self.table][column]):
            raise RunTimeError(WRONG_KIND)
        self.tokens.pop(0)
        return column, sign, self._value(kind, literal)

    @staticmethod
    def _value(kind, literal):
        if kind == "text":
            return literal[1:-1].replace("''", "'")
        if kind == "number":
            return leading_number(literal)
        try:
            return to_date(literal[1:-1])
        except RunTimeError:
            raise RunTimeError(NOT_UNDERSTOOD) from None

    def _order(self):
        self._expect("word", "BY")
        columns = [self._column()]
        if self._take("sign", ","):
            columns.append(self._column())
        return columns

    def rows(self, tables):
        found = tables[self.table]
        if self.any_of:
            hits = {id(row) for group in self.any_of for row in self._hits(found, group)}
            found = [row for row in found if id(row) in hits]
        for column in reversed(self.order):
            found = sorted(found, key=lambda row: sort_key(row[column], TABLES[self.table][column]))
        return list(found)

    def _hits(self, rows, group):
        """The rows that meet each criterion of a group."""
        for criterion in group:
            holds = self._condition(*criterion)
            rows = [row for row in rows if holds(row)]
        return rows

    def _condition(self, column, sign, wanted):
        """What a criterion asks of a row."""
        kind = TABLES[self.table][column]
        types = TYPES[kind]
        if sign == "LIKE":
            return lambda row: isinstance(row[column], types) and like(row[column], wanted)
        compare = COMPARISONS[sign]
        if kind == "text":
            return lambda row: isinstance(row[column], types) and compare(fold(row[column]), fold(wanted))
        return lambda row: isinstance(row[column], types) and compare(row[column], wanted)


def is_of_kind(value, kind):
    return isinstance(value, TYPES[kind])


def sort_key(value, kind):
    """Nulls first, then numbers, then texts; dates by their stored form, in which the year comes first."""
    if value is None:
        return 0, 0
    if isinstance(value, datetime):
        return 2, f"{value.year:04}-{value.month:02}-{value.day:02}"
    if isinstance(value, str):
        return 2, fold(value) if kind == "text" else value
    return 1, value


class Recordset:
    """An ordered snapshot of rows with a current row."""

    def __init__(self, logbook):
        self._logbook = logbook
        self._rows = None
        self._at = 0

    def open(self, sql):
        if self._rows is not None:
            raise RunTimeError(OPEN)
        self._rows = self._logbook.select(sql)
        self._at = 0

    def close(self):
        self._opened()
        self._rows = None

    def _opened(self):
        if self._rows is None:
            raise RunTimeError(CLOSED)
        return self._rows

    @property
    def record_count(self):
        return len(self._opened())

    @property
    def eof(self):
        return self._at >= len(self._opened())

    def move_first(self):
        if not self._opened():
            raise RunTimeError(NO_CURRENT_ROW)
        self._at = 0

    def move_next(self):
        if self.eof:
            raise RunTimeError(NO_CURRENT_ROW)
        self._at += 1

    def __getitem__(self, name):
        if self.eof:
            raise RunTimeError(NO_CURRENT_ROW)
        if name not in self._rows[self._at]:
            raise RunTimeError(UNKNOWN_FIELD)
        return self._rows[self._at][name]
