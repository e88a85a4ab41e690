#!/usr/bin/env python3
"""Draws the pictures of this folder: plays a person's touches, and takes what the screen shows."""
import json
import pathlib
import sqlite3
import subprocess
import tempfile

PICTURES = pathlib.Path(__file__).resolve().parent
ROOT = PICTURES.parent.parent

# Name, room, colour and font colour of the palette, slots as day and period.
SUBJECTS = [
    ("Mathematics", "R 204", 3, 1, "1_0 2_2 3_0 5_1"),
    ("English", "R 112", 15, 1, "1_1 2_0 4_1 5_0"),
    ("Physics", "Lab 2", 10, 1, "2_3 2_4 4_3"),
    ("History", "R 310", 13, 0, "1_2 3_2"),
    ("Art", "Studio", 7, 0, "3_4 3_5"),
    ("Biology", "Lab 1", 26, 1, "1_4 4_4 5_4"),
    ("Geography", "R 108", 29, 1, "3_1 5_2"),
    ("Music", "Hall", 1, 0, "1_5 4_0"),
    ("Sport", "Gym", 14, 0, "2_5 5_5 5_6"),
    ("Computing", "PC 1", 5, 1, "4_5 4_6"),
]

LAUNCH = {"cmd": "launch"}
REST = {"cmd": "advance", "seconds": 2}


def tap(view, within=None):
    return {"cmd": "tap", "id": view} | ({"within": within} if within else {})


def picture(name):
    return {"cmd": "screenshot", "path": str(PICTURES / f"{name}.png")}


def add(name, room, color, font, slots):
    return [
        tap("btnAdd"), REST,
        *(tap(f"cell_0_{slot}") for slot in slots.split()),
        tap("tfName"), {"cmd": "type", "text": name}, {"cmd": "return"},
        tap("btnRoom1"), {"cmd": "answer", "button": 1, "texts": [room]},
        tap("colorButtonDidPush"), REST,
        tap(f"subjectColor_{color}"), tap(f"fontColor_{font}"), tap("btnOK", "GXColorSelector"), REST,
        tap("btnOK", "titleView"), REST,
    ]  # fmt: skip


def play(data, commands):
    """Plays the commands on the directory; one that is refused ends all."""
    played = subprocess.run(
        [ROOT / "build/release/bin/gexlo-headless", "--data", data, "--scale", "2",
         "--now", "2026-03-02T08:00:00", "--time-zone", "Europe/London", "--region", "GB"],
        input="\n".join(map(json.dumps, commands)), text=True, stdout=subprocess.PIPE, check=True)  # fmt: skip
    for command, answer in zip(commands, played.stdout.splitlines()):
        if not json.loads(answer)["ok"]:
            raise SystemExit(f"{command}\n{answer}")


def main():
    with tempfile.TemporaryDirectory() as data:
        subjects = [command for subject in SUBJECTS for command in add(*subject)]
        list_ = [tap("btnEdit"), REST]
        editor = [{"cmd": "select_row", "id": "SubjectListTableView", "section": 0, "row": 2}, REST]
        play(data, [LAUNCH, REST, *subjects, picture("grid"),
                    *list_, picture("subjects"), *editor, picture("editor")])  # fmt: skip
        # Kept with the timetable, and no screen changes it yet.
        with sqlite3.connect(pathlib.Path(data) / "Group/Vetra.sqlite") as store:
            store.execute("UPDATE TimetableInfo SET daysOnLeft = 1")
        play(data, [LAUNCH, REST, picture("days-on-left")])


main()
