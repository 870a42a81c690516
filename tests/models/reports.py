"""A model of the event report and the statistical report: the bytes of the file and the boxes shown.

It is written statement by statement, without regard to speed, so that it can be read against the rules. A step that
fails shows its box, closes the file, drops the recordsets and ends; the next step is run all the same and fails in
its turn."""

import functools
import os
from dataclasses import dataclass, field
from datetime import timedelta

from boxes import Box, database_error, lines
from forms import (RunTimeError, ZERO_DATE, date_text, double_text, format_number, number_of_text, rounded, time_text,
                   to_date, to_double, to_int16, to_int32, to_text, written_line)
from store import Recordset

CRLF = "\r\n"
TAB = "\t"
ALL_EVENTS = "All Events"
EVENT_KINDS = ("Summary", "Full")
TO_COLUMN_24 = " " * 23

SUBSCRIPT_OUT_OF_RANGE = 9
NO_HANDHELD = 20
BAD_FILE = 52
REFUSED = 75
NO_PATH = 76
NOT_SET = 91

BIN_LABELS = ("Games under 100: ", "100 - 119: ", "120 - 139: ", "140 - 159: ", "160 - 179: ", "180 - 199: ",
              "200 - 219: ", "220 - 239: ", "240 - 259: ", "260 - 279: ", "280 - 297: ", "298 Games: ", "299 Games: ",
              "300 Games: ")


@dataclass
class Request:
    """What a report is asked for. `handheld` is the handheld's directory in the configuration file, or None if there is
    no such file; it matters only if the report is to be copied there."""

    kind: str
    event_type: str = ""
    filter: str = ""
    session: int = 0
    date_from: object = ZERO_DATE
    date_to: object = ZERO_DATE
    file_name: str = "report.txt"
    copy: bool = False
    handheld: str = None


@dataclass
class Result:
    """What a report leaves: the file's bytes (None if it could not be opened), the path of its copy (None if there is
    none) and the boxes in order."""

    written: bytes = None
    copied: str = None
    boxes: list = field(default_factory=list)


@dataclass
class Counts:
    """The counts of one report, and what is derived from them."""

    pinfall_games: int = 0
    line_score_games: int = 0
    score_only_games: int = 0

    first_balls: int = 0
    strikes: int = 0
    strike_avg: int = 0
    strike_pct: float = 0.0
    spare_chances: int = 0
    spares: int = 0
    spare_avg: int = 0
    spare_pct: float = 0.0
    open_frames: int = 0
    open_avg: int = 0
    open_pct: float = 0.0

    matrix: list = field(default_factory=list)
    single_pin_attempts: int = 0
    single_pin_converted: int = 0
    first_ball_avg: int = 0
    single_pin_pct: float = 0.0
    single_pin_avg: int = 0

    bins: list = field(default_factory=list)
    series: dict = field(default_factory=dict)
    high_game: int = 0
    low_game: int = 0
    high_game_date: object = ZERO_DATE
    low_game_date: object = ZERO_DATE
    max_series_games: int = 0

    @property
    def games_with_frames(self):
        return self.pinfall_games + self.line_score_games


@dataclass
class MatrixRow:
    leave: str
    attempts: int
    conversions: int
    percentage: str = ""
    per_game: str = ""


@dataclass
class SeriesRow:
    """The high and low series of one length. Until a series is met, the dates hold what the totals hold."""

    high: int
    high_date: object
    low: int
    low_date: object


def step(procedure):
    """A procedure of the report module, which is left by way of its handler."""
    @functools.wraps(procedure)
    def run(self, *arguments):
        try:
            return procedure(self, *arguments)
        except RunTimeError as failure:
            self.result.boxes.append(database_error(failure, f"TBK Reports, {procedure.__name__}."))
            self.file_is_open = False
            self.drop_recordsets()
            return None
    return run


