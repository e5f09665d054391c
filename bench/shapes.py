#!/usr/bin/env python3
"""Writes a score of a shape that a careless program takes too long for: shapes.py SHAPE N >FILE

N counts what the shape is named for. Scores have two voices
that form chords when they are merged, and mostly one staff.
"""
import sys

STEPS = "CDE"


def note(i, voice, duration=1, kind="eighth", inside="", behind=""):
    pitch = f"<pitch><step>{STEPS[i % 3]}</step><octave>{6 - voice}</octave></pitch>"
    return (f"{inside}<note>{pitch}<duration>{duration}</duration><voice>{voice}</voice>"
            f"<type>{kind}</type>{behind}</note>")


def score(parts):
    names = range(1, len(parts) + 1)
    listed = "".join(f'<score-part id="P{i}"><part-name>{i}</part-name></score-part>' for i in names)
    texts = "".join(f'<part id="P{i}">{part}</part>' for i, part in zip(names, parts))
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<score-partwise version="4.0">'
            f"<part-list>{listed}</part-list>{texts}</score-partwise>\n")


def measure(number, voices, length=8, beats=4):
    first = ("<attributes><divisions>2</divisions>"
             f"<time><beats>{beats}</beats><beat-type>4</beat-type></time></attributes>")
    backup = f"<backup><duration>{length}</duration></backup>"
    return (f'<measure number="{number}">{first if number == 1 else ""}'
            f"{backup.join(voices)}</measure>")


def eighths(number, decorate=lambda i, voice: {}):
    """A measure of 16 notes."""
    return measure(number, ["".join(note(i, voice, **decorate(i, voice)) for i in range(8))
                            for voice in (1, 2)])


def measures(count, *decoration):
    return "".join(eighths(i + 1, *decoration) for i in range(count))


def one_note(count, each):
    """Many things on one note."""
    things = "".join(each(i) for i in range(count))
    return measure(1, [note(0, 1, 8, "whole"), note(0, 2, 8, "whole", behind=things)])


def slurs_of_two_notes(count):
    """Each from the first note to the second."""
    def ends(kind):
        return "".join(f'<notations><slur type="{kind}" number="{i % 16 + 1}"/></notations>'
                       for i in range(count))
    plain, slurred = (
        "".join(note(0, voice, 4, "half", behind=ends(kind) if voice == 2 else "")
                for kind in ("start", "stop")) for voice in (1, 2))
    return measure(1, [plain, slurred])


def direction(_, voice):
    return {"inside": "<direction><direction-type><words>w</words></direction-type>"
                      f"<voice>{voice}</voice></direction>"}


def slur(i, voice):
    kind = "stop" if i % 2 else "start"
    return {"behind": f'<notations><slur type="{kind}" number="{voice}"/></notations>'}


SHAPES = {
    # staff measures; a score of the host takes 30,000 measures
    "plain": lambda n: score([measures(min(n, 10000))] * max(n // 10000, 1)),
    "staves": lambda n: score([measures(4)] * n),
    "directions": lambda n: score([measures(n // 16, direction)]),
    "slurs": lambda n: score([measures(n // 8, slur)]),
    "lyrics-on-a-note": lambda n: score([one_note(
        n, lambda i: f'<lyric number="{i + 1}"><text>a</text></lyric>')]),
    "slurs-on-a-note": lambda n: score([slurs_of_two_notes(n)]),
    "notes-in-a-measure": lambda n: score([measure(
        1, ["".join(note(i, voice) for i in range(n // 2)) for voice in (1, 2)], n // 2, n // 4)]),
}

if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in SHAPES:
        sys.exit(f"usage: shapes.py {'|'.join(SHAPES)} N")
    sys.stdout.write(SHAPES[sys.argv[1]](int(sys.argv[2])))
