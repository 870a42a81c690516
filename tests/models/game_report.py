"""A model of the game list's report on one game: the bytes of the file, the boxes, and where it leaves the user.

Unlike the other reports, it goes on with the next statement after a failed one. Only a missing row ends it."""

import os
from dataclasses import dataclass, field

from boxes import ANYTHING, Box, database_error, lines
from forms import RunTimeError, date_text, leading_number, to_int16, to_int32, to_text, written_line
from store import NO_CURRENT_ROW, Recordset

TAB = "\t"
CELLS = 10
MODULE = "frmGameList, Write_Report."
PRODUCT_LINE = ANYTHING  # the line that names the product and its maker

SUBSCRIPT_OUT_OF_RANGE = 9
BAD_FILE = 52
REFUSED = 75
NO_PATH = 76


@dataclass
class GameResult:
    """What a game report leaves: the file's bytes (None if it could not be opened), the boxes in order, whether the
    list was left for the screen before it, and the failure that ended the program, if one did."""

    written: bytes = None
    boxes: list = field(default_factory=list)
    has_left: bool = False
    ended_by: RunTimeError = None


def cell_count(pins, result, ball):
    """What `result` becomes: the pins knocked down of a first ball, the pins left standing of any other."""
    if pins == "":
        return result
    if pins in ("/", "X"):
        return pins
    count = pins.count("-") + 1
    return str(10 - count) if ball == "First" else str(count)


class Cells:
    """The line score cells of the ten frames, numbered from 1."""

    def __init__(self):
        self._texts = [""] * CELLS
        self._standing = 0  # pins; it stays as the last counted ball left it

    def __getitem__(self, number):
        if not 1 <= number <= CELLS:
            raise RunTimeError(SUBSCRIPT_OUT_OF_RANGE)
        return self._texts[number - 1]

    def balls(self, number, first, second, fill):
        """The statements that build the cell of a frame from its pin strings, one for each ball that writes to it."""
        yield lambda: self._write(number, "", self._first_ball(first))
        if second != "":
            yield lambda: self._write(number, self[number], self._second_ball(number, first, second))
        if number == CELLS and fill != "":
            yield lambda: self._write(number, self[number], self._fill_ball(second, fill))

    def _write(self, number, before, mark):
        if not 1 <= number <= CELLS:
            raise RunTimeError(SUBSCRIPT_OUT_OF_RANGE)
        self._texts[number - 1] = before + mark

    def _first_ball(self, first):
        if first == "X":
            return "X"
        cell = cell_count(first, "", "First")
        self._leave(cell)
        return cell

    def _second_ball(self, number, first, second):
        if second in ("/", "X"):
            return second
        if number == CELLS and first == "X":
            count = cell_count(second, "", "First")
            self._leave(count)
            return count
        return self._taken(second)

    def _fill_ball(self, second, fill):
        if fill in ("/", "X"):
            return fill
        return cell_count(fill, "", "First") if second in ("/", "X") else self._taken(fill)

    def _leave(self, count):
        self._standing = to_int16(10 - leading_number(count))

    def _taken(self, pins):
        return str(to_int16(self._standing - leading_number(cell_count(pins, "", "Second"))))


