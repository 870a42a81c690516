#!/usr/bin/env python3
"""Compares the reports of the program with those of the models, byte for byte, and the boxes that come with them.

For each seed a logbook is made, and the program's player asks for event reports, statistical reports and game reports
on its own screens. The first difference of each play is shown with its line. Exit status 0 when all agree, 1 when they
differ, 2 when the player is not there."""

import random
import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from datetime import datetime, time
from pathlib import Path

import game_report
import reports
from boxes import ANYTHING, Box, lines, quoted
from command_line import parser_of, seeds_of
from forms import RunTimeError, ZERO_DATE, short_date, to_text
from logbooks import make_logbook
from store import Logbook, fold, is_of_kind

TODAY = datetime(2026, 11, 14)
TIMES = ((21, 55, 32), (0, 0, 0), (0, 0, 59), (12, 0, 1), (9, 5, 7))
LOGBOOK = "Tallybrook_DB.mdb"
CONFIGURATION = "tbrkcfg.conf"
TYPES = ("All Events", "League", "Practice", "Tournament")
LEAST = -99999  # what a search asks for that is to find every number but a Null
MOST_ROWS = 6
START_ANSWERS = {"Tallybrook": "OK", "Database Check": "No"}
UNANSWERED = re.compile(r'line (\d+): unanswered box "(.*)"')


@dataclass
class Expected:
    """What a report must leave behind."""

    what: str
    path: Path
    written: bytes
    copied: str = None


@dataclass
class Play:
    """A script in the making, and what must come of it."""

    name: str
    lines: list = field(default_factory=list)
    shown: list = field(default_factory=list)
    reports: list = field(default_factory=list)

    def do(self, *commands):
        self.lines += commands

    def box(self, box, answer="OK"):
        self.shown.append(box.line())
        self.lines.append(f"answer {answer}")

    def ends_by(self, failure):
        self.shown += [f"run-time error {failure.number} {quoted(failure.description)}", "end program"]


