"""Tests of the models on small logbooks whose figures are worked out by hand."""

import subprocess
import sys
import tempfile
import unittest
from datetime import datetime
from pathlib import Path

import compare_pictures
import compare_reports
import forms
import game_report
import reports
from forms import RunTimeError, ZERO_DATE
from logbooks import KINDS, Season, make_logbook, score_of, write_logbook
from store import Logbook, Recordset

NOW = datetime(2026, 11, 14, 21, 55, 32)
PERSISTS = "If this persists, please send email to support@tallybrook.example with this error information."


def frames(*marks_and_pins, game=1, session=1, first=1):
    """Frame rows: each a tuple of the marks and of the pin strings that there are."""
    return [{"fldSessionNum": session, "fldGameNum": game, "fldFrameNum": number, "fldLineScore": one[0],
             "fldFirstBallRes": one[1], "fldSecondBallRes": (*one, "")[2], "fldFillBallRes": (*one, "", "")[3]}
            for number, one in enumerate(marks_and_pins, first)]


def event(key=1, **fields):
    return {"fldSessionNum": key, "fldEventName": "Thursday League", "fldDateBowled": "2026-11-04",
            "fldEventType": "LEAGUE", "fldNumGames": 1, "fldSeriesTot": 0, "fldSeriesAvg": 0, **fields}


def game(number=1, session=1, **fields):
    return {"fldSessionNum": session, "fldGameNum": number, "fldScoreType": "P", "fldGameScore": 0, **fields}


class ModelTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def logbook(self, events=(), games=(), frame_rows=()):
        path = self.folder / "logbook"
        path.unlink(missing_ok=True)
        write_logbook(path, {"tblEventInfo": events, "tblGameInfo": games, "tblFrameInfo": frame_rows})
        return Logbook(path)

    def report(self, logbook, **asked):
        request = reports.Request(**{"file_name": str(self.folder / "report.txt"), **asked})
        run = reports.ReportRun(logbook, request, NOW)
        run.Write_Report()
        self.counts = run.counts
        return run.result

    def counted(self, frame_rows, games=None, **asked):
        """The counts of a report on one event."""
        result = self.report(self.logbook([event()], games or [game()], frame_rows),
                             **{"kind": "Full", "session": 1, **asked})
        self.assertEqual(result.boxes, [])
        return self.counts

    def failures(self, result):
        """Number and module of each box of a failure."""
        return [tuple(line.partition(": ")[2] for line in (box.text.split("\r\n")[at] for at in (0, 2)))
                for box in result.boxes]


class FormsTest(unittest.TestCase):
    def test_a_number_is_formatted_by_its_decimal_text(self):
        # 23 / 80 * 100 is 28.749999999999996 as a double and 28.7500000000000 with 15 digits.
        for number, decimals, text in ((23 / 80 * 100, 1, "28.8"), (0.125, 2, "0.13"), (-0.125, 2, "-0.13"),
                                       (1.005, 2, "1.01"), (200, 2, "200.00"), (0.05, 1, "0.1"), (0.04, 1, "0.0"),
                                       (1234567.891, 2, "1,234,567.89"), (-0.001, 2, "0.00"), (999.999, 2, "1,000.00")):
            self.assertEqual(forms.format_number(number, decimals), text)

    def test_a_formatted_number_reads_back_without_its_commas(self):
        self.assertEqual(forms.rounded(1234.567, 2), 1234.57)

    def test_the_format_of_a_null_fails(self):
        with self.assertRaises(RunTimeError) as failure:
            forms.format_number(None, 2)
        self.assertEqual(failure.exception.number, 94)

    def test_numbers_round_halves_to_even(self):
        for number, whole in ((2.5, 2), (3.5, 4), (-2.5, -2), (8.5, 8), (9.5, 10), (0.4999, 0)):
            self.assertEqual(forms.to_int16(number), whole)
        self.assertEqual(forms.to_int16(32767.4), 32767)
        for beyond in (32767.5, 40000, -32769):
            with self.assertRaises(RunTimeError) as failure:
                forms.to_int16(beyond)
            self.assertEqual(failure.exception.number, 6)

    def test_a_text_is_read_by_its_leading_number(self):
        for text, number in (("", 0), ("X", 0), (" 1 2x3", 12), ("-7-10", -7), ("7-10", 7), (".5", 0.5), ("1e2", 100),
                             ("1e", 1), ("+3", 3), ("９", 0)):
            self.assertEqual(forms.leading_number(text), number, text)

    def test_texts_of_values(self):
        for value, text in ((None, ""), (7, "7"), (200.0, "200"), (187.3, "187.3"), (-0.5, "-0.5"), ("a", "a"),
                            (datetime(2026, 11, 4), "11/4/2026"), (NOW, "11/14/2026 9:55:32 PM"),
                            (ZERO_DATE, "12:00:00 AM"), (datetime(999, 3, 4), "3/4/0999")):
            self.assertEqual(forms.to_text(value), text)

    def test_times(self):
        for hour, text in ((0, "12:05:00 AM"), (11, "11:05:00 AM"), (12, "12:05:00 PM"), (13, "1:05:00 PM")):
            self.assertEqual(forms.time_text(datetime(2026, 1, 1, hour, 5)), text)