class GameReport:
    """The report on one game, at a moment."""

    def __init__(self, logbook, session, game, file_name, now):
        self.logbook = logbook
        self.session = session
        self.game = game
        self.file_name = file_name
        self.now = now
        self.result = GameResult()

    def run(self):
        try:
            self._steps()
        except RunTimeError as failure:
            if failure.number != NO_CURRENT_ROW:
                raise
            self.result.boxes.append(Box("Database Error", lines(
                "Record could not be retrieved.", "This could be due to timing.",
                "Click OK to return to the previous screen.", "Debug Information: Module - Game List, Write_Report")))
            self.result.has_left = True
        return self.result

    def _steps(self):
        self._try(self._open_file)
        self._write_event()
        self._write_game()
        self._write_frame_block()
        for line in ("", PRODUCT_LINE, "All Rights Reserved"):
            self._line(line)
        self.result.boxes.append(Box("Report Ready", lines("The game report is ready.",
                                                           f"Location: {self.file_name}")))

    def _try(self, statement):
        """Runs a statement; a failure shows its box, and the next one follows. A missing row ends the report."""
        try:
            return statement()
        except RunTimeError as failure:
            if failure.number == NO_CURRENT_ROW:
                raise
            self.result.boxes.append(database_error(failure, MODULE))
            return None

    def _open_file(self):
        name = os.path.abspath(self.file_name)
        if not os.path.isdir(os.path.dirname(name)):
            raise RunTimeError(NO_PATH)
        if not self.file_name or os.path.isdir(name):
            raise RunTimeError(REFUSED)
        self.result.written = b""

    def _write(self, parts):
        text = "".join(to_text(part) for part in parts)
        if self.result.written is None:
            raise RunTimeError(BAD_FILE)
        self.result.written += written_line(text)

    def _line(self, *parts):
        """Writes a line; a part may be a function that reads a field."""
        self._try(lambda: self._write([part() if callable(part) else part for part in parts]))

    def _opened(self, sql):
        rows = Recordset(self.logbook)
        rows.open(sql)
        return rows

    def _write_event(self):
        event = self._opened(f"SELECT tblEventInfo.* FROM tblEventInfo WHERE fldSessionNum = {self.session}")
        self._line("Report Date: ", date_text(self.now))
        self._line("Event Information")
        self._line("*" * 17)
        for label, name in (("Event Name: ", "fldEventName"), ("Center Name: ", "fldCenterName"),
                            ("Location: ", "fldCenterLoc"), ("Date Bowled: ", "fldDateBowled"),
                            ("Comment: ", "fldComment")):
            self._line(label, lambda name=name: event[name])

    def _write_game(self):
        game = self._opened(f"SELECT tblGameInfo.* FROM tblGameInfo WHERE fldSessionNum = {self.session}"
                            f" AND fldGameNum = {self.game}")
        self._line(f"----- Game Information (Game #{self.game}) -----")
        self._line("Game: ", lambda: game["fldGameNum"], TAB, "Lane Pair: ", lambda: game["fldLanePair"], TAB,
                   "Game Score: ", lambda: game["fldGameScore"])
        self._line("Lane Condition: ", lambda: game["fldLaneCond"])
        self._line("Comment: ", lambda: game["fldComment"])

    def _write_frame_block(self):
        frame = self._opened(f"SELECT tblFrameInfo.* FROM tblFrameInfo WHERE fldSessionNum = {self.session}"
                             f" AND fldGameNum = {self.game} ORDER BY fldFrameNum")
        self._line(f"----- Frame Information (Game #{self.game}) -----")
        if frame.record_count == 0:
            self.result.boxes.append(Box("No Frames", "No frames were recorded for this game."))
            self._line("NOTE: No frames were recorded for this game.")
            return
        cells = Cells()
        row = 1
        while not frame.eof:
            self._write_frame(frame, row)
            for ball in cells.balls(row, *(to_text(frame[name]) for name in (
                    "fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes"))):
                self._try(ball)
            self._line("Comment: ", frame["fldComment"])
            self._line("*")
            row += 1
            frame.move_next()
        numbers = range(1, CELLS + 1)
        self._line("Line Score:")
        self._line("".join(f"{number}{TAB}" for number in numbers))
        self._line("".join(f"{cells[number]}{TAB}" for number in numbers))

    def _write_frame(self, frame, row):
        self._line("Frame: ", frame["fldFrameNum"], TAB, "Lane: ", frame["fldLaneBowled"])
        self._line("Ball Used: ", frame["fldBallUsed"], TAB, "Foot Position: ", frame["fldFootPos"], TAB,
                   "Lane Target: ", frame["fldLaneTgt"])
        self._line("First Ball", TAB, "Second Ball", TAB, "Fill Ball")
        self._line("-" * 10, TAB, "-" * 11, TAB, "-" * 9)
        balls = [frame["fldFirstBallRes"], TAB, TAB, frame["fldSecondBallRes"]]
        if row >= CELLS:
            balls += [TAB, TAB, frame["fldFillBallRes"]]
        self._line(*balls)


def retrieve(logbook, row, file_name, now):
    """Writes the report on a row of the game list, as its Retrieve button does."""
    try:
        session = to_int32(leading_number(to_text(row["fldSessionNum"])))
        game = to_int16(leading_number(to_text(row["fldGameNum"])))
    except RunTimeError as failure:
        return GameResult(ended_by=failure)
    return GameReport(logbook, session, game, file_name, now).run()
