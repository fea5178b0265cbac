#!/usr/bin/env python3
"""Writes the three example songs beside this file. They are our own; run it again after changing a tune."""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
DIVISION = 480  # file ticks per quarter note


def variable_length(value):
    out = [value & 0x7F]
    while value := value >> 7:
        out.append(0x80 | (value & 0x7F))
    return bytes(reversed(out))


class Part:
    """One MIDI track: events with absolute times, written with delta times."""

    def __init__(self):
        self.events = []

    def add(self, time, data, order=1):
        self.events.append((round(time * DIVISION), order, data))

    def meta(self, time, kind, data):
        self.add(time, bytes([0xFF, kind, len(data)]) + data, 0)

    def note(self, channel, time, length, key, velocity=90):
        self.add(time, bytes([0x90 | channel, key, velocity]), 2)
        self.add(time + length, bytes([0x80 | channel, key, 0]))

    def tune(self, channel, time, text, velocity=90):
        """Notes like "60:1" (key, quarters), chords "60+64:2", rests "r:1"."""
        for word in text.split():
            keys, length = word.split(":")
            length = float(length)
            if keys != "r":
                for key in keys.split("+"):
                    self.note(channel, time, length, int(key), velocity)
            time += length
        return time

    def chunk(self):
        data, last = b"", 0
        for time, _, event in sorted(self.events, key=lambda e: e[:2]):
            data += variable_length(time - last) + event
            last = time
        data += b"\x00\xff\x2f\x00"
        return b"MTrk" + struct.pack(">I", len(data)) + data


def save(name, parts):
    with open(os.path.join(HERE, name), "wb") as file:
        file.write(b"MThd" + struct.pack(">IHHH", 6, 1, len(parts), DIVISION))
        for part in parts:
            file.write(part.chunk())


def conductor(beats_a_minute, numerator, power, sharps=0, minor=0):
    part = Part()
    part.meta(0, 0x51, struct.pack(">I", 60_000_000 // beats_a_minute)[1:])
    part.meta(0, 0x58, bytes([numerator, power, 24, 8]))
    part.meta(0, 0x59, struct.pack("bb", sharps, minor))
    return part


def harbour_jig():
    """A lively tune in 6/8: flute, fiddle drone, plucked bass."""
    phrase = "74:.5 71:.5 67:.5 69:.5 71:.5 72:.5 74:.5 76:.5 74:.5 71:1 67:.5 "
    answer = "72:.5 71:.5 69:.5 74:.5 72:.5 69:.5 67:.5 69:.5 71:.5 67:1.5 "
    flute, fiddle, bass = Part(), Part(), Part()
    flute.add(0, bytes([0xC0, 73]))
    fiddle.add(0, bytes([0xC1, 110]))
    bass.add(0, bytes([0xC2, 32]))
    time = 0
    for repeat in range(4):
        flute.tune(0, time, phrase + answer)
        fiddle.tune(1, time, "55+62:3 60+67:3 57+62:3 55+62:3" if repeat % 2 else "55+59:3 55+59:3 57+60:3 55+59:3", 60)
        time = bass.tune(2, time, "43:1 50:.5 43:1 50:.5 48:1 55:.5 43:1 50:.5 45:1 50:.5 38:1 45:.5 43:1 50:.5 43:1.5")
    tempo = conductor(110, 6, 3, 1)
    tempo.meta(18, 0x51, struct.pack(">I", 60_000_000 // 126)[1:])
    save("harbour-jig.mid", [tempo, flute, fiddle, bass])


def winter_hymn():
    """A slow chorale for four voices in A minor, with a bent last note."""
    voices = [
        "69:2 71:1 72:1 74:2 72:2 71:1 69:1 68:2 69:4",
        "64:2 64:1 64:1 65:2 64:2 62:1 64:1 64:2 64:4",
        "60:2 59:1 57:1 57:2 57:2 59:1 60:1 59:2 60:4",
        "45:2 52:1 57:1 50:2 57:2 55:1 57:1 52:2 45:4",
    ]
    parts = [conductor(66, 4, 2, 0, 1)]
    for channel, voice in enumerate(voices):
        part = Part()
        part.add(0, bytes([0xC0 | channel, 52 if channel < 3 else 48]))
        end = part.tune(channel, 0, voice + " " + voice, 72)
        if channel == 0:
            part.add(end - 1, bytes([0xE0, 0x00, 0x60]))
        parts.append(part)
    save("winter-hymn.mid", parts)


def market_drums():
    """Percussion, a triplet riff on a marimba and an accordion."""
    drums, marimba, accordion = Part(), Part(), Part()
    marimba.add(0, bytes([0xC0, 12]))
    accordion.add(0, bytes([0xC1, 21]))
    for bar in range(8):
        start = bar * 4
        for beat in range(4):
            drums.note(9, start + beat, 0.2, 36 if beat % 2 == 0 else 38, 110)
            for half in range(2):
                drums.note(9, start + beat + half / 2, 0.1, 42, 70)
            for third in range(3):
                key = [60, 64, 67, 70][(beat + bar) % 4] + 12 * (third % 2)
                marimba.note(0, start + beat + third / 3, 0.3, key, 80)
        accordion.tune(1, start, ["60+64+67:3 r:1", "65+69+72:3 r:1", "67+71+74:3 r:1", "60+64+67:4"][bar % 4], 64)
    save("market-drums.mid", [conductor(96, 4, 2), drums, marimba, accordion])


harbour_jig()
winter_hymn()
market_drums()
