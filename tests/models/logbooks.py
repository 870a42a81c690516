#!/usr/bin/env python3
"""Makes logbook files from a seed: sound seasons, untidy ones and hostile ones.

    logbooks.py SEED FILE

Most of a bowler's logbook is sound. What is not comes in two kinds: odd rows that every report can be written over
(marks that contradict the pins, games broken off, rows without a parent, Nulls in texts), and values that a report
fails on (Nulls and numbers out of range where it counts). The second kind is rare, so that most reports are written
to their end."""

import random
import sqlite3
import sys
from contextlib import closing
from dataclasses import dataclass
from datetime import date, timedelta

from store import TABLES

SCHEMA_VERSION = 1
REAL_COLUMNS = {"fldSeriesAvg"}
LOOKED_UP = ("fldCenterName", "fldHHRecordID")
INDEXES = (
    "CREATE INDEX idxEventDate ON tblEventInfo (fldDateBowled)",
    "CREATE INDEX idxGame ON tblGameInfo (fldSessionNum, fldGameNum)",
    "CREATE INDEX idxFrame ON tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum)",
)

NAMES = ("Thursday League", "City Open", "Practice", "thursday league", "THURSDAY LEAGUE", "Winter Doubles",
         "Müller-Cup", "MÜLLER-CUP", "Straße", "STRASSE", "Ελλάς", "保龄球", "100% Club", "A_B", "League #7", "")
QUOTED_NAMES = ("O'Neil's", "Rock 'n' Roll", "a''b", "a'b", "x' OR fldEventType = 'LEAGUE",
                "x' AND fldEventName LIKE '%e", "'", "Ladies' Night")
TYPES = ("LEAGUE", "TOURNAMENT", "PRACTICE")
ODD_TYPES = ("league", "Practice", "tOURNAMENT", "OPEN", "", " LEAGUE", None)
COMMENTS = ("", "", "", "dry lanes", "Spät, müde", "three\nlines\r\nof\rcomment", "tab\there", "say \"9 / 10\"", "ends in \\",
            "x" * 300)
CENTERS = ("", "Bowl-O-Rama", "Kegelhof Süd", "Lanes & Co.")
BALLS = ("", "Ghost 15", "spare ball", "Rhino's")
BOARDS = ("", "10", "22", "17.5")
ODD_SCORE_TYPES = ("p", "l", "n", "", "Q", " P", None)
ODD_PINS = ("", "", "/", "X", "x", "7-", "-", "10-7", "7-10 ", "1-2-3-4-5-6-7-8-9-10", "1-2-3-4-5-6-7-8-9-10-11",
            "one-two-three-four-five-six", "ü" * 23, "ü" * 25, "7", "7 ", "7-10", "3-6-10", None)
ODD_MARKS = ("", "XXX", "xxx", "9/", "9-", "-/", "X", "/", "/9", "99", "10", "X9/", "9/X", "XX9", " 9/", "9 /", "９/",
             "9", "XXXX", None)
ODD_TOTALS = (0, 0, -1, -2, -500, 1, 900, 901, 902, 32767, -32768, 190.25, "17 pins")
ODD_AVERAGES = (0, 0.005, 0.015, 1.005, -0.001, -187.335, 187.335, 33.333333333333336, 1234.5, 999999.995, 1e15, 1e16,
                1e20, 123456789012345.67, 1e-7, 0.1 + 0.2)
ODD_LENGTHS = (0, 0, 1, 2, 5, 12, 109)
ODD_SCORES = (0, 0, -5, 99, 100, 119, 120, 279, 280, 285, 297, 298, 299, 300, 301, 302, 32767, -32768, 199.75,
              "many")
ODD_NUMBERS = (0, -1, 7, 32767, -32768)
FATAL_NUMBERS = (None, 40000, -40000, 99999999999)
ODD_DATES = ("1899-12-30", "1899-12-29", "0999-03-04", "9999-12-31", "2026-02-28", "11/4/2026")
FATAL_DATES = (None, "2026-02-30", "someday", "")
FATAL_COLUMNS = (
    ("tblEventInfo", "fldNumGames", FATAL_NUMBERS + (110, 120, -3)),
    ("tblEventInfo", "fldSeriesTot", FATAL_NUMBERS),
    ("tblEventInfo", "fldSeriesAvg", (None,)),
    ("tblEventInfo", "fldDateBowled", FATAL_DATES),
    ("tblGameInfo", "fldGameNum", FATAL_NUMBERS),
    ("tblGameInfo", "fldGameScore", FATAL_NUMBERS),
    ("tblFrameInfo", "fldFrameNum", FATAL_NUMBERS),
)
HUGE_KEY = 3_000_000_000