class StoreTest(ModelTest):
    def keys(self, logbook, rest):
        return [row["fldSessionNum"] for row in logbook.select("SELECT * FROM tblEventInfo" + rest)]

    def test_rows_come_in_key_order_or_as_asked_with_nulls_first(self):
        logbook = self.logbook([event(3, fldDateBowled="2026-01-02"), event(1, fldDateBowled="2026-01-02"),
                                event(2, fldDateBowled="2025-12-31"), event(4, fldDateBowled=None)])
        self.assertEqual(self.keys(logbook, ""), [1, 2, 3, 4])
        self.assertEqual(self.keys(logbook, " ORDER BY fldDateBowled"), [4, 2, 1, 3])

    def test_texts_are_compared_without_case(self):
        logbook = self.logbook([event(1), event(2, fldEventType="league"), event(3, fldEventType="PRACTICE"),
                                event(4, fldEventType=None), event(5, fldEventName="STRASSE")])
        self.assertEqual(self.keys(logbook, " WHERE fldEventType = 'League'"), [1, 2, 5])
        self.assertEqual(self.keys(logbook, " WHERE fldEventName = 'straße'"), [5])
        self.assertEqual(self.keys(logbook, " WHERE fldEventName LIKE '%DAY%'"), [1, 2, 3, 4])

    def test_dates_are_compared_as_dates(self):
        logbook = self.logbook([event(1, fldDateBowled="2026-02-03"), event(2, fldDateBowled="2026-10-01"),
                                event(3, fldDateBowled=None), event(4, fldDateBowled="2026-02-30")])
        self.assertEqual(self.keys(logbook, " WHERE fldDateBowled >= #2/3/2026# and fldDateBowled <= #10/1/2026#"),
                         [1, 2])

    def test_and_binds_tighter_than_or(self):
        logbook = self.logbook([event(1), event(2, fldNumGames=5), event(3, fldEventType="PRACTICE", fldNumGames=5)])
        where = " WHERE fldSessionNum = 1 OR fldEventType = 'practice' AND fldNumGames > 4"
        self.assertEqual(self.keys(logbook, where), [1, 3])

    def test_a_value_with_a_quote_breaks_or_changes_its_statement(self):
        logbook = self.logbook([event(1, fldEventName="a'b")])
        self.assertEqual(self.keys(logbook, " WHERE fldEventName = 'a''b'"), [1])
        for rest, number in ((" WHERE fldEventName = 'a'b'", -2147217900), (" AND fldNumGames = 1", -2147217900),
                             (" WHERE fldOther = 1", -2147217904), (" WHERE fldNumGames = '1'", -2147217913)):
            with self.assertRaises(RunTimeError) as failure:
                self.keys(logbook, rest)
            self.assertEqual(failure.exception.number, number)

    def test_an_empty_recordset_has_no_first_row(self):
        rows = Recordset(self.logbook())
        rows.open("SELECT * FROM tblEventInfo")
        self.assertEqual((rows.record_count, rows.eof), (0, True))
        with self.assertRaises(RunTimeError) as failure:
            rows.move_first()
        self.assertEqual(failure.exception.number, 3021)


class CountingTest(ModelTest):
    def strikes_and_spares(self, frame_rows, **more):
        counts = self.counted(frame_rows, **more)
        return counts.first_balls, counts.strikes, counts.spare_chances, counts.spares, counts.open_frames

    def test_a_perfect_game(self):
        # Nine strikes, and three in the tenth frame.
        rows = frames(*[("X", "X")] * 9, ("XXX", "X", "X", "X"))
        self.assertEqual(self.strikes_and_spares(rows), (12, 12, 0, 0, 0))
        self.assertEqual((self.counts.strike_pct, self.counts.spare_pct, self.counts.open_pct), (100, 0, 0))
        self.assertEqual((self.counts.strike_avg, self.counts.first_ball_avg), (12, 10))
        self.assertEqual(self.counts.matrix, [])

    def test_the_cases_of_the_tenth_frame(self):
        for marks, balls, counted in (("XX7", ("X", "X", "1-2-3"), (3, 2, 0, 0, 0)),
                                      ("X9/", ("X", "7", "/"), (2, 1, 1, 1, 0)),
                                      ("9/X", ("7", "/", "X"), (2, 1, 1, 1, 0)),
                                      ("9/8", ("7", "/", "2-4"), (2, 0, 1, 1, 0)),
                                      ("81", ("2-4", "4"), (1, 0, 1, 0, 1)),
                                      ("X81", ("X", "2-4", "4"), (0, 0, 0, 0, 0)),
                                      ("XX", ("X", "X", "X"), (0, 0, 0, 0, 0)),
                                      ("XXX", ("", ""), (3, 3, 0, 0, 0)),
                                      ("X", ("7", "X", ""), (0, 0, 0, 0, 0))):
            self.assertEqual(self.strikes_and_spares(frames((marks, *balls), first=10)), counted, marks)

    def test_a_null_in_the_tenth_frame_meets_no_case(self):
        rows = frames(("9/8", "7", "/", None), first=10)
        self.assertEqual(self.strikes_and_spares(rows), (0, 0, 0, 0, 0))
        rows = frames(("9-", None, None))
        self.assertEqual(self.strikes_and_spares(rows), (1, 0, 1, 0, 1))

    def test_games_of_any_score_type_are_counted(self):
        # The frame of the N game counts here, and its game not in the divisor: 1 strike in 0 games.
        rows = frames(("X", "X"))
        self.assertEqual(self.strikes_and_spares(rows, games=[game(fldScoreType="N")]), (1, 1, 0, 0, 0))
        self.assertEqual((self.counts.strike_avg, self.counts.score_only_games), (0, 1))

    def test_averages_round_to_even(self):
        # Five strikes in two games are 2.5 each, seven are 3.5.
        for strikes, average in ((5, 2), (7, 4)):
            rows = frames(*[("X", "X")] * strikes)
            self.assertEqual(self.counted(rows, games=[game(1), game(2)]).strike_avg, average)

    def test_percentages_have_one_decimal(self):
        # 2 strikes of 3 first balls, and the one chance is missed.
        counts = self.counted(frames(("X", "X"), ("X", "X"), ("9-", "7", "7")))
        self.assertEqual((counts.strike_pct, counts.spare_pct, counts.open_pct), (66.7, 0, 100))