class ReportRun:
    """One report on a logbook, at a moment."""

    def __init__(self, logbook, request, now):
        self.logbook = logbook
        self.request = request
        self.now = now
        self.result = Result()
        self.counts = Counts()
        self.file_is_open = False
        self.sql = ""
        self.report_count = 0
        self.drop_recordsets()

    # What the steps share.

    def drop_recordsets(self):
        self._event = self._game = self._frame = None

    @property
    def event(self):
        return self._set(self._event)

    @property
    def game(self):
        return self._set(self._game)

    @property
    def frame(self):
        return self._set(self._frame)

    @staticmethod
    def _set(recordset):
        if recordset is None:
            raise RunTimeError(NOT_SET)
        return recordset

    def write(self, *parts):
        text = "".join(to_text(part) for part in parts)
        if not self.file_is_open:
            raise RunTimeError(BAD_FILE)
        self.result.written += written_line(text)

    # The driver.

    @step
    def Write_Report(self):
        report_date = self.now.replace(hour=0, minute=0, second=0)
        report_time = ZERO_DATE + timedelta(hours=self.now.hour, minutes=self.now.minute)
        self._event, self._game, self._frame = (Recordset(self.logbook) for _ in range(3))
        self._open_file()
        self.Form_SQL()
        self.Open_DB()
        self.Write_Header(report_date, report_time)
        self.Get_Sc_Mode()
        self.Get_StSp_Stats()
        self.Build_Sp_Sum()
        if self.request.kind in EVENT_KINDS:
            self.Write_Event()
        else:
            self.Build_Sum_Matrix()
            self.Write_Stats()
        self.file_is_open = False
        self.drop_recordsets()
        if self.request.copy:
            self._copy_report_hh()

    def _open_file(self):
        name = os.path.abspath(self.request.file_name)
        if not os.path.isdir(os.path.dirname(name)):
            raise RunTimeError(NO_PATH)
        if not self.request.file_name or os.path.isdir(name):
            raise RunTimeError(REFUSED)
        self.result.written = b""
        self.file_is_open = True

    @step
    def Form_SQL(self):
        asked = self.request
        if asked.kind in EVENT_KINDS:
            self.sql = f"SELECT * FROM tblEventInfo WHERE fldSessionNum = {asked.session}"
            return
        is_all = asked.event_type == ALL_EVENTS
        self.sql = "SELECT * FROM tblEventInfo"
        if not is_all:
            self.sql += f" WHERE fldEventType = '{asked.event_type}'"
        if asked.date_from != ZERO_DATE and asked.date_to != ZERO_DATE:
            self.sql += " WHERE fldDateBowled >= #" if is_all else " AND fldDateBowled >= #"
            self.sql += f"{date_text(asked.date_from)}# and fldDateBowled <= #{date_text(asked.date_to)}#"
        if asked.filter != "":
            is_first = is_all and asked.date_from == ZERO_DATE
            self.sql += f"{' WHERE' if is_first else ' AND'} fldEventName = '{asked.filter}'"

    @step
    def Open_DB(self):
        self.event.open(self.sql)
        self.report_count = to_int32(self.event.record_count)
        self.event.close()

    @step
    def Write_Header(self, report_date, report_time):
        asked = self.request
        self.write(TO_COLUMN_24, "Tallybrook 2.0")
        if asked.kind in EVENT_KINDS:
            self.write(TO_COLUMN_24, "Event Report - ", asked.kind)
            self.write(CRLF, "Report Date: ", date_text(report_date), ", ", time_text(report_time))
            self.write("Event: ", asked.filter)
            self.event.open(self.sql)
            self.write("Event Date: ", self.event["fldDateBowled"])
            self.event.close()
        else:
            self.write(TO_COLUMN_24, "Statistical Report")
            self.write(CRLF, "Report Date: ", date_text(report_date), ", ", time_text(report_time))
            self.write("Report Type: ", asked.event_type)
            if asked.date_from != ZERO_DATE:
                self.write("Date Range: ", asked.date_from, " to ", asked.date_to)
            if asked.filter != "":
                self.write("Filter: ", asked.filter)
            self.write(CRLF, "Found ", self.report_count, " matching events.")

    @step
    def Get_Sc_Mode(self):
        counts = self.counts
        self.event.open(self.sql)
        self.event.move_first()
        while not self.event.eof:
            self._open_games(self.event["fldSessionNum"])
            if self.game.record_count > 0:
                self.game.move_first()
                while not self.game.eof:
                    if self.game["fldScoreType"] == "P":
                        counts.pinfall_games += 1
                    elif self.game["fldScoreType"] == "L":
                        counts.line_score_games += 1
                    else:
                        counts.score_only_games += 1
                    self.game.move_next()
            self.game.close()
            self.event.move_next()
        self.event.close()
        self.write(CRLF, "Scoring Mode Summary: ", CRLF, "Pinfall Mode: ", counts.pinfall_games,
                   " games,   Line Score: ", counts.line_score_games, " games,   ", "Game Score only: ",
                   counts.score_only_games, " games.")

    def _copy_report_hh(self):
        if self.request.handheld is None:
            self.result.boxes.append(Box("No PDA Configuration", lines(
                "Handheld configuration could not be read.",
                "Please go to the Main Menu and run File, then Handheld Setup."), "critical"))
            raise RunTimeError(NO_HANDHELD)
        folder = self.request.handheld
        if folder == "" or not os.path.isdir(folder):
            raise RunTimeError(NO_PATH)
        self.result.copied = os.path.join(folder, os.path.basename(self.request.file_name))

    def _open_games(self, session):
        self.game.open(f"SELECT * FROM tblGameInfo WHERE fldSessionNum = {to_text(session)} ORDER BY fldGameNum")

    def _open_frames(self, session, game):
        self.frame.open(f"SELECT * FROM tblFrameInfo WHERE fldSessionNum = {session} AND fldGameNum = {game}"
                        " ORDER BY fldFrameNum")

    # Strikes and spares.

    @step
    def Get_StSp_Stats(self):
        self.event.open(self.sql)
        if self.event.record_count > 0:
            self.event.move_first()
            while not self.event.eof:
                session = to_int32(self.event["fldSessionNum"])
                self._open_games(session)
                if self.game.record_count > 0:
                    self.game.move_first()
                    while not self.game.eof:
                        self._count_frames(session, to_int16(number_of_text(self.game["fldGameNum"])))
                        self.game.move_next()
                self.game.close()
                self.event.move_next()
        self.event.close()
        self._derive_strikes_and_spares()

    def _count_frames(self, session, game):
        self._open_frames(session, game)
        if self.frame.record_count > 0:
            self.frame.move_first()
            while not self.frame.eof:
                if number_of_text(self.frame["fldFrameNum"]) < 10:
                    self._count_frame()
                else:
                    self._count_tenth_frame()
                self.frame.move_next()
        self.frame.close()

    def _count_frame(self):
        counts = self.counts
        counts.first_balls += 1
        if self.frame["fldFirstBallRes"] == "X":
            counts.strikes += 1
            return
        counts.spare_chances += 1
        if self.frame["fldSecondBallRes"] == "/":
            counts.spares += 1
        else:
            counts.open_frames += 1

    def _count_tenth_frame(self):
        #         first balls, strikes, chances, spares, open frames
        added = {1: (3, 3, 0, 0, 0),
                 2: (3, 2, 0, 0, 0),
                 3: (2, 1, 1, 1, 0),
                 4: (2, 1, 1, 1, 0),
                 5: (2, 0, 1, 1, 0),
                 6: (1, 0, 1, 0, 1)}.get(self._tenth_case(with_open=True), (0, 0, 0, 0, 0))
        counts = self.counts
        counts.first_balls += added[0]
        counts.strikes += added[1]
        counts.spare_chances += added[2]
        counts.spares += added[3]
        counts.open_frames += added[4]

    def _tenth_case(self, with_open):
        """The first case that holds in a tenth frame, or None. A case that tests a Null does not hold."""
        first, second, fill = (self.frame[name] for name in ("fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes"))

        def is_(mark, ball):
            return ball is not None and ball == mark

        def is_not(mark, ball):
            return ball is not None and ball != mark

        if is_("XXX", self.frame["fldLineScore"]):
            return 1
        if is_("X", first) and is_("X", second) and is_not("X", fill):
            return 2
        if is_("X", first) and is_not("X", second) and is_("/", fill):
            return 3
        if is_not("X", first) and is_("/", second) and is_("X", fill):
            return 4
        if is_not("X", first) and is_("/", second) and is_not("X", fill):
            return 5
        if (with_open and is_not("X", first) and is_not("X", second) and is_not("/", second)
                and is_not("X", fill) and is_not("/", fill)):
            return 6
        return None

    def _derive_strikes_and_spares(self):
        counts = self.counts
        if counts.first_balls > 0:
            counts.strike_pct = rounded(counts.strikes / counts.first_balls * 100, 1)
        if counts.spare_chances > 0:
            counts.spare_pct = rounded(counts.spares / counts.spare_chances * 100, 1)
            counts.open_pct = rounded(counts.open_frames / counts.spare_chances * 100, 1)
        games = counts.games_with_frames
        if games != 0:
            counts.strike_avg = to_int32(counts.strikes / games)
            counts.spare_avg = to_int32(counts.spares / games)
            counts.open_avg = to_int32(counts.open_frames / games)

    # The spare matrix.

    @step
    def Build_Sp_Sum(self):
        counts = self.counts
        self._first_ball_count = self._first_ball_pins = 0
        attempts_and_conversions = [0, 0]
        self.event.open(self.sql)
        if self.event.record_count > 0:
            self.event.move_first()
            while not self.event.eof:
                session = to_int32(self.event["fldSessionNum"])
                self._open_games(session)
                if self.game.record_count > 0:
                    self.game.move_first()
                    while not self.game.eof:
                        score_type = to_text(self.game["fldScoreType"])
                        game = to_int16(self.game["fldGameNum"])
                        if score_type in ("L", "P"):
                            self._sum_frames(session, game, score_type, attempts_and_conversions)
                        self.game.move_next()
                self.game.close()
                self.event.move_next()
        self.event.close()
        counts.single_pin_attempts, counts.single_pin_converted = attempts_and_conversions
        if counts.games_with_frames != 0:
            counts.single_pin_avg = to_int32(counts.single_pin_attempts / counts.games_with_frames)
        if self._first_ball_count != 0:
            counts.first_ball_avg = to_int16(self._first_ball_pins / self._first_ball_count)
        if counts.single_pin_attempts != 0:
            counts.single_pin_pct = rounded(counts.single_pin_converted / counts.single_pin_attempts * 100, 1)
        self._calc_spare_pct()

    def _sum_frames(self, session, game, score_type, attempts_and_conversions):
        self._open_frames(session, game)
        if self.frame.record_count > 0:
            self.frame.move_first()
            while not self.frame.eof:
                marks = to_text(self.frame["fldLineScore"])
                if to_double(self.frame["fldFrameNum"]) < 10:
                    self._sum_frame(marks, score_type, attempts_and_conversions)
                else:
                    self._sum_tenth_frame(marks, score_type)
                self.frame.move_next()
        self.frame.close()

    def _sum_frame(self, marks, score_type, attempts_and_conversions):
        leave = to_text(self.frame["fldFirstBallRes"])
        self._first_ball_count += 1
        if leave == "X":
            self._first_ball_pins += 10
            return
        is_spare = marks[1:2] == "/"
        self._first_ball_pins += value_of_mark(marks[0:1])
        if marks[0:1] == "9":
            attempts_and_conversions[0] += 1
            if is_spare:
                attempts_and_conversions[1] += 1
        if score_type == "P":
            self.Add_Spare_Matrix(leave, is_spare)

    def _sum_tenth_frame(self, marks, score_type):
        first_mark, second_mark, third_mark = (value_of_mark(marks[at:at + 1]) for at in range(3))
        case = self._tenth_case(with_open=False)
        added = {1: (3, 30),
                 2: (3, 20 + third_mark),
                 3: (2, 10 + second_mark),
                 4: (2, 10 + first_mark),
                 5: (2, first_mark + third_mark)}.get(case, (0, 0))
        self._first_ball_count += added[0]
        self._first_ball_pins += added[1]
        leave_column = {3: "fldSecondBallRes", 4: "fldFirstBallRes", 5: "fldFirstBallRes"}.get(case)
        if score_type == "P" and leave_column is not None:
            self.Add_Spare_Matrix(to_text(self.frame[leave_column]), True)

    @step
    def Add_Spare_Matrix(self, leave, converted):
        matrix = self.counts.matrix
        row_index = 1
        while row_index <= len(matrix):
            row = matrix[row_index - 1]
            if row.leave == leave:
                row.attempts += 1
                if converted:
                    row.conversions += 1
                return
            row_index = to_int16(row_index + 1)
        matrix.append(MatrixRow(leave, 1, 1 if converted else 0))

    def _calc_spare_pct(self):
        for row in self.counts.matrix:
            row.percentage = "0" if row.attempts == 0 else format_number(row.conversions / row.attempts * 100, 2)
            row.per_game = ("0" if self.counts.pinfall_games == 0
                            else format_number(row.attempts / self.counts.pinfall_games, 1))

    @step
    def Print_Spare_Summary(self):
        counts = self.counts
        self.write(CRLF, "Strike / Spare Summary Statistics", CRLF, "-" * 33)
        self.write("(Based on ", counts.pinfall_games, " games recorded in 'Pinfall' mode, ", counts.line_score_games,
                   " games recorded in 'Line Score' mode)")
        self.write(CRLF, "Strikes: ", counts.strikes, TAB, "Strike Percentage: ", counts.strike_pct, "%", TAB,
                   "Avg / Game: ", counts.strike_avg)
        # The strikes' average stands in the line of the spares, too.
        self.write(CRLF, "Spares: ", counts.spares, TAB, "Spare Percentage: ", counts.spare_pct, "%", TAB, TAB,
                   "Avg / Game: ", counts.strike_avg)
        self.write(CRLF, "Open Frames: ", counts.open_frames, TAB, "Avg / Game: ", counts.open_avg)
        self.write(CRLF, "Single Pin Spares", CRLF, "-" * 17)
        self.write("Attempts: ", counts.single_pin_attempts, TAB, TAB, "Conversions: ", counts.single_pin_converted,
                   TAB, "Percentage: ", counts.single_pin_pct, "%", TAB, "Avg / game: ", counts.single_pin_avg)
        self.write(CRLF, "First Ball Average: ", counts.first_ball_avg)

    @step
    def Print_Spare_Matrix(self):
        self.write(CRLF, "Spare Statistics (based on ", self.counts.pinfall_games, " games in 'Pinfall' mode):")
        self.write("-" * 75)
        self.write(CRLF, " " * 5, TAB * 3, " " * 8, TAB, " " * 11, TAB, "Conversion")
        self.write("Spare", TAB * 3, "Attempts", TAB, "Conversions", TAB, "Percentage", TAB, "Avg / Game")
        self.write("-----", TAB * 3, "--------", TAB, "-----------", TAB, "----------", TAB, "----------")
        for row in self.counts.matrix:
            attempts, conversions = str(row.attempts), str(row.conversions)
            self.write(row.leave, " " * (24 - len(row.leave)),
                       f" {attempts} ", " " * (16 - len(attempts)),
                       f" {conversions} ", " " * (15 - len(conversions)),
                       row.percentage, "%", TAB, row.per_game)

    # The report of one event.

    @step
    def Write_Event(self):
        session = self.request.session
        self.event.open(self.sql)
        if self.event.record_count > 0:
            self.event.move_first()
            while not self.event.eof:
                self.write(CRLF, "Event Summary: ", CRLF, "Games Bowled: ", self.event["fldNumGames"], "   Pinfall: ",
                           self.event["fldSeriesTot"], "   Event Average: ",
                           format_number(self.event["fldSeriesAvg"], 2))
                self.write("Event Comments: ", self.event["fldComment"])
                self._open_games(session)
                if self.game.record_count > 0:
                    self.game.move_first()
                    self.write(CRLF, "Game Summary:")
                    while not self.game.eof:
                        self._write_game(session)
                        self.game.move_next()
                self.game.close()
                self.event.move_next()
        self.event.close()
        self.Print_Spare_Summary()
        self.Print_Spare_Matrix()

    def _write_game(self, session):
        game = to_int16(self.game["fldGameNum"])
        self.write(CRLF, "Game ", self.game["fldGameNum"], "   Game Score: ", self.game["fldGameScore"],
                   "   Lane Pair: ", self.game["fldLanePair"], "   Starting Lane: ", self.game["fldStartLane"], CRLF,
                   "Lane Condition: ", self.game["fldLaneCond"], CRLF, "Comment: ", self.game["fldComment"])
        if self.game["fldScoreType"] not in ("P", "L"):
            self.write("Game score only was recorded.", " No frames recorded for this game.")
            return
        self._open_frames(session, game)
        if self.frame.record_count > 0:
            self._write_line_score()
            if self.request.kind == "Full":
                self._write_frames()
        self.frame.close()

    def _write_line_score(self):
        marks = ""
        self.frame.move_first()
        while not self.frame.eof:
            if to_double(self.frame["fldFrameNum"]) != 1:
                marks += TAB
            marks += to_text(self.frame["fldLineScore"])
            self.frame.move_next()
        numbers = TAB.join(str(number) for number in range(1, 11))
        self.write(CRLF, "Line Score:", CRLF, "-" * 11, CRLF, numbers, CRLF, marks, CRLF)

    def _write_frames(self):
        self.write("Frame Summary", CRLF, "-" * 13)
        self.frame.move_first()
        while not self.frame.eof:
            frame = self.frame
            self.write("Frame ", frame["fldFrameNum"], "   Lane Bowled: ", frame["fldLaneBowled"])
            self.write("Ball Used: ", frame["fldBallUsed"])
            self.write("Foot Position: ", frame["fldFootPos"], "   Lane Target: ", frame["fldLaneTgt"])
            balls = ["First Ball: ", frame["fldFirstBallRes"], "   Second Ball: ", frame["fldSecondBallRes"]]
            if to_double(frame["fldFrameNum"]) >= 10:
                balls += ["   Fill Ball: ", frame["fldFillBallRes"]]
            self.write(*balls)
            self.write("Comment: ", frame["fldComment"], CRLF, "-" * 20)
            self.frame.move_next()

    # The statistical report.

    @step
    def Build_Sum_Matrix(self):
        counts = self.counts
        self.event.open(self.sql)
        if self.event.record_count > 0:
            self.event.move_first()
            while not self.event.eof:
                games = self.event["fldNumGames"]
                if games is not None and to_double(games) > counts.max_series_games:
                    counts.max_series_games = to_int32(games)
                self.event.move_next()
        self.event.close()
        for games in range(1, counts.max_series_games + 1):
            beyond = to_int16(games * 300 + 1)
            counts.series[games] = SeriesRow(-1, -1, beyond, beyond)
        if counts.max_series_games > 0:
            counts.series[0] = SeriesRow(0, None, 0, None)
        counts.bins = [0] * 14
        counts.low_game = 301
        self.event.open(self.sql)
        if self.event.record_count >= 1:
            self.event.move_first()
            while not self.event.eof:
                self._sum_event()
                self.event.move_next()
        self.event.close()

    def _sum_event(self):
        total = to_int16(self.event["fldSeriesTot"])
        games = to_int16(self.event["fldNumGames"])
        session = to_int32(self.event["fldSessionNum"])
        date = to_date(self.event["fldDateBowled"])
        if games not in self.counts.series:
            raise RunTimeError(SUBSCRIPT_OUT_OF_RANGE)
        row = self.counts.series[games]
        if total > row.high:
            row.high, row.high_date = total, date
        if total < row.low:
            row.low, row.low_date = total, date
        self._open_games(session)
        if self.game.record_count > 0:
            self.game.move_first()
            while not self.game.eof:
                self._sum_score(to_int16(self.game["fldGameScore"]), date)
                self.game.move_next()
        self.game.close()

    def _sum_score(self, score, date):
        counts = self.counts
        if score > counts.high_game:
            counts.high_game, counts.high_game_date = score, date
        elif score < counts.low_game:
            counts.low_game, counts.low_game_date = score, date
        number = bin_of(score)
        if number is not None:
            counts.bins[number - 1] += 1

    @step
    def Write_Stats(self):
        counts = self.counts
        self.sql += " ORDER BY fldDateBowled"
        self.event.open(self.sql)
        if self.event.record_count > 0:
            self._write_events()
        self.event.close()
        self.write("Game Statistics", CRLF, "-" * 15)
        for label, count in zip(BIN_LABELS, counts.bins):
            self.write(label, count)
        self.write(CRLF, "High Game: ", counts.high_game, TAB, "Date Bowled: ", counts.high_game_date)
        self.write("Low Game: ", counts.low_game, TAB, "Date Bowled: ", counts.low_game_date)
        self.write(CRLF, "Series Summary", CRLF, "-" * 14)
        for games in range(1, counts.max_series_games + 1):
            row = counts.series[games]
            if row.high > -1:
                self.write("High Series (", games, " games): ", row.high)
                self.write("Date Bowled: ", row.high_date)
                self.write("Low Series (", games, " games): ", row.low)
                self.write("Date Bowled: ", row.low_date)
        self.Print_Spare_Summary()
        self.Print_Spare_Matrix()

    def _write_events(self):
        pinfall = games = 0
        self.event.move_first()
        while not self.event.eof:
            pinfall = to_int32(pinfall + to_double(self.event["fldSeriesTot"]))
            games = to_int32(games + to_double(self.event["fldNumGames"]))
            self.event.move_next()
        average = 0.0 if games == 0 else rounded(pinfall / games, 2)
        self.write(CRLF, "Event Summary", CRLF, "-" * 13)
        self.write("Total Games: ", games, TAB, TAB, "Total Pinfall: ", pinfall, TAB, "Average: ",
                   double_text(average))
        self.write(CRLF, "Event Listing (", self.event.record_count, " events found):")
        self.write("-" * 59)
        self.event.move_first()
        while not self.event.eof:
            self._write_listing()
            self.event.move_next()

    def _write_listing(self):
        event = self.event
        type_line = ("Event Type: ", event["fldEventType"], CRLF) if self.request.event_type == ALL_EVENTS else ()
        self.write("Event: ", event["fldEventName"], TAB, TAB, "Date Bowled: ", event["fldDateBowled"], CRLF,
                   *type_line,
                   "Games Bowled: ", event["fldNumGames"], TAB, TAB, "Pinfall: ", event["fldSeriesTot"], TAB,
                   "Event Average: ", event["fldSeriesAvg"], CRLF, "Comment: ", event["fldComment"], CRLF)


def value_of_mark(mark):
    """The pins of one mark: a digit's value, 0 for any other."""
    return int(mark) if mark and mark in "0123456789" else 0


def bin_of(score):
    """The number of the bin that a score is counted in, or None. Bin 11 looks for 280 minus 297, which bin 1 has."""
    if score < 100:
        return 1
    if score < 280:
        return score // 20 - 3
    return {280 - 297: 11, 298: 12, 299: 13, 300: 14}.get(score)


def write_report(logbook, request, now):
    """Runs a report on a Logbook; `now` is the moment of the report."""
    run = ReportRun(logbook, request, now)
    run.Write_Report()
    return run.result