@dataclass(frozen=True)
class Rates:
    """How often oddities come: each the share of rows, except `fatal`, the number of values that a report fails on."""

    odd_texts: float = 0.0
    odd_games: float = 0.0
    odd_marks: float = 0.0
    odd_numbers: float = 0.0
    orphans: float = 0.0
    nulls: float = 0.0
    fatal: int = 0


SOUND = Rates()
UNTIDY = Rates(odd_texts=0.1, odd_games=0.2, odd_marks=0.05, odd_numbers=0.02, orphans=0.1)
STRANGE = Rates(odd_texts=0.4, odd_games=0.5, odd_marks=0.4, odd_numbers=0.15, orphans=0.5, nulls=0.1)
HOSTILE = Rates(odd_texts=0.3, odd_games=0.4, odd_marks=0.3, odd_numbers=0.1, orphans=0.3, nulls=0.1, fatal=2)
KINDS = {"sound": SOUND, "untidy": UNTIDY, "strange": STRANGE, "hostile": HOSTILE}


def kind_of(seed):
    """The kind of logbook that a seed makes."""
    return list(KINDS)[seed % len(KINDS)]


class Season:
    """The rows of a logbook in the making."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.rates = KINDS[kind_of(seed)]
        self.rows = {table: [] for table in TABLES}
        self._keys = dict.fromkeys(TABLES, 0)
        self._fill()

    def happens(self, rate):
        return self.random.random() < rate

    def one_of(self, choices):
        return self.random.choice(choices)

    # A sound season.

    def _fill(self):
        self.skill = self.random.uniform(0.05, 0.9)
        day = date(2024, 9, 5)
        for _ in range(self.one_of((0, 1, 1, 2, 3, 5, 8, 12, 12))):
            day += timedelta(days=self.one_of((0, 1, 7, 7, 7, 40)))
            self._add_event(day)
        self._make_odd()

    def _add(self, table, row):
        self._keys[table] += self.one_of((1, 1, 1, 2))
        key = next(iter(TABLES[table]))
        self.rows[table].append({key: self._keys[table], **row})
        return self.rows[table][-1]

    def _add_event(self, day):
        planned = self.one_of((1, 2, 3, 3, 3, 4, 6))
        event = self._add("tblEventInfo", {
            "fldEventName": self.one_of(NAMES[:6]), "fldDateBowled": day.isoformat(),
            "fldCenterName": self.one_of(CENTERS), "fldCenterLoc": self.one_of(CENTERS),
            "fldEventType": self.one_of(TYPES), "fldNumGames": planned, "fldComment": self.one_of(COMMENTS),
            "fldHHRecordID": self.one_of(("NONE", "4711"))})
        bowled = planned if not self.happens(0.2) else self.random.randint(0, planned)
        scores = [self._add_game(event["fldSessionNum"], number) for number in range(1, bowled + 1)]
        total = sum(scores)
        event.update(fldGmsRecorded=bowled, fldSeriesTot=total,
                     fldSeriesAvg=round(total / bowled, 2) if bowled else 0)

    def _add_game(self, session, number):
        score_type = self.one_of("PPPPLLN")
        frames = [self._bowl_frame() for _ in range(9)] + [self._bowl_tenth()]
        score = score_of([pins for frame in frames for pins in frame["down"]])
        lane = self.random.randrange(1, 40)
        left = lane - (lane + 1) % 2
        self._add("tblGameInfo", {
            "fldSessionNum": session, "fldGameNum": number, "fldStartLane": lane, "fldLeftLane": left,
            "fldRightLane": left + 1, "fldLanePair": f"{left}-{left + 1}", "fldGameScore": score,
            "fldLaneCond": self.one_of(("", "dry", "ölig")), "fldComment": self.one_of(COMMENTS),
            "fldScoreType": score_type, "fldFrmsRecorded": 0 if score_type == "N" else 10,
            "fldHHRecordID": "NONE", "fldBowlHand": "N"})
        if score_type != "N":
            for frame_number, frame in enumerate(frames, 1):
                self._add_frame(session, number, frame_number, frame, score_type, left)
        return score

    def _add_frame(self, session, game, number, frame, score_type, left):
        pins = frame["pins"] if score_type == "P" else ["", "", ""]
        self._add("tblFrameInfo", {
            "fldSessionNum": session, "fldGameNum": game, "fldFrameNum": number,
            "fldLaneBowled": left + number % 2, "fldBallUsed": self.one_of(BALLS), "fldFootPos": self.one_of(BOARDS),
            "fldLaneTgt": self.one_of(BOARDS), "fldFirstBallRes": pins[0], "fldSecondBallRes": pins[1],
            "fldFillBallRes": pins[2], "fldComment": self.one_of(COMMENTS), "fldLineScore": frame["marks"],
            "fldHHRecordID": "NONE"})

    def _first_ball(self):
        """The pins that stand after a first ball; none after a strike."""
        if self.happens(self.skill * 0.6):
            return []
        count = self.one_of((1, 1, 1, 1, 2, 2, 3, 4, 10))
        return sorted(self.random.sample(range(1, 11), count))

    def _second_ball(self, standing):
        if self.happens(self.skill):
            return []
        return sorted(self.random.sample(standing, self.random.randint(1, len(standing))))

    def _bowl_frame(self):
        first = self._first_ball()
        if not first:
            return {"pins": ["X", "", ""], "marks": "X", "down": [10]}
        second = self._second_ball(first)
        return {"pins": [pin_string(first), pin_string(second, "/"), ""],
                "marks": str(10 - len(first)) + mark_of(first, second),
                "down": [10 - len(first), len(first) - len(second)]}

    def _bowl_tenth(self):
        frame = self._bowl_frame()
        if frame["marks"] == "X":
            after = self._bowl_frame()
            if after["marks"] == "X":
                after = joined(after, self._one_ball())
            return {"pins": (["X"] + after["pins"])[:3], "marks": "X" + after["marks"], "down": [10] + after["down"]}
        if frame["marks"].endswith("/"):
            return joined(frame, self._one_ball())
        return frame

    def _one_ball(self):
        standing = self._first_ball()
        return pin_string(standing, "X"), "X" if not standing else str(10 - len(standing)), 10 - len(standing)

    # What is odd about it.

    def _make_odd(self):
        for game in list(self.rows["tblGameInfo"]):
            if self.happens(self.rates.odd_games):
                self._make_game_odd(game)
        for frame in self.rows["tblFrameInfo"]:
            self._make_marks_odd(frame)
        for event in self.rows["tblEventInfo"]:
            self._make_event_odd(event)
        self._make_numbers_odd()
        if self.happens(self.rates.orphans):
            self._add_orphans()
        self._put_nulls()
        for _ in range(self.random.randint(0, self.rates.fatal)):
            self._put_fatal()
        if self.rates != SOUND and self.happens(0.04):
            self.rows[self.one_of(list(TABLES))].clear()

    def _frames_of(self, game):
        return [row for row in self.rows["tblFrameInfo"]
                if (row["fldSessionNum"], row["fldGameNum"]) == (game["fldSessionNum"], game["fldGameNum"])]

    def _make_game_odd(self, game):
        frames = self._frames_of(game)
        oddity = self.random.randrange(7)
        if oddity == 0:
            game["fldScoreType"] = self.one_of(ODD_SCORE_TYPES)
        elif oddity == 1:
            game["fldScoreType"] = self.one_of("PLN")
        elif oddity == 2 and frames:  # broken off
            self._remove(frames[self.random.randrange(len(frames)):])
        elif oddity == 3 and len(frames) > 2:  # a gap
            self._remove([self.one_of(frames)])
        elif oddity == 4 and frames:
            self._repeat("tblFrameInfo", frames[-1], fldFrameNum=self.one_of((10, 11, 11, 12, 1)))
        elif oddity == 5:
            self._repeat("tblGameInfo", game, fldGameScore=self.one_of(ODD_SCORES))
        else:
            game["fldGameNum"] = self.one_of((0, -1, 1, 2, 9))  # its frames stay behind

    def _remove(self, frames):
        self.rows["tblFrameInfo"] = [row for row in self.rows["tblFrameInfo"] if row not in frames]

    def _repeat(self, table, row, **changes):
        key = next(iter(TABLES[table]))
        self._add(table, {name: value for name, value in {**row, **changes}.items() if name != key})

    def _make_marks_odd(self, frame):
        for column in ("fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes"):
            if self.happens(self.rates.odd_marks):
                frame[column] = self.one_of(ODD_PINS)
        if self.happens(self.rates.odd_marks):
            frame["fldLineScore"] = self.one_of(ODD_MARKS)

    def _make_event_odd(self, event):
        if self.happens(self.rates.odd_texts):
            event["fldEventName"] = self.one_of(NAMES + QUOTED_NAMES)
        if self.happens(self.rates.odd_texts):
            event["fldEventType"] = self.one_of(ODD_TYPES)

    def _make_numbers_odd(self):
        for table, column, values in (
                ("tblEventInfo", "fldSeriesTot", ODD_TOTALS), ("tblEventInfo", "fldSeriesAvg", ODD_AVERAGES),
                ("tblEventInfo", "fldNumGames", ODD_LENGTHS), ("tblEventInfo", "fldDateBowled", ODD_DATES),
                ("tblGameInfo", "fldGameScore", ODD_SCORES), ("tblGameInfo", "fldStartLane", ODD_NUMBERS + (None,)),
                ("tblFrameInfo", "fldLaneBowled", ODD_NUMBERS + (None, 40000)),
                ("tblFrameInfo", "fldFrameNum", ODD_NUMBERS)):
            for row in self.rows[table]:
                if self.happens(self.rates.odd_numbers * (0.1 if column == "fldFrameNum" else 1)):
                    row[column] = self.one_of(values)

    def _add_orphans(self):
        for table in ("tblGameInfo", "tblFrameInfo"):
            for row in list(self.rows[table])[:3]:
                self._repeat(table, row, fldSessionNum=self.one_of((0, 500, None, row["fldSessionNum"])),
                             fldGameNum=self.one_of((1, 77, row["fldGameNum"])))

    def _put_nulls(self):
        """In the texts: no report fails on them."""
        for table, columns in TABLES.items():
            for row in self.rows[table]:
                for column, kind in columns.items():
                    if kind == "text" and self.happens(self.rates.nulls):
                        row[column] = None

    def _put_fatal(self):
        table, column, values = self.one_of(FATAL_COLUMNS)
        if self.rows[table]:
            self.one_of(self.rows[table])[column] = self.one_of(values)
        if self.rows["tblEventInfo"] and self.happens(0.1):
            self.rows["tblEventInfo"][-1]["fldSessionNum"] = HUGE_KEY


def pin_string(standing, none="X"):
    return "-".join(map(str, standing)) or none


def mark_of(first, second):
    return str(len(first) - len(second)) if second else "/"


def joined(frame, ball):
    """A frame with one ball more."""
    pins, mark, down = ball
    return {"pins": [text for text in frame["pins"] if text] + [pins], "marks": frame["marks"] + mark,
            "down": frame["down"] + [down]}


def score_of(balls):
    """The score of a game, from the pins knocked down ball by ball."""
    score = at = 0
    for _ in range(10):
        is_strike = balls[at] == 10
        with_next = is_strike or sum(balls[at:at + 2]) == 10
        score += sum(balls[at:at + (3 if with_next else 2)])
        at += 1 if is_strike else 2
    return score


def schema():
    """The statements that make an empty logbook."""
    statements = []
    for table, columns in TABLES.items():
        fields = [f"{name} {sql_type(name, kind)}" for name, kind in list(columns.items())[1:]]
        key = next(iter(columns))
        statements.append(f"CREATE TABLE {table} ({key} INTEGER PRIMARY KEY AUTOINCREMENT, {', '.join(fields)})")
    for column in LOOKED_UP:
        beyond = f"({column} GLOB '*[^ -~]*' OR typeof({column}) = 'blob')"
        statements.append(f"CREATE INDEX idx_{column} ON tblEventInfo ({column} COLLATE NOCASE)")
        statements.append(f"CREATE INDEX idx_{column}_other ON tblEventInfo ({column}) WHERE {beyond}")
    return [*statements, *INDEXES, f"PRAGMA user_version = {SCHEMA_VERSION}"]


def sql_type(name, kind):
    if kind == "number":
        return "REAL DEFAULT 0" if name in REAL_COLUMNS else "INTEGER DEFAULT 0"
    if kind == "date":
        return "TEXT"
    return "TEXT DEFAULT 'P'" if name == "fldScoreType" else "TEXT DEFAULT ''"


def write_logbook(path, rows):
    """Writes a logbook file of these rows by table; a column that a row does not name has its default."""
    with closing(sqlite3.connect(path)) as connection:
        connection.execute("PRAGMA synchronous = OFF")
        for statement in schema():
            connection.execute(statement)
        for table, table_rows in rows.items():
            for row in table_rows:
                marks = ", ".join("?" for _ in row)
                connection.execute(f"INSERT INTO {table} ({', '.join(row)}) VALUES ({marks})", list(row.values()))
        connection.commit()


def make_logbook(seed, path):
    """Makes the logbook of a seed; returns its kind."""
    write_logbook(path, Season(seed).rows)
    return kind_of(seed)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__.splitlines()[2].strip())
    print(make_logbook(int(sys.argv[1]), sys.argv[2]))