class SpareMatrixTest(ModelTest):
    def rows_of(self, counts):
        return [(row.leave, row.attempts, row.conversions, row.percentage, row.per_game) for row in counts.matrix]

    def test_leaves_stand_in_the_order_of_their_first_appearance(self):
        counts = self.counted(frames(("9/", "10", "/"), ("81", "7-10", "10"), ("91", "10", "10"), ("X", "X")))
        # The 10 pin: 2 attempts, 1 converted. Two attempts in one game.
        self.assertEqual(self.rows_of(counts), [("10", 2, 1, "50.00", "2.0"), ("7-10", 1, 0, "0.00", "1.0")])
        self.assertEqual((counts.single_pin_attempts, counts.single_pin_converted, counts.single_pin_pct), (2, 1, 50))

    def test_the_tenth_frame_is_in_the_matrix_only_when_converted(self):
        for marks, balls, leave in (("X9/", ("X", "7", "/"), "7"), ("9/X", ("7-10", "/", "X"), "7-10"),
                                    ("9/8", ("4", "/", "2-4"), "4"), ("81", ("2-4", "4"), None)):
            counts = self.counted(frames((marks, *balls), first=10))
            self.assertEqual([row.leave for row in counts.matrix], [leave] if leave else [])
            self.assertEqual(counts.single_pin_attempts, 0)

    def test_the_first_ball_average_rounds_to_even(self):
        # 8 and 9 are 8.5 a ball, 9 and 10 are 9.5.
        for first, second, average in (("8/", "9/", 8), ("9/", "X", 10)):
            pins = "X" if second == "X" else "7"
            self.assertEqual(self.counted(frames((first, "7", "/"), (second, pins, "/"))).first_ball_avg, average)

    def test_the_first_balls_of_a_tenth_frame(self):
        # XX7: 20 and 7 in three balls. X8/: 10 and 8 in two. 9/X: 10 and 9 in two. 9/8: 9 and 8 in two. 81: none.
        for marks, balls, average in (("XX7", ("X", "X", "1-2-3"), 9), ("X8/", ("X", "2-4", "/"), 9),
                                      ("9/X", ("7", "/", "X"), 10), ("9/8", ("7", "/", "2-4"), 8),
                                      ("81", ("2-4", "4"), 0)):
            self.assertEqual(self.counted(frames((marks, *balls), first=10)).first_ball_avg, average, marks)

    def test_a_line_score_strike_adds_a_ball_and_no_pins(self):
        counts = self.counted(frames(("X", ""), ("9/", ""), ("72", "")), games=[game(fldScoreType="L")])
        # (0 + 9 + 7) / 3 is 5.33. The marks alone give a single pin attempt and its conversion.
        self.assertEqual((counts.first_ball_avg, counts.single_pin_attempts, counts.single_pin_converted), (5, 1, 1))
        self.assertEqual(counts.matrix, [])

    def test_keys_are_texts_as_stored(self):
        counts = self.counted(frames(("91", "7"), ("91", "7 "), ("9/", ""), ("9/", None), ("0", "x"), ("0", "X")))
        self.assertEqual([(row.leave, row.attempts) for row in counts.matrix], [("7", 1), ("7 ", 1), ("", 2), ("x", 1)])

    def test_the_line_of_a_leave(self):
        # The 7 pin 12 times in 15 games, 9 of them converted: 75 percent, 0.8 a game.
        rows = frames(*[("9/", "7", "/")] * 9) + [
            row for number in (2, 3, 4) for row in frames(("91", "7", "7"), game=number)]
        result = self.report(self.logbook([event()], [game(number) for number in range(1, 16)], rows),
                             kind="Full", session=1)
        line = "7" + " " * 23 + " 12 " + " " * 14 + " 9 " + " " * 14 + "75.00%\t0.8\r\n"
        self.assertTrue(result.written.decode().endswith("\r\n" + line))

    def test_a_long_leave_pushes_the_columns(self):
        result = self.report(self.logbook([event()], [game()], frames(("9-", "ü" * 25))), kind="Full", session=1)
        self.assertIn("ü" * 25 + " 1 " + " " * 15 + " 0 " + " " * 14 + "0.00%\t1.0\r\n", result.written.decode())
        result = self.report(self.logbook([event()], [game()], frames(("9-", "ü" * 23))), kind="Full", session=1)
        self.assertIn("ü" * 23 + "  1 ", result.written.decode())

    def test_the_spares_have_the_strikes_average(self):
        # Three strikes and one spare in one game.
        rows = frames(*[("X", "X")] * 3, ("9/", "7", "/"))
        written = self.report(self.logbook([event()], [game()], rows), kind="Full", session=1).written.decode()
        self.assertIn("Strikes: 3\tStrike Percentage: 75%\tAvg / Game: 3\r\n\r\n"
                      "Spares: 1\tSpare Percentage: 100%\t\tAvg / Game: 3\r\n", written)


