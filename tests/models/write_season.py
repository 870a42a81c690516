#!/usr/bin/env python3
"""Writes a season for the tests of the reports: write_season.py SEED FOLDER

The rows of the logbook of that seed, a file for each table with the names of its fields in the first line, and the
reports that the model makes of them."""

import os
import sys
import tempfile
from datetime import datetime
from pathlib import Path

from logbooks import Season, write_logbook
from reports import Request, write_report
from store import Logbook

NOW = datetime(2026, 11, 14, 21, 55, 32)
REPORTS = {
    "full": {"kind": "Full", "filter": "Season", "session": 5},
    "summary": {"kind": "Summary", "filter": "Season", "session": 5},
    "statistics": {"kind": "Statistics", "event_type": "All Events"},
    "league": {"kind": "Statistics", "event_type": "League"},
}


def on_one_line(value):
    return " ".join(value.split()) if isinstance(value, str) else value


def write_table(path, rows):
    fields = list(rows[0])
    lines = ["\t".join(fields)] + ["\t".join(str(row[field]) for field in fields) for row in rows]
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def main(seed, folder):
    rows = {table: [{name: on_one_line(value) for name, value in row.items()} for row in table_rows]
            for table, table_rows in Season(seed).rows.items()}
    for table, table_rows in rows.items():
        write_table(folder / f"{table}.tsv", table_rows)
    with tempfile.TemporaryDirectory() as scratch:
        path = Path(scratch) / "logbook"
        write_logbook(path, rows)
        for name, request in REPORTS.items():
            file = folder / f"{name}.txt"
            result = write_report(Logbook(path), Request(file_name=str(file), **request), NOW)
            assert not result.boxes, result.boxes
            file.write_bytes(result.written)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__.splitlines()[0].split(": ")[1])
    main(int(sys.argv[1]), Path(sys.argv[2]))
