#!/usr/bin/env python3
"""Counts what the viewer's pictures show a second time, from the rows of the logbook, and compares.

For each seed a sound logbook of some years is made, and reports on it by the model. A program of the viewer's tests
tells what the pictures of these reports say. Averages, moving averages, seasons, leagues, the calendar with its shades,
what open frames and leaves cost, and seasons side by side are worked out here from the rows alone, and never from the
text of a report. Exit status 0 when all agree, 1 when they differ, 2 when the program is not there."""

import json
import subprocess
import sys
import tempfile
from collections import Counter
from dataclasses import dataclass
from datetime import date, datetime, timedelta
from decimal import ROUND_HALF_UP, Decimal
from itertools import groupby
from pathlib import Path

import reports
from command_line import parser_of, seeds_of
from logbooks import Season, score_of, write_logbook
from store import Logbook, fold

NOW = datetime(2026, 11, 14, 21, 55, 32)
MOVING = 12
SHADES = 5
TREND = "Averages over time"
CALENDAR = "The year at a glance"
COSTS = "Where the pins went"
LEAVES = "Leaves that cost most"
SHARES = "Strikes, spares and open frames side by side"
SPARES = "Leaves side by side, those that cost most first"


class Years(Season):
    """Sound seasons over some years, with nights and summers between them."""

    def __init__(self, seed):
        super().__init__(4 * seed)  # of the sound kind

    def _fill(self):
        self.skill = self.random.uniform(0.05, 0.9)
        day = date(2019, 9, 5)
        for _ in range(self.random.choice((1, 3, 14, 40, 60))):
            day += timedelta(days=self.random.choice((0, 1, 7, 7, 7, 7, 40, 100)))
            self._add_event(day)


# What the rows say.

@dataclass
class Event:
    row: dict
    games: list  # the rows of those that were recorded

    @property
    def day(self):
        return self.row["fldDateBowled"]

    @property
    def pins(self):
        return sum(game["fldGameScore"] for game in self.games)


def events_of(logbook, begin=datetime.min, end=datetime.max):
    """The events from one day to another, in the order of their dates."""
    events = [Event(row, [game for game in logbook.tables["tblGameInfo"]
                          if game["fldSessionNum"] == row["fldSessionNum"]])
              for row in logbook.tables["tblEventInfo"] if begin <= row["fldDateBowled"] <= end]
    return sorted(events, key=lambda event: event.day)


def average(events):
    games = sum(len(event.games) for event in events)
    return sum(event.pins for event in events) / games if games else 0.0


def season(day):
    if 6 <= day.month <= 8:
        return f"Summer {day.year}"
    year = day.year - (day.month < 9)
    return f"{year}/{(year + 1) % 100:02}"


def one(number):
    """A number with one decimal, halves away from zero."""
    return str(Decimal(number).quantize(Decimal("0.1"), ROUND_HALF_UP))


def short(day):
    return f"{day.month}/{day.day}/{day.year}"


def counted(count, noun):
    return f"{count} {noun}{'' if count == 1 else 's'}"


# What the pictures must show.

def trend_table(events):
    rows = []
    for at, event in enumerate(events):
        before = events[:at + 1]
        of_season = [other for other in before if season(other.day) == season(event.day)]
        rows.append([short(event.day), " ".join(event.row["fldEventName"].split()), event.row["fldEventType"],
                     str(len(event.games)), str(event.pins), one(round(event.pins / len(event.games), 2)),
                     one(average(before[-MOVING:])), season(event.day), one(average(of_season))])
    return rows


def leagues(events):
    """The events by their names, those with the most first."""
    by_name = {}
    for event in events:
        by_name.setdefault(fold(event.row["fldEventName"]), []).append(event)
    return sorted(by_name.values(), key=len, reverse=True)


def trend_words(events, unscored):
    lengths = Counter(len(event.games) for event in events)
    usual = max(lengths, key=lambda length: (lengths[length], length))
    series = [event for event in events if len(event.games) == usual]
    high = max(series, key=lambda event: event.pins)
    low = min(series, key=lambda event: event.pins)
    months = Counter()
    for event in events:
        months[event.day.year, event.day.month] += len(event.games)
    month = max(months, key=lambda one_month: months[one_month])
    last = events[-1]
    of_season = [event for event in events if season(event.day) == season(last.day)]
    words = [f"{counted(len(events), 'event')} from {short(events[0].day)} to {short(last.day)}",
             f"Average {one(average(events))}", f"Average of the last 12 events: {one(average(events[-MOVING:]))}",
             f"Average of {season(last.day)}: {one(average(of_season))}",
             f"High series of {counted(usual, 'game')}: {high.pins} on {short(high.day)}",
             f"Low series of {counted(usual, 'game')}: {low.pins} on {short(low.day)}",
             f"Most games in a month: {months[month]} in {datetime(*month, 1):%b %Y}"]
    left_out = {0: "", 1: " 1 event without a score is left out."}
    return ". ".join(words) + "." + left_out.get(unscored, f" {unscored} events without a score are left out.")


def nights_of(events):
    return [(day, list(night)) for day, night in groupby(events, key=lambda event: event.day)]