SUMMARY_OF_ONE_GAME = """
Strike / Spare Summary Statistics
---------------------------------
(Based on 1 games recorded in 'Pinfall' mode, 0 games recorded in 'Line Score' mode)

Strikes: 1\tStrike Percentage: 33.3%\tAvg / Game: 1

Spares: 1\tSpare Percentage: 50%\t\tAvg / Game: 1

Open Frames: 1\tAvg / Game: 1

Single Pin Spares
-----------------
Attempts: 1\t\tConversions: 1\tPercentage: 100%\tAvg / game: 1

First Ball Average: 9

Spare Statistics (based on 1 games in 'Pinfall' mode):
---------------------------------------------------------------------------

     \t\t\t        \t           \tConversion
Spare\t\t\tAttempts\tConversions\tPercentage\tAvg / Game
-----\t\t\t--------\t-----------\t----------\t----------
10                       1                 1               100.00%\t1.0
7-10                     1                 0               0.00%\t1.0
"""


class EventReportTest(ModelTest):
    def written(self, result):
        self.assertEqual(result.boxes, [])
        return result.written.decode()

    def test_a_full_report(self):
        # Three frames: a strike, the 10 pin converted, the 7-10 split missed. First balls 10 + 9 + 8 = 27 of 3.
        rows = frames(("X", "X"), ("9/", "10", "/"), ("81", "7-10", "10"))
        rows[2].update(fldLaneBowled=14, fldBallUsed="Ghost", fldFootPos="22", fldLaneTgt="10", fldComment="split")
        logbook = self.logbook(
            [event(fldSeriesTot=47, fldSeriesAvg=47, fldComment="short")],
            [game(fldGameScore=47, fldLanePair="13-14", fldStartLane=13, fldLaneCond="dry"),
             game(2, fldScoreType="N", fldGameScore=200)], rows)
        written = self.written(self.report(logbook, kind="Full", session=1, filter="Thursday League"))
        expected = ("""                       Tallybrook 2.0
                       Event Report - Full

Report Date: 11/14/2026, 9:55:00 PM
Event: Thursday League
Event Date: 11/4/2026

Scoring Mode Summary: 
Pinfall Mode: 1 games,   Line Score: 0 games,   Game Score only: 1 games.

Event Summary: 
Games Bowled: 1   Pinfall: 47   Event Average: 47.00
Event Comments: short

Game Summary:

Game 1   Game Score: 47   Lane Pair: 13-14   Starting Lane: 13
Lane Condition: dry
Comment: 

Line Score:
-----------
1\t2\t3\t4\t5\t6\t7\t8\t9\t10
X\t9/\t81

Frame Summary
-------------
Frame 1   Lane Bowled: 0
Ball Used: 
Foot Position:    Lane Target: 
First Ball: X   Second Ball: 
Comment: 
--------------------
Frame 2   Lane Bowled: 0
Ball Used: 
Foot Position:    Lane Target: 
First Ball: 10   Second Ball: /
Comment: 
--------------------
Frame 3   Lane Bowled: 14
Ball Used: Ghost
Foot Position: 22   Lane Target: 10
First Ball: 7-10   Second Ball: 10
Comment: split
--------------------

Game 2   Game Score: 200   Lane Pair:    Starting Lane: 0
Lane Condition: 
Comment: 
Game score only was recorded. No frames recorded for this game.
""" + SUMMARY_OF_ONE_GAME)
        self.assertEqual(written, expected.replace("\n", "\r\n"))

    def test_a_summary_shows_no_frames(self):
        logbook = self.logbook([event()], [game()], frames(("X", "X")))
        written = self.written(self.report(logbook, kind="Summary", session=1))
        self.assertIn("Event Report - Summary\r\n", written)
        self.assertIn("\r\nLine Score:\r\n", written)
        self.assertNotIn("Frame Summary", written)

    def test_marks_begin_with_a_tab_where_the_first_frame_is_missing(self):
        logbook = self.logbook([event()], [game()], frames(("9/", "7"), ("X", "X"), first=2))
        self.assertIn("\t10\r\n\t9/\tX\r\n\r\n", self.written(self.report(logbook, kind="Summary", session=1)))

    def test_the_third_ball_shows_from_the_tenth_frame_on(self):
        logbook = self.logbook([event()], [game()], frames(*[("9/", "7", "/", "X")] * 3, first=9))
        written = self.written(self.report(logbook, kind="Full", session=1))
        self.assertEqual(written.count("First Ball: 7   Second Ball: /\r\n"), 1)
        self.assertEqual(written.count("First Ball: 7   Second Ball: /   Fill Ball: X\r\n"), 2)

    def test_an_event_without_games(self):
        written = self.written(self.report(self.logbook([event(fldSeriesAvg=1234.5)]), kind="Full", session=1))
        self.assertIn("Event Average: 1,234.50\r\nEvent Comments: \r\n\r\nStrike / Spare Summary", written)

    def test_a_game_of_frames_without_frames_has_no_note(self):
        written = self.written(self.report(self.logbook([event()], [game()]), kind="Full", session=1))
        self.assertIn("\r\nLane Condition: \r\nComment: \r\n\r\nStrike / Spare Summary", written)

    def test_a_null_average_ends_in_the_handler(self):
        result = self.report(self.logbook([event(fldSeriesAvg=None)]), kind="Full", session=1)
        self.assertEqual(self.failures(result), [("94", "TBK Reports, Write_Event.")])
        self.assertTrue(result.written.endswith(b"Game Score only: 0 games.\r\n"))

    def test_a_game_number_out_of_range_fails_in_the_first_walk(self):
        result = self.report(self.logbook([event()], [game(40000)]), kind="Full", session=1)
        self.assertEqual(self.failures(result), [
            ("6", "TBK Reports, Get_StSp_Stats."), ("91", "TBK Reports, Build_Sp_Sum."),
            ("91", "TBK Reports, Write_Event.")])

    def test_numbers_that_are_null(self):
        # The first walk reads them as texts, so as 0; the second reads them as numbers.
        second_walk = [("94", "TBK Reports, Build_Sp_Sum."), ("91", "TBK Reports, Write_Event.")]
        frame = frames(("X", "X"))[0]
        for games, rows, balls in (([game(None)], [], 0), ([game()], [{**frame, "fldFrameNum": None}], 1),
                                   ([game(None)], [{**frame, "fldGameNum": 0}], 1)):
            result = self.report(self.logbook([event()], games, rows), kind="Full", session=1)
            self.assertEqual((self.failures(result), self.counts.first_balls), (second_walk, balls))

    def test_the_event_is_gone(self):
        result = self.report(self.logbook([event()]), kind="Summary", session=2, filter="gone")
        self.assertEqual(self.failures(result), [
            ("3021", "TBK Reports, Write_Header."), ("91", "TBK Reports, Get_Sc_Mode."),
            ("91", "TBK Reports, Get_StSp_Stats."), ("91", "TBK Reports, Build_Sp_Sum."),
            ("91", "TBK Reports, Write_Event.")])
        self.assertTrue(result.written.endswith(b"\r\nEvent: gone\r\n"))

    def test_the_box_of_a_failure(self):
        result = self.report(self.logbook([event(fldSeriesAvg=None)]), kind="Full", session=1)
        self.assertEqual(result.boxes[0].line(), (
            'box title="Database Error" icon=critical buttons=OK default=OK text="Error Number: 94\\r\\n'
            f'Error: Invalid use of Null\\r\\nModule: TBK Reports, Write_Event.\\r\\n{PERSISTS}"'))

    def test_a_path_that_cannot_be_written_ends_the_report(self):
        for path, number in ((self.folder / "missing" / "report.txt", "76"), (self.folder, "75")):
            result = self.report(self.logbook([event()]), kind="Full", session=1, file_name=str(path), copy=True)
            self.assertEqual(self.failures(result), [(number, "TBK Reports, Write_Report.")])
            self.assertIsNone(result.written)