class Comparison:
    """The plays on the logbook of one seed, in a folder of their own."""

    def __init__(self, seed, player, folder, starts):
        self.player = player
        self.random = random.Random(seed)
        self.root = folder
        self.data = folder / "data"
        self.work = folder / "work"
        self.handheld = folder / "handheld"
        self.handheld_folder = None  # as it is configured
        for made in (self.data, self.work, self.handheld):
            made.mkdir(parents=True)
        self.now = datetime.combine(TODAY, time(*self.random.choice(TIMES)))
        self.kind = make_logbook(seed, self.data / LOGBOOK)
        self.logbook = Logbook(self.data / LOGBOOK)
        self.start = starts[self.configure()]
        if self.start.writes_configuration:
            self.handheld_folder = ""
        self.count = 0  # of plays and reports, to give each a name of its own

    def configure(self):
        """Gives most logbooks a configuration file, of a handheld that is there or not; tells whether it did."""
        if self.random.random() < 0.1:
            return False
        folder = self.random.choice((str(self.handheld), str(self.handheld), "", str(self.root / "nowhere")))
        write_configuration(self.data, self.random.choice(("Palm", "PPC", "")), folder)
        self.handheld_folder = folder
        return True

    # The plays.

    def plays(self, wanted):
        if "events" in wanted:
            yield self.event_play()
        if "statistics" in wanted:
            yield self.statistics_play()
        if "games" in wanted:
            yield from self.game_plays()

    def begun(self, kind, *commands):
        self.count += 1
        play = Play(f"{self.count} {kind}")
        self.out = self.work / play.name
        self.out.mkdir()
        self.folder = self.work
        play.do(*self.start.lines, "click mnuReports", *commands)
        return play

    def search(self, play, kind, table, column, words):
        """Searches for all rows whose number in that column is known; returns them in the order of the list."""
        fields = "cboListField" if kind == "event" else "cboSearchFld"
        play.do(f"pick {fields}(0) {quoted(words)}", 'pick cboSearchOp(0) "is greater or equal to"',
                f'type txtSearchVal(0) "{LEAST}"', "click cmdSearch")
        found = self.logbook.select(f"SELECT {table}.* FROM {table} WHERE {column} >= {LEAST} ORDER BY {column}")
        if found:
            self.list_comes(play, kind, len(found))
        else:
            play.box(Box("Tallybrook - Event Search", lines("No rows returned.", "Returning to search screen.")))
        return found

    @staticmethod
    def list_comes(play, kind, count):
        noun, article = ("event(s)", "an event") if kind == "event" else ("games(s)", "a game")
        play.box(Box("Tallybrook - Search Results", lines(
            f"Based on your search criteria, {count} {noun} were found.",
            f"Highlight {article} and click Retrieve Record to create a report.")))

    def event_play(self):
        play = self.begun("events", "click mnuRptEvent")
        column, words = self.random.choice((("fldNumGames", "Number of Games"), ("fldSeriesTot", "Series Total"),
                                            ("fldSeriesAvg", "Series Average")))
        found = self.search(play, "event", "tblEventInfo", column, words)
        for number, event in self.some_of(found):
            for kind in self.random.choice((("Full",), ("Summary",), ("Full", "Summary"))):
                if not self.ask_for_event(play, number, event, kind):
                    return play
        return play

    def some_of(self, found):
        numbered = list(enumerate(found, 1))
        return self.random.sample(numbered, min(len(numbered), MOST_ROWS))

    def ask_for_event(self, play, number, event, kind):
        """False where the program ends by it."""
        copy = self.random.random() < 0.2
        play.do(f"row dgdEventList {number}", f"click optRpType({'01'[kind == 'Summary']})",
                f"click optSyncPDA({'10'[copy]})", "click cmdGetRecord")
        key = event["fldSessionNum"]
        if key >= 1 << 31:
            play.ends_by(RunTimeError(6))
            return False
        shown, path = self.choose(play, f"Tallybrook - {kind} Report")
        self.report_comes(play, shown, path, reports.Request(
            kind=kind, filter=to_text(event["fldEventName"]), session=key, copy=copy))
        return True

    def choose(self, play, preset=None):
        """Answers the file dialog; returns the name that is shown and the path that is written to. Where there is
        a preset name, a cancelled dialog goes on with it in the current folder."""
        self.count += 1
        way = self.random.random()
        if preset is not None and way < 0.07:
            play.do("choose cancel")
            return preset, self.folder / preset
        path = self.out / f"{self.count}.txt"
        if way > 0.98:
            path = self.work / "missing" / path.name
        elif way > 0.96:
            path = self.out  # a folder
        if path.parent.is_dir():
            self.folder = path.parent
        play.do(f"choose {quoted(str(path))}")
        return str(path), path

    def report_comes(self, play, shown, path, request):
        request.file_name = str(path)
        request.handheld = self.handheld_folder
        result = reports.write_report(self.logbook, request, self.now)
        for box in result.boxes:
            play.box(box)
        play.box(Box("Report Complete", lines(
            "The report is complete.", f"The report is in the following file: {shown}"), "information"))
        what = f"{request.kind} report, session {request.session}, {request.event_type or 'one event'}"
        self.expect(play, Expected(what, path, result.written, result.copied))

    @staticmethod
    def expect(play, expected):
        """A later report on the same path replaces the one before."""
        play.reports = [one for one in play.reports if one.path != expected.path or one.written is None]
        play.reports.append(expected)

    def statistics_play(self):
        play = self.begun("statistics", "click mnuStats")
        for _ in range(5):
            self.ask_for_statistics(play)
        return play

    def ask_for_statistics(self, play):
        request = reports.Request(kind="Statistics", event_type=self.random.choice(TYPES[:1] + TYPES),
                                  copy=self.random.random() < 0.2)
        play.do("click optFilter(1)", f"click optEvType({TYPES.index(request.event_type)})",
                f"click optSync({'10'[request.copy]})")
        if self.random.random() < 0.6:
            play.do("click optFilter(0)")
            self.choose_dates(play, request)
            self.choose_name(play, request)
        play.do("click cmdGenReport")
        shown, path = self.choose(play)
        self.report_comes(play, shown, path, request)

    def choose_dates(self, play, request):
        if self.random.random() < 0.5:
            return
        known = [row["fldDateBowled"] for row in self.logbook.tables["tblEventInfo"]
                 if isinstance(row["fldDateBowled"], datetime)]
        some = [self.random.choice([*known, ZERO_DATE, TODAY]) for _ in range(2)]
        request.date_from, request.date_to = sorted(some)
        play.do("click chkDate", f'type txtFrom "{self.date_as_typed(request.date_from)}"',
                f'type txtTo "{self.date_as_typed(request.date_to)}"')

    def date_as_typed(self, date):
        return self.random.choice((short_date(date), short_date(date).replace("/", "-"), f"{short_date(date)} 9:55 PM",
                                   f"{date.year:04}-{date.month}-{date.day}", f"{date:%b} {date.day}, {date.year:04}"))

    def choose_name(self, play, request):
        if self.random.random() < 0.4:
            return
        is_all = request.event_type == TYPES[0]
        rows = [row for row in self.logbook.tables["tblEventInfo"]
                if is_all or fold(to_text(row["fldEventType"])) == fold(request.event_type)]
        if any(row["fldEventName"] is None for row in rows):
            return
        play.do("click chkEvent")
        names = {}
        for row in rows:
            names.setdefault(fold(row["fldEventName"]), row["fldEventName"])
        if not names:
            play.box(Box("No Events", "No events in the database", "information"))
        elif self.random.random() < 0.9:
            request.filter = self.random.choice(list(names.values()))
            play.do(f"pick lstEvent {quoted(request.filter)}")

    def game_plays(self):
        """A report that leaves the list, or ends the program, ends its play; the rows behind it have another."""
        found = sorted(self.logbook.tables["tblGameInfo"], key=lambda row: row["fldGameKey"])
        wanted = self.some_of([row for row in found if is_of_kind(row["fldGameScore"], "number")])
        wanted = [row for _, row in wanted]
        while True:
            play = self.begun("games", "click mnuRptGame")
            found = self.search(play, "game", "tblGameInfo", "fldGameScore", "Game Score")
            while wanted:
                row = wanted.pop()
                if not self.ask_for_game(play, found.index(row) + 1, row, len(found)):
                    break
            yield play
            if not wanted:
                return

    def ask_for_game(self, play, number, row, count):
        """False where the list is left, or the program ends by it."""
        self.count += 1
        path = self.out / f"{self.count}.txt"
        result = game_report.retrieve(self.logbook, row, str(path), self.now)
        play.do(f"row dgdEventList {number}", "click cmdGetRecord")
        if result.ended_by is not None:
            play.ends_by(result.ended_by)
            return False
        play.do(f"choose {quoted(str(path))}")
        for box in result.boxes:
            play.box(box)
        self.expect(play, Expected(f"game report, game key {row['fldGameKey']}", path, result.written))
        if not result.has_left:
            self.list_comes(play, "game", count)
        return not result.has_left

    # Carrying them out.

    def run(self, play):
        """The first difference of a play, or None."""
        if self.start.writes_configuration:
            (self.data / CONFIGURATION).unlink(missing_ok=True)
        status, transcript, errors = run_player(self.player, self.data, self.work, self.now, play.lines)
        (self.root / f"{play.name}.txt").write_text("\n".join(play.lines) + "\n", "utf-8", "surrogateescape")
        (self.root / f"{play.name}.transcript").write_text(transcript, "utf-8", "surrogateescape")
        return (self.difference_of_boxes(play, transcript, errors) or self.difference_of_files(play)
                or (f"the player's exit status is {status}: {errors}" if status != 0 else None))

    def difference_of_boxes(self, play, transcript, errors):
        shown = [(number, line) for number, line in enumerate(transcript.splitlines(), 1)
                 if line.startswith(("box ", "run-time error ", "end program"))]
        shown = [line for line in shown if not self.is_of_the_start(line[1])]
        expected = [self.named(line) for line in play.shown]
        for at in range(max(len(shown), len(expected))):
            number, line = shown[at] if at < len(shown) else ("end", "nothing")
            wanted = expected[at] if at < len(expected) else "nothing"
            if not matches(wanted, line):
                wanted = wanted.replace(ANYTHING, "...")
                told = f"\n  {errors}" if errors else ""
                return f"line {number} of the transcript:\n  expected: {wanted}\n  found:    {line}{told}"
        return None

    @staticmethod
    def is_of_the_start(line):
        """Whether it is a box that comes before the first screen."""
        return any(line.startswith(f'box title="{title}" ') for title in START_ANSWERS)

    def named(self, line):
        """A line with its folders named as in a transcript."""
        return line.replace(str(self.work), "<cwd>").replace(str(self.data), "<data>")

    def difference_of_files(self, play):
        for report in play.reports:
            found = report.path.read_bytes() if report.path.is_file() else None
            copy = None
            if report.copied is not None and Path(report.copied).is_file():
                copy = Path(report.copied).read_bytes()
            difference = difference_of_bytes(report.written, found)
            if difference is None and report.copied is not None and copy != found:
                difference = f"the copy {report.copied} is not there, or is another"
            if difference is not None:
                return f"{report.what}, {report.path.name}: {difference}"
        return None