def calendar_table(events):
    return [[short(day), str(len(night)), str(sum(len(event.games) for event in night)),
             str(sum(event.pins for event in night)), one(average(night))] for day, night in nights_of(events)]


def shades(events):
    """The averages at which a darker shade begins: a fifth of the nights each, as far as they differ."""
    averages = sorted(average(night) for _, night in nights_of(events))
    bounds = [averages[0]] if averages else []
    for shade in range(1, SHADES):
        bound = averages[shade * len(averages) // SHADES] if averages else 0
        if averages and bound > bounds[-1]:
            bounds.append(bound)
    return bounds[1:]


def balls_of(marks):
    balls = []
    for mark in marks:
        balls.append(10 if mark == "X" else 10 - balls[-1] if mark == "/" else int(mark))
    return balls


def costs_of(frames):
    """What each open frame cost: the score with that spare made, less the score."""
    balls = [balls_of(frame["fldLineScore"]) for frame in frames]
    score = score_of(sum(balls, []))
    costs = []
    for number, frame in enumerate(balls):
        rack = frame[1:] if number == 9 and frame[0] == 10 else frame
        is_open = len(rack) == 2 and 10 not in rack and sum(rack) < 10
        bonus = [0] if number == 9 and len(frame) == 2 else []
        made = [*frame[:-1], 10 - rack[0], *bonus] if is_open else frame
        costs.append(score_of(sum(balls[:number] + [made] + balls[number + 1:], [])) - score)
    return costs


def leave_of(frame, game):
    """The pins that a spare was open on; behind a strike of the tenth frame those of its second ball."""
    if game["fldScoreType"] != "P":
        return ""
    balls = [frame["fldFirstBallRes"], frame["fldSecondBallRes"]]
    leave = balls[1] if balls[0] == "X" and frame["fldFrameNum"] == 10 else balls[0]
    return "" if leave == "X" else leave


def frames_of(logbook, game):
    frames = [frame for frame in logbook.tables["tblFrameInfo"]
              if frame["fldSessionNum"] == game["fldSessionNum"] and frame["fldGameNum"] == game["fldGameNum"]]
    return sorted(frames, key=lambda frame: frame["fldFrameNum"])


def cost_tables(logbook, event):
    """What the frames of an event cost, and the leaves."""
    rows, totals, leaves = [], [0] * 10, {}
    games = [game for game in event.games if frames_of(logbook, game)]
    for game in games:
        frames = frames_of(logbook, game)
        for number, (frame, cost) in enumerate(zip(frames, costs_of(frames)), 1):
            left = leave_of(frame, game)
            rows.append([f"Game {game['fldGameNum']}, frame {number}", str(cost), frame["fldLineScore"], left])
            totals[number - 1] += cost
            if cost:
                pins, misses = leaves.get(left, (0, 0))
                leaves[left] = pins + cost, misses + 1
    if len(games) > 1:
        rows += [[f"All games, frame {number}", str(cost), "", ""] for number, cost in enumerate(totals, 1)]
    dearest = sorted(leaves.items(), key=lambda leave: -leave[1][0])
    return rows, [[name_of(leave), str(pins), str(misses)] for leave, (pins, misses) in dearest]


def name_of(leave):
    return {"": "Not recorded", "1-2-3-4-5-6-7-8-9-10": "All ten pins"}.get(leave, leave)


def share(made, attempts):
    percent = f"{int(100 * made / attempts + 0.5)}%" if attempts else "-"
    return f"{made} of {attempts}, {percent}"


def side_by_side(counts):
    """The shares and the leaves of two reports; those that cost most in the second one first."""
    shares = [[name, *(share(*of(one_of)) for one_of in counts)] for name, of in (
        ("Strikes", lambda c: (c.strikes, c.strikes + c.spares + c.open_frames)),
        ("Spares", lambda c: (c.spares, c.spares + c.open_frames)),
        ("Open frames", lambda c: (c.open_frames, c.strikes + c.spares + c.open_frames)),
        ("Single pins", lambda c: (c.single_pin_converted, c.single_pin_attempts)))]
    made = [{row.leave: (row.conversions, row.attempts) for row in one_of.matrix} for one_of in counts]
    leaves = []
    for leave in {**made[0], **made[1]}:
        both = [one_of.get(leave, (0, 0)) for one_of in made]
        lost = (both[1][1] - both[1][0]) * (1 + counts[1].first_ball_avg)
        leaves.append([name_of(leave), *(share(*one_of) for one_of in both), str(lost)])
    return shares, sorted(leaves, key=lambda leave: leave[0])


# Comparing.

class Comparison:
    """The reports on the logbook of one seed, in a folder of their own."""

    def __init__(self, seed, folder):
        self.folder = folder
        write_logbook(folder / "logbook", Years(seed).rows)
        self.logbook = Logbook(folder / "logbook")
        self.asked = []  # the files of each question, and what compares the answer

    def write(self, name, **request):
        run = reports.ReportRun(self.logbook, reports.Request(**request), NOW)
        run.Write_Report()
        (self.folder / name).write_bytes(run.result.written)
        return run.counts

    def ask(self):
        self.ask_for_all_events()
        for event in self.logbook.tables["tblEventInfo"]:
            self.ask_for_event(event["fldSessionNum"])
        self.ask_side_by_side()

    def ask_for_all_events(self):
        self.write("all.txt", kind="Statistics", event_type="All Events")
        self.asked.append((["all.txt"], self.compare_all_events))

    def compare_all_events(self, told):
        all_events = events_of(self.logbook)
        events = [event for event in all_events if event.pins > 0]
        if not events:
            yield "trend of nothing", False, TREND in told["pictures"]
            return
        trend, calendar = told["pictures"][TREND], told["pictures"][CALENDAR]
        yield "trend", trend_table(events), trend["tables"][0]
        yield "words on the trend", trend_words(events, len(all_events) - len(events)), trend["summary"]
        parted = leagues(events)
        if len(parted) > 1:
            names = ["All events", *(league[0].row["fldEventName"] for league in parted)]
            yield "leagues", names, trend["choices"]
            for number, league in enumerate(parted, 1):
                yield f"trend of {names[number]}", trend_table(league), trend["tables"][number]
        yield "calendar", calendar_table(events), calendar["tables"][0]
        yield "shades", [round(bound, 1) for bound in shades(events)], [round(bound, 1) for bound in told["bounds"]]

    def ask_for_event(self, session):
        name = f"event {session}.txt"
        self.write(name, kind="Full", session=session)
        event = next(one_of for one_of in events_of(self.logbook) if one_of.row["fldSessionNum"] == session)

        def compare(told):
            frames, leaves = cost_tables(self.logbook, event)
            pictures = told["pictures"]
            yield "costs of frames", frames, pictures[COSTS]["tables"][0] if COSTS in pictures else []
            is_known = any(leave[0] != name_of("") for leave in leaves)
            yield "costs of leaves", leaves if is_known else [], (
                pictures[LEAVES]["tables"][0] if LEAVES in pictures else [])

        self.asked.append(([name], compare))

    def ask_side_by_side(self):
        """The first half of the time beside the second one."""
        days = [event.day for event in events_of(self.logbook)]
        if days[0] == days[-1]:
            return
        middle = days[0] + (days[-1] - days[0]) // 2
        halves = ((days[0], middle), (middle + timedelta(days=1), days[-1]))
        halves = [(begin.replace(hour=0), end.replace(hour=0)) for begin, end in halves]
        counts = [self.write(f"half {number}.txt", kind="Statistics", event_type="All Events", date_from=begin,
                             date_to=end) for number, (begin, end) in enumerate(halves)]
        events = [[event for event in events_of(self.logbook, *half) if event.pins > 0] for half in halves]

        def compare(told):
            shares, leaves = side_by_side(counts)
            totals = [[str(sum(len(event.games) for event in half)) for half in events],
                      [one(average(half)) for half in events]]
            lines = {line.split()[0]: line.split()[1:3] for line in told["text"].splitlines() if line}
            yield "games and averages", totals, [lines["Games"], lines["Average"]]
            pictures = told["pictures"]
            shown = [row[:3] for row in pictures[SHARES]["tables"][0]]
            yield "shares", shares, shown
            shown = [[*row[:3], row[5]] for row in pictures[SPARES]["tables"][0]] if SPARES in pictures else []
            yield "leaves side by side", leaves, sorted(shown, key=lambda leave: leave[0])
            lost = [int(row[3]) for row in shown]
            yield "order of leaves", sorted(lost, reverse=True), lost

        self.asked.append(([f"half {number}.txt" for number in (0, 1)], compare))

    def differences(self, program):
        questions = "".join("\t".join(files) + "\n" for files, _ in self.asked)
        answers = subprocess.run([program], input=questions, cwd=self.folder, capture_output=True, text=True,
                                 check=True, timeout=120).stdout.splitlines()
        for (files, compare), answer in zip(self.asked, answers, strict=True):
            for what, expected, found in compare(json.loads(answer)):
                if expected != found:
                    yield f"{what} of {', '.join(files)}: {first_difference(expected, found)}"


def first_difference(expected, found):
    if isinstance(expected, list) and isinstance(found, list):
        for number, (wanted, shown) in enumerate(zip(expected, found)):
            if wanted != shown:
                return f"row {number}\n  expected: {wanted}\n  found:    {shown}"
        return f"{len(expected)} rows expected, {len(found)} found"
    return f"\n  expected: {expected}\n  found:    {found}"


def main():
    asked = parser_of(__doc__, "--program", "tests/tell_pictures").parse_args()
    reports_compared = differing = 0
    for seed in seeds_of(asked):
        with tempfile.TemporaryDirectory(prefix="tallybrook-pictures-") as folder:
            comparison = Comparison(seed, Path(folder))
            comparison.ask()
            reports_compared += len(comparison.asked)
            for difference in comparison.differences(asked.program):
                differing += 1
                print(f"seed {seed}, {difference}", flush=True)
    print(f"The pictures of {reports_compared} reports compared; {differing} of their tables differ.")
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