class CopyTest(ModelTest):
    def copied(self, handheld):
        return self.report(self.logbook([event()]), kind="Full", session=1, copy=True, handheld=handheld)

    def test_the_report_is_copied_under_its_own_name(self):
        result = self.copied(str(self.folder))
        self.assertEqual((result.boxes, result.copied), ([], str(self.folder / "report.txt")))

    def test_no_folder(self):
        for folder in ("", str(self.folder / "missing")):
            result = self.copied(folder)
            self.assertEqual((self.failures(result), result.copied), ([("76", "TBK Reports, Write_Report.")], None))

    def test_no_configuration(self):
        first, second = self.copied(None).boxes
        self.assertEqual((first.title, first.icon), ("No PDA Configuration", "critical"))
        self.assertTrue(second.text.startswith("Error Number: 20\r\n"))


class StatisticalReportTest(ModelTest):
    def written(self, logbook, **asked):
        result = self.report(logbook, **{"kind": "Statistics", "event_type": "All Events", **asked})
        self.assertEqual(result.boxes, [])
        return result.written.decode()

    def test_a_whole_report(self):
        # Two series of one game in table order 2/3 then 1/2; by date the second is listed first. 450 in 2 games.
        logbook = self.logbook(
            [event(1, fldSeriesTot=47, fldSeriesAvg=47, fldDateBowled="2026-02-03", fldComment="short"),
             event(2, fldSeriesTot=403, fldSeriesAvg=403.5, fldDateBowled="2026-01-02", fldEventName="Open",
                   fldEventType="PRACTICE")],
            [game(fldGameScore=47), game(1, 2, fldGameScore=285, fldScoreType="N")],
            frames(("X", "X"), ("9/", "10", "/"), ("81", "7-10", "10")))
        expected = ("""                       Tallybrook 2.0
                       Statistical Report

Report Date: 11/14/2026, 9:55:00 PM
Report Type: All Events

Found 2 matching events.

Scoring Mode Summary: 
Pinfall Mode: 1 games,   Line Score: 0 games,   Game Score only: 1 games.

Event Summary
-------------
Total Games: 2\t\tTotal Pinfall: 450\tAverage: 225

Event Listing (2 events found):
-----------------------------------------------------------
Event: Open\t\tDate Bowled: 1/2/2026
Event Type: PRACTICE
Games Bowled: 1\t\tPinfall: 403\tEvent Average: 403.5
Comment: 

Event: Thursday League\t\tDate Bowled: 2/3/2026
Event Type: LEAGUE
Games Bowled: 1\t\tPinfall: 47\tEvent Average: 47
Comment: short

Game Statistics
---------------
Games under 100: 1
100 - 119: 0
120 - 139: 0
140 - 159: 0
160 - 179: 0
180 - 199: 0
200 - 219: 0
220 - 239: 0
240 - 259: 0
260 - 279: 0
280 - 297: 0
298 Games: 0
299 Games: 0
300 Games: 0

High Game: 285\tDate Bowled: 1/2/2026
Low Game: 301\tDate Bowled: 12:00:00 AM

Series Summary
--------------
High Series (1 games): 403
Date Bowled: 1/2/2026
Low Series (1 games): 47
Date Bowled: 2/3/2026
""" + SUMMARY_OF_ONE_GAME)
        self.assertEqual(self.written(logbook), expected.replace("\n", "\r\n"))

    def test_high_and_low_game(self):
        for scores, high, low in (((212,), 212, 301), ((180, 150), 180, 150), ((150, 180), 180, 301),
                                  ((0,), 0, 0), ((200, 0, 0), 200, 0), ((285, 400), 400, 301)):
            games = [game(number, fldGameScore=score) for number, score in enumerate(scores, 1)]
            self.written(self.logbook([event()], games))
            self.assertEqual((self.counts.high_game, self.counts.low_game), (high, low), scores)

    def test_the_bins(self):
        scores = (-17, 0, 99, 100, 119, 120, 279, 280, 297, 298, 299, 300, 301)
        games = [game(number, fldGameScore=score) for number, score in enumerate(scores, 1)]
        self.written(self.logbook([event()], games))
        self.assertEqual(self.counts.bins, [3, 2, 1, 0, 0, 0, 0, 0, 0, 1, 0, 1, 1, 1])

    def test_ties_keep_the_first_in_the_tables_order(self):
        self.written(self.logbook([event(1, fldSeriesTot=500, fldDateBowled="2026-02-02"),
                                   event(2, fldSeriesTot=500, fldDateBowled="2026-01-01")]))
        row = self.counts.series[1]
        # 500 is no low series of one game: the row begins at 301.
        self.assertEqual((row.high, row.high_date, row.low, row.low_date), (500, datetime(2026, 2, 2), 301, 301))

    def test_ties_of_games_keep_the_first_date(self):
        events = [event(1, fldDateBowled="2026-02-02"), event(2, fldDateBowled="2026-01-01")]
        games = [game(number, session, fldGameScore=score) for session in (1, 2)
                 for number, score in enumerate((200, 100), 1)]
        self.written(self.logbook(events, games))
        self.assertEqual((self.counts.high_game_date, self.counts.low_game_date), (datetime(2026, 2, 2),) * 2)

    def test_lengths_without_an_event_are_left_out(self):
        written = self.written(self.logbook([event(1, fldNumGames=3, fldSeriesTot=0), event(2, fldNumGames=1,
                                                                                            fldSeriesTot=-5)]))
        # A total below 0 is no high series, so its length does not print; one of 0 does.
        self.assertIn("High Series (3 games): 0\r\nDate Bowled: 11/4/2026\r\nLow Series (3 games): 0\r\n", written)
        self.assertNotIn("(1 games)", written)
        self.assertNotIn("(2 games)", written)

    def test_one_type_lists_no_type(self):
        logbook = self.logbook([event(1, fldEventType="league"), event(2, fldEventType="PRACTICE")])
        written = self.written(logbook, event_type="League")
        self.assertIn("Found 1 matching events.", written)
        self.assertNotIn("Event Type:", written)

    def test_the_header_of_a_filtered_report(self):
        logbook = self.logbook([event()])
        written = self.written(logbook, filter="thursday league", date_from=datetime(2026, 11, 4),
                               date_to=datetime(2026, 11, 4))
        self.assertIn("Report Type: All Events\r\nDate Range: 11/4/2026 to 11/4/2026\r\nFilter: thursday league\r\n"
                      "\r\nFound 1 matching events.\r\n", written)

    def test_an_empty_selection(self):
        result = self.report(self.logbook(), kind="Statistics", event_type="League")
        self.assertTrue(result.written.endswith(b"\r\n\r\nFound 0 matching events.\r\n"))
        self.assertEqual(self.failures(result), [
            ("3021", "TBK Reports, Get_Sc_Mode."), ("91", "TBK Reports, Get_StSp_Stats."),
            ("91", "TBK Reports, Build_Sp_Sum."), ("91", "TBK Reports, Build_Sum_Matrix."),
            ("91", "TBK Reports, Write_Stats.")])

    def test_an_apostrophe_breaks_the_statement(self):
        result = self.report(self.logbook([event()]), kind="Statistics", event_type="All Events", filter="O'Neil")
        self.assertEqual(result.written, b"")
        self.assertEqual(self.failures(result)[:3], [
            ("-2147217900", "TBK Reports, Open_DB."), ("52", "TBK Reports, Write_Header."),
            ("91", "TBK Reports, Get_Sc_Mode.")])

    def test_a_first_date_without_a_last_one(self):
        asked = {"kind": "Statistics", "event_type": "All Events", "date_from": datetime(2026, 11, 4)}
        result = self.report(self.logbook([event()]), **asked)
        self.assertIn(b"Date Range: 11/4/2026 to 12:00:00 AM\r\n", result.written)
        result = self.report(self.logbook([event()]), filter="Thursday League", **asked)
        self.assertEqual(self.failures(result)[0], ("-2147217900", "TBK Reports, Open_DB."))

    def test_values_that_the_sums_fail_on(self):
        for fields, number in (({"fldNumGames": None}, "94"), ({"fldSeriesTot": None}, "94"),
                               ({"fldSeriesTot": 40000}, "6"), ({"fldNumGames": 110}, "6"), ({"fldNumGames": 0}, "9"),
                               ({"fldNumGames": -1}, "9"), ({"fldDateBowled": None}, "94"),
                               ({"fldDateBowled": "someday"}, "13")):
            result = self.report(self.logbook([event(**fields)]), kind="Statistics", event_type="All Events")
            self.assertEqual(self.failures(result), [(number, "TBK Reports, Build_Sum_Matrix."),
                                                     ("91", "TBK Reports, Write_Stats.")], fields)

    def test_an_event_of_no_games_beside_others(self):
        written = self.written(self.logbook([event(1, fldNumGames=0, fldSeriesTot=100), event(2, fldNumGames=109)],
                                            [game(fldGameScore=100)]))
        self.assertIn("100 - 119: 1\r\n", written)
        self.assertIn("High Series (109 games): 0\r\n", written)
        self.assertNotIn("(0 games)", written)