def matches(expected, line):
    """Whether a line is the one expected, in which ANYTHING stands for any words."""
    pattern = ".+".join(re.escape(part) for part in expected.split(ANYTHING))
    return re.fullmatch(pattern, line, re.DOTALL) is not None


def difference_of_bytes(expected, found):
    """The first line in which two files differ, or None."""
    if expected is None or found is None:
        return None if expected is found else f"the file is {'not ' if found is None else ''}there"
    wanted_lines, found_lines = (text.decode("utf-8", "surrogateescape").split("\r\n") for text in (expected, found))
    for number in range(max(len(wanted_lines), len(found_lines))):
        wanted = wanted_lines[number] if number < len(wanted_lines) else None
        line = found_lines[number] if number < len(found_lines) else None
        if wanted is None or line is None or not matches(wanted, line):
            return f"line {number + 1}:\n  expected: {wanted!r}\n  found:    {line!r}"
    return None


def write_configuration(data, handheld, folder):
    """The configuration file with the handheld's type and folder."""
    text = ["# General configuration file for Tallybrook.",
            "# Please do not edit this file unless specifically instructed to",
            "# do so by Tallybrook support staff.", "#", "# Handheld type, either Palm (Palm OS) or PPC (Pocket PC)",
            f'HHTYPE="{handheld}"', "# Synchronization Directory", f'HHSYNCDIR="{folder}"', ""]
    (data / CONFIGURATION).write_bytes("\r\n".join(text).encode())