class GameReportTest(ModelTest):
    def report_of(self, logbook, session=1, number=1, name="game.txt"):
        return game_report.GameReport(logbook, session, number, str(self.folder / name), NOW).run()

    def cells_of(self, *balls, first=1):
        cells = game_report.Cells()
        for number, one in enumerate(balls, first):
            for ball in cells.balls(number, *(*one, "", "")[:3]):
                ball()
        return [cells[number] for number in range(first, first + len(balls))]

    def test_a_whole_report(self):
        logbook = self.logbook([event(fldCenterName="Bowl", fldCenterLoc=None, fldComment="c")],
                               [game(fldGameScore=9, fldLanePair="1-2")], frames(("81", "7-10", "10")))
        result = self.report_of(logbook)
        expected = """Report Date: 11/14/2026 9:55:32 PM
Event Information
*****************
Event Name: Thursday League
Center Name: Bowl
Location: 
Date Bowled: 11/4/2026
Comment: c
----- Game Information (Game #1) -----
Game: 1\tLane Pair: 1-2\tGame Score: 9
Lane Condition: 
Comment: 
----- Frame Information (Game #1) -----
Frame: 1\tLane: 0
Ball Used: \tFoot Position: \tLane Target: 
First Ball\tSecond Ball\tFill Ball
----------\t-----------\t---------
7-10\t\t10
Comment: 
*
Line Score:
1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t
81\t\t\t\t\t\t\t\t\t\t

PRODUCT
All Rights Reserved
"""
        self.assertEqual(result.written.decode(), expected.replace("\n", "\r\n").replace("PRODUCT", "\0"))
        self.assertEqual([box.text for box in result.boxes],
                         ["The game report is ready.\r\nLocation: " + str(self.folder / "game.txt")])

    def test_cells(self):
        self.assertEqual(self.cells_of(("X",), ("7", "/"), ("2-4-5", "4"), ("", "")), ["X", "9/", "72", ""])
        # A strike leaves the pins standing as the frame before left them: two, of which one is taken.
        self.assertEqual(self.cells_of(("2-4", "/"), ("X", "4")), ["8/", "X1"])
        # Nothing is told of the first ball: ten stand. Before any ball is counted, none do.
        self.assertEqual(self.cells_of(("", "7")), ["9"])
        self.assertEqual(self.cells_of(("X", "7")), ["X-1"])
        # Odd marks: a spare at first counts as no pins, eleven pins as one less than none.
        self.assertEqual(self.cells_of(("/", "7"), ("1-2-3-4-5-6-7-8-9-10-1", "7")), ["/9", "-110"])

    def test_the_tenth_cell(self):
        for balls, cell in ((("X", "X", "X"), "XXX"), (("X", "3-6", "/"), "X8/"), (("X", "3-6", "6"), "X81"),
                            (("7", "/", "2-4-5"), "9/7"), (("7", "/", "X"), "9/X"), (("X", "X", "7-10"), "XX8"),
                            (("3-6", "6", ""), "81"), (("3-6", "6", "6"), "811")):
            self.assertEqual(self.cells_of(balls, first=10), [cell])

    def test_cell_count(self):
        for pins, ball, text in (("7-10", "First", "8"), ("7", "Second", "1"), ("X", "First", "X"),
                                 ("", "First", "as it was")):
            self.assertEqual(game_report.cell_count(pins, "as it was", ball), text)

    def test_the_third_ball_goes_by_the_row(self):
        logbook = self.logbook([event()], [game()], frames(*[("9/", "7", "/", "X")] * 10, first=2))
        written = self.report_of(logbook).written.decode()
        self.assertEqual(written.count("7\t\t/\r\n"), 9)
        self.assertIn("Frame: 11\tLane: 0\r\n", written)
        self.assertEqual(written.count("7\t\t/\t\tX\r\n"), 1)
        self.assertTrue(written.split("\r\n")[-5].endswith("9/\t9/X\t"))

    def test_an_eleventh_frame_fails_on_its_cell(self):
        for eleventh, boxes in ((("X", "X"), 1), (("", ""), 1), (("81", "7-10", "10", "X"), 2)):
            logbook = self.logbook([event()], [game()], frames(*[("X", "X")] * 10, eleventh))
            result = self.report_of(logbook)
            self.assertEqual([box.text.split("\r\n")[0] for box in result.boxes],
                             ["Error Number: 9"] * boxes + ["The game report is ready."])
            self.assertIn("X\t" * 10 + "\r\n", result.written.decode())

    def test_no_frames(self):
        result = self.report_of(self.logbook([event()], [game()]))
        self.assertEqual(result.boxes[0].title, "No Frames")
        self.assertTrue(result.written.endswith(
            b"NOTE: No frames were recorded for this game.\r\n\r\n\0\r\nAll Rights Reserved\r\n"))

    def test_a_game_without_its_event_leaves_the_list(self):
        result = self.report_of(self.logbook([], [game()]))
        self.assertTrue(result.has_left)
        self.assertEqual([box.title for box in result.boxes], ["Database Error"])
        self.assertTrue(result.written.endswith(b"*****************\r\n"))

    def test_a_game_number_out_of_range_ends_the_program(self):
        result = game_report.retrieve(self.logbook(), game(40000), "game.txt", NOW)
        self.assertEqual(result.ended_by.number, 6)


class LogbooksTest(ModelTest):
    def test_a_seed_makes_the_same_logbook_again(self):
        for seed in range(len(KINDS)):
            self.assertEqual(Season(seed).rows, Season(seed).rows)

    def test_every_kind_can_be_stored_and_read(self):
        for seed in range(20):
            path = self.folder / str(seed)
            kind = make_logbook(seed, path)
            self.assertIn(kind, KINDS)
            self.assertEqual(len(Logbook(path).tables["tblGameInfo"]), len(Season(seed).rows["tblGameInfo"]))

    def test_sound_marks_tell_the_score(self):
        games = 0
        for seed in range(0, 20 * len(KINDS), len(KINDS)):
            rows = Season(seed).rows
            for one in rows["tblGameInfo"]:
                marks = [row["fldLineScore"] for row in rows["tblFrameInfo"]
                         if (row["fldSessionNum"], row["fldGameNum"]) == (one["fldSessionNum"], one["fldGameNum"])]
                if marks:
                    games += 1
                    self.assertEqual(score_of(pins_of("".join(marks))), one["fldGameScore"])
        self.assertGreater(games, 50)

    def test_a_score(self):
        self.assertEqual(score_of([10] * 12), 300)
        self.assertEqual(score_of([9, 1] * 10 + [9]), 190)
        self.assertEqual(score_of([9, 0] * 10), 90)