def run_player(player, data, work, now, script):
    """Plays a script; returns the exit status, the transcript and what the player says on standard error."""
    played = subprocess.run([player, "--display", "model", "--data", data, "--clock", f"{now:%Y-%m-%d %H:%M:%S}"],
                            input=("\n".join(script) + "\n").encode("utf-8", "surrogateescape"), cwd=work,
                            capture_output=True, check=False, timeout=120)
    transcript, errors = (text.decode("utf-8", "surrogateescape") for text in (played.stdout, played.stderr))
    return played.returncode, transcript, errors.strip()


@dataclass
class Start:
    """The script lines of a start, in which whichever boxes come are answered."""

    lines: list
    writes_configuration: bool


def start_of(player, configured):
    """How the program starts, with a configuration file or without."""
    script = ["start"]
    with tempfile.TemporaryDirectory() as folder:
        data = Path(folder)
        make_logbook(0, data / LOGBOOK)
        if configured:
            write_configuration(data, "Palm", "")
        while found := UNANSWERED.match(run_player(player, data, data, TODAY, script)[2]):
            script.append(f"answer {START_ANSWERS[found.group(2)]}")
            if not configured:
                (data / CONFIGURATION).unlink(missing_ok=True)
        return Start(script, not configured and (data / CONFIGURATION).exists())


def compare(seed, player, wanted, keep, starts):
    """Compares the reports of one seed; returns the number of reports and of plays that differ."""
    with tempfile.TemporaryDirectory(prefix="tallybrook-reports-") as temporary:
        folder = Path(keep, str(seed)).resolve() if keep else Path(temporary).resolve()
        if keep and folder.exists():
            shutil.rmtree(folder)
        comparison = Comparison(seed, player, folder, starts)
        count = differing = 0
        for play in comparison.plays(wanted):
            difference = comparison.run(play)
            count += len(play.reports)
            if difference is not None:
                differing += 1
                print(f"seed {seed} ({comparison.kind}), {play.name}: {difference}", flush=True)
        return count, differing


def main():
    parser = parser_of(__doc__, "--player", "src/tallybrook-play")
    parser.add_argument("--only", choices=("events", "statistics", "games"), action="append",
                        help="only these reports; may be given more than once")
    parser.add_argument("--keep", metavar="DIR", help="keeps the logbooks, scripts, transcripts and reports here")
    parser.add_argument("--most", type=int, default=10, metavar="N", help="stops after N differing seeds (10)")
    asked = parser.parse_args()
    wanted = asked.only or ["events", "statistics", "games"]
    starts = {configured: start_of(asked.player, configured) for configured in (True, False)}
    total = differing_plays = differing_seeds = 0
    for seed in seeds_of(asked):
        count, differing = compare(seed, asked.player, wanted, asked.keep, starts)
        total += count
        differing_plays += differing
        differing_seeds += differing > 0
        if differing_seeds == asked.most:
            break
    print(f"{total} reports compared on seeds {asked.first} to {seed}; {differing_plays} plays differ.")
    return 1 if differing_plays else 0


if __name__ == "__main__":
    sys.exit(main())