def pins_of(marks):
    """The pins of each mark of a game."""
    balls = []
    for mark in marks:
        balls.append({"X": 10, "/": 10 - (balls or [0])[-1]}.get(mark) if mark in "X/" else int(mark))
    return balls


class ComparisonTest(unittest.TestCase):
    def test_the_first_different_line_is_shown(self):
        for expected, found, text in (
                (b"a\r\nb\r\n", b"a\r\nb\r\n", None), (None, None, None), (b"", None, "the file is not there"),
                (None, b"", "the file is there"),
                (b"a\r\nb\r\n", b"a\r\nc\r\n", "line 2:\n  expected: 'b'\n  found:    'c'"),
                (b"a\r\n", b"a\r\nb", "line 2:\n  expected: ''\n  found:    'b'"),
                (b"a\r\n", b"a", "line 2:\n  expected: ''\n  found:    None"), (b"a\0b", b"a any words b", None),
                (b"a\0b", b"ab", "line 1:\n  expected: 'a\\x00b'\n  found:    'ab'")):
            self.assertEqual(compare_reports.difference_of_bytes(expected, found), text)

    def test_a_player_that_is_not_there(self):
        told = subprocess.run([sys.executable, "-B", compare_reports.__file__, "--player", "no-such-player"],
                              capture_output=True, check=False)
        self.assertEqual((told.returncode, told.stdout), (2, b""))


class PicturesTest(unittest.TestCase):
    """What the viewer's pictures must show, on games that can be counted by heart."""

    @staticmethod
    def costs(*cells):
        return compare_pictures.costs_of([{"fldLineScore": cell} for cell in cells])

    def test_an_open_frame_costs_its_pins_and_the_next_ball(self):
        self.assertEqual([0, 2 + 9] + [0] * 8, self.costs("9/", "71", *["9/"] * 7, "9/9"))

    def test_behind_a_strike_its_pins_count_twice(self):
        self.assertEqual([0, 2 + 2 + 9] + [0] * 8, self.costs("X", "71", *["9/"] * 7, "9/9"))

    def test_the_tenth_frame_earns_no_ball(self):
        self.assertEqual([0] * 9 + [2], self.costs(*["9/"] * 9, "71"))
        self.assertEqual([0] * 9 + [3], self.costs(*["9/"] * 9, "X61"))

    def test_a_clean_game_costs_nothing(self):
        self.assertEqual([0] * 10, self.costs(*["X"] * 9, "XX8"))

    def test_the_season_begins_in_september(self):
        days = [datetime(2026, month, 1) for month in (5, 6, 8, 9)]
        self.assertEqual(["2025/26", "Summer 2026", "Summer 2026", "2026/27"],
                         [compare_pictures.season(day) for day in days])

    def test_halves_are_rounded_away_from_zero(self):
        self.assertEqual("186.3", compare_pictures.one(186.25))


if __name__ == "__main__":
    unittest.main()
