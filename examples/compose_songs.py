#!/usr/bin/env python3
"""Writes the demo songs in songs/, one ABC file for each part. They are our own; run it again after changing a tune.

Melodies are written out in ABC. What goes with them follows from the chords: bars of broken chords, basses and pads."""
import os
import re

HERE = os.path.dirname(os.path.abspath(__file__))
LETTERS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
QUALITIES = {"": (0, 4, 7), "m": (0, 3, 7), "7": (0, 4, 7, 10), "m7": (0, 3, 7, 10)}
SHARPS = {"Am": "", "D": "FC", "Em": "F"}
DRUMS = {"deep": 35, "kick": 36, "snare": 38, "clap": 39, "hat": 42, "low_tom": 45, "open": 46, "crash": 49,
         "high_tom": 50, "ride": 51, "tambourine": 54, "cowbell": 56, "low_bongo": 61, "conga": 63, "low_conga": 64,
         "shaker": 70, "triangle": 81}


class Chord:
    def __init__(self, name):
        root, sharp, quality = re.fullmatch(r"([A-G])(#?)(.*)", name).groups()
        self.root = (LETTERS[root] + len(sharp)) % 12
        self.tones = [(self.root + step) % 12 for step in QUALITIES[quality]]

    def voiced(self, lowest, count=3):
        """The `count` lowest chord tones from `lowest` up; neighbouring chords then lie near each other."""
        pitches = [pitch for pitch in range(lowest, lowest + 48) if pitch % 12 in self.tones]
        return pitches[:count]

    def bass(self, lowest):
        return lowest + (self.root - lowest) % 12


def spelled(pitch, key):
    """A pitch in ABC. Tones that the key lacks get a sharp, which holds for their bar; no bar takes it back."""
    natural = {step: letter for letter, step in LETTERS.items()}
    signed = {(LETTERS[letter] + 1) % 12: letter for letter in SHARPS[key]}
    step, sign = pitch % 12, ""
    if step in signed:
        letter = signed[step]
    elif step in natural:
        letter, sign = natural[step], "=" if natural[step] in SHARPS[key] else ""
    else:
        letter, sign = natural[step - 1], "^"
    octave = pitch // 12 - 5
    return sign + (letter.lower() + "'" * (octave - 1) if octave > 0 else letter + "," * -octave)


def bar(key, *notes):
    """Notes are (pitches, length), with a third member for staccato; a rest has no pitches."""
    words = []
    for pitches, length, *short in notes:
        tones = [("." if short else "") + spelled(pitch, key) for pitch in pitches]
        text = "z" if not tones else tones[0] if len(tones) == 1 else "[" + "".join(tones) + "]"
        words.append(text + (str(length) if length > 1 else ""))
    return " ".join(words)


def units(text):
    """The length of a bar of ABC in unit lengths. A chord's length stands after its bracket."""
    outer = re.sub(r"\[[^\]]*\]", "c", text)
    return sum(int(length or 1) for length in re.findall(r"[A-Ga-gz][,']*(\d*)", outer))


def grid(**rows):
    """A bar of drums: one row for each, one character for each unit length, "x" where it is struck."""
    hits = [[DRUMS[name] for name, row in rows.items() if row[i] == "x"]
            for i in range(len(next(iter(rows.values()))))]
    notes = []
    for keys in hits:
        if not keys and notes and not notes[-1][0]:
            notes[-1] = ([], notes[-1][1] + 1)
        else:
            notes.append((keys, 1))
    return notes


class Song:
    def __init__(self, title, key, metre, unit, bar_units, sections):
        self.title, self.key, self.metre, self.unit, self.bar_units = title, key, metre, unit, bar_units
        self.sections = [(name, tempo, [[Chord(c) for c in word.split("-")] for word in chords.split()])
                         for name, tempo, chords in sections]
        self.directory = os.path.join(HERE, "songs", title.lower().replace(" ", "-").replace("'", ""))
        self.parts = 0

    def bars(self, name, chords, music):
        """The bars of a section. Music is ABC, or a function from a bar's chords and number to its notes."""
        if music is None:
            texts = [f"z{self.bar_units}"] * len(chords)
        elif callable(music):
            texts = [bar(self.key, *music(chord, i)) for i, chord in enumerate(chords)]
        else:
            texts = [text.strip() for text in music.split("|")]
        assert len(texts) == len(chords), (self.title, name, len(texts), len(chords))
        for text in texts:
            assert units(text) == self.bar_units, (self.title, name, text, units(text))
        return texts

    def part(self, instrument, title=None, **music):
        """One track. `music` holds, by section, what it plays there; it rests in the others."""
        assert set(music) <= {name for name, _, _ in self.sections}, music.keys()
        self.parts += 1
        title = title or instrument
        tempo = self.sections[0][1]
        lines = [f"X: {self.parts}", f"T: {self.title} - {title}", f"I: Instrument:{instrument}", f"M: {self.metre}",
                 f"L: {self.unit}", f"Q: 1/4={tempo}", f"K: {self.key}"]
        for name, section_tempo, chords in self.sections:
            lines.append(f"% {name}")
            if section_tempo != tempo:
                tempo = section_tempo
                lines.append(f"Q: 1/4={tempo}")
            texts = self.bars(name, chords, music.get(name))
            in_line = 4 if max(map(len, texts)) < 28 else 2
            lines += [" | ".join(texts[i:i + in_line]) + " |" for i in range(0, len(texts), in_line)]
        os.makedirs(self.directory, exist_ok=True)
        path = os.path.join(self.directory, f"{self.parts:02}-{title.lower().replace(' ', '-')}.abc")
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")


# ---- What goes with a melody. Each takes the chords of a bar (one or two) and the bar's number in its section.

def pad(lowest, length, count=3):
    return lambda chords, _: [(chord.voiced(lowest, count), length // len(chords)) for chord in chords]


def broken(lowest, order, length=1):
    """Chord tones from the lowest up, in the given order; two chords share the bar."""
    def notes(chords, _):
        share = len(order) // len(chords)
        return [([chord.voiced(lowest, max(order) + 1)[i]], length)
                for n, chord in enumerate(chords) for i in order[n * share:(n + 1) * share]]
    return notes


def struck(lowest, rhythm, count=3):
    """Short chords: each (length, struck or not)."""
    def notes(chords, _):
        half = sum(length for length, _ in rhythm) / 2
        result, at = [], 0
        for length, sounds in rhythm:
            chord = chords[-1] if at >= half else chords[0]
            result.append((chord.voiced(lowest, count) if sounds else [], length, "short"))
            at += length
        return result
    return notes


def bass(lowest, rhythm):
    """Each (length, step): the step in semitones above the root, None for a rest."""
    def notes(chords, _):
        half = sum(length for length, _ in rhythm) / 2
        result, at = [], 0
        for length, step in rhythm:
            chord = chords[-1] if at >= half else chords[0]
            result.append(([] if step is None else [chord.bass(lowest) + step], length))
            at += length
        return result
    return notes


def loop(*bars):
    """Bars of drums in turn; a bar may be a list of notes or "rest" of so many units."""
    return lambda _, i: bars[i % len(bars)]


def rest(length):
    return [([], length)]


def lanterns_on_the_water():
    """A quiet waltz for harp and winds."""
    verse = "D D Bm Bm G G A A7 D F#m G D Em A7 D D"
    song = Song("Lanterns on the Water", "D", "3/4", "1/8", 6, [
        ("intro", 96, "D Bm G A7"), ("first", 100, verse),
        ("second", 104, "Bm F#m G D Em Bm A A7 Bm F#m G D Em G A A7"), ("third", 100, verse),
        ("coda", 84, "G D G D"), ("end", 60, "D D")])
    tune = ("A4 d2 | f4 e2 | d4 c2 | B6 | B4 d2 | g4 f2 | e4 c2 | A6 |"
            "A4 d2 | f4 a2 | b4 a2 | a2 f4 | g4 e2 | f2 e2 c2 | d6- | d4 z2")
    ornate = ("A4 d2 | f3 g f e | d4 c2 | B4 c B | B4 d2 | g3 a g f | e4 c2 | A4 B c |"
              "d4 f2 | a4 c'2 | d'4 c'b | a2 f4 | g3 a g e | f2 e2 c2 | d6- | d4 z2")
    song.part("Flute", first=tune, third=ornate, coda="b4 g2 | a4 f2 | g2 e2 c2 | d6", end="z6 | z6", second=(
        "z6 | z6 | z6 | z2 d2 f2 | z6 | z6 | z6 | z2 c2 e2 | f6 | a6 | b4 g2 | z2 a2 d'2 | c'4 b2 | b6 | a6 | e4 z2"))
    song.part("Oboe", second=(
        "B4 c2 | d2 c2 A2 | B4 G2 | F6 | G4 A2 | B2 A2 F2 | E4 F2 | E6 |"
        "B4 c2 | d2 c2 f2 | g4 d2 | f6 | e2 f2 g2 | b4 g2 | a4 e2 | c4 z2"), coda="z6 | z2 d2 A2 | B6 | A6", third=(
        "z6 | z6 | z6 | z2 d2 f2 | g6 | z6 | z6 | z2 e2 c2 | z6 | z6 | z6 | d4 c2 | B4 B2 | A4 G2 | F6- | F6"))
    song.part("Fiddle", second=(
        "z6 | z6 | z6 | A,6 | B,6 | D6 | C6 | C6 | D6 | C4 F2 | G6 | A4 F2 | G6 | B6 | c6 | A4 G2"), third=(
        "F6 | A4 G2 | F4 E2 | D4 F2 | G6 | B4 A2 | G4 E2 | C2 E2 G2 |"
        "F6 | A4 c2 | d4 c2 | A6 | B4 G2 | A2 G2 E2 | F6- | F6"),
        coda="d6 | c6 | B6 | A6", end="F6- | F6")
    wave = broken(50, (0, 2, 3, 5, 3, 2))
    song.part("Harp", intro=wave, first=wave, second=broken(47, (0, 1, 2, 4, 3, 2)),
              third=broken(50, (0, 2, 4, 6, 4, 2)), coda=wave, end="D,A,DFAd | [D,A,DFad]6")
    song.part("Choir", second=pad(59, 6), third=pad(57, 6), coda=pad(57, 6), end="[A,DF]6 | [A,DFA]6")

    def chime(chords, i):
        return [(chords[0].voiced(86, 1) if i % 4 == 0 else [], 6)]

    def chimes(chords, i):
        return [(chords[0].voiced(81, 1), 2), ([], 2), (chords[0].voiced(86, 1) if i % 2 else [], 2)]

    song.part("Bells", intro="a6 | z6 | b6 | z6", first=chime, third=chimes, coda="b6 | a6 | g6 | f6",
              end="[d'f'a']6 | z6")
    song.part("Bass", first=bass(33, [(6, 0)]), second=bass(33, [(4, 0), (2, 7)]),
              third=bass(33, [(2, 0), (2, 7), (2, 12)]), coda=bass(33, [(6, 0)]), end="D,,6- | D,,6")
    ticking = grid(shaker="..x.x.", deep="x.....")
    song.part("Drums", intro=loop(grid(triangle="x....."), rest(6)), second=loop(ticking),
              third=loop(grid(shaker="..x.x.", deep="x.....", triangle="x....."), ticking,
                         grid(shaker="..x.xx", deep="x....."), grid(shaker="x.x.x.", deep="x...x.")),
              end=loop(grid(triangle="x....."), rest(6)))


def the_millers_wager():
    """A reel that gets its dancers one by one."""
    first, second = "Em Em-D Em D Em Em-D G-D Em", "G D C G Am G C-D G"
    song = Song("The Miller's Wager", "Em", "4/4", "1/8", 8, [
        ("intro", 120, "Em D Em D"), ("first", 120, first), ("again", 120, first), ("second", 122, second),
        ("repeat", 122, second), ("third", 124, first), ("bridge", 112, "Em C G D Em C D D"), ("last", 126, second),
        ("faster", 132, second), ("end", 132, "Em D Em")])
    reel = "EFGA B2 eB | dBAG F2 D2 | EFGA B2 ef | gfed f2 d2 | e2 BG EGBe | g2 fe d2 AF | GABd fdAF | E2 G2 E4"
    turn = ("g2 dB GBdg | f2 dA FAdf | e2 cG EGce | d2 BG DGBd | c2 ec Acea | g2 dB g2 ba | gece fdAF | G2 B2 G4")
    song.part("Fiddle", first=reel, again=reel, second=turn, repeat=turn, third=reel, last=turn, faster=turn,
              bridge="z8 | z8 | z8 | z8 | B8 | c4 e4 | f4 d4 | A4 Bc d^d", end="EFGA Bcde | f2 d2 A2 F2 | E8")
    above = "B4 e4 | e4 f4 | g6 e2 | f4 d4 | b4 g4 | e4 f4 | d4 f4 | e8"
    answer = "d8 | d4 f4 | g6 e2 | d8 | e4 c4 | d4 g4 | e4 f4 | g8"
    song.part("Flute", again=above, repeat=answer, third=above, faster=(
        "b2 gd Bdgb | a2 fd Adfa | g2 ec Gceg | g2 dB GBdg | e2 ae ceac' | b2 gd b2 d'c' | bgeg afdA | B2 d2 G4"),
        last=answer, bridge="e4 g4 | g6 e2 | d4 B4 | A6 z2 | e4 g4 | g4 c'4 | b4 a4 | f6 z2", end="z8 | z8 | e8")
    strum = bass(40, [(2, 0), (2, None), (2, 7), (2, None)])
    chop = struck(57, [(2, False), (2, True), (2, False), (2, True)])

    def boom_chuck(chords, i):
        return [strong if strong[0] else weak for strong, weak in zip(strum(chords, i), chop(chords, i))]

    rolling = broken(52, (0, 2, 3, 4, 3, 2, 3, 2))
    song.part("Lute", intro=boom_chuck, first=boom_chuck, again=boom_chuck, second=rolling, repeat=rolling,
              third=boom_chuck, bridge=broken(52, (0, 1, 2, 3, 4, 3, 2, 1)), last=rolling, faster=rolling,
              end=boom_chuck)
    offbeat = struck(59, [(1, False), (1, True)] * 4)
    song.part("Accordion", again=pad(59, 8), second=offbeat, repeat=offbeat, third=pad(59, 8), bridge=pad(55, 8),
              last=offbeat, faster=struck(62, [(1, False), (1, True)] * 4, 4), end=pad(59, 8))
    steady, walking = bass(28, [(4, 0), (4, 7)]), bass(28, [(2, 0), (2, 7), (2, 12), (2, 7)])
    song.part("Bass", again=steady, second=walking, repeat=walking, third=steady, bridge=bass(28, [(8, 0)]),
              last=walking, faster=walking, end=walking)
    song.part("Marimba", repeat=broken(67, (0, 2, 1, 2, 0, 2, 1, 2)), last=broken(67, (0, 2, 1, 2, 0, 2, 1, 2)),
              faster=broken(67, (3, 2, 1, 2, 3, 2, 1, 2)))
    stomp = grid(kick="x...x...", tambourine="..x...x.", conga="x.xx.xx.", low_conga="....x...")
    dance = grid(kick="x...x...", clap="..x...x.", tambourine="x.x.x.x.", conga=".x.x.x.x")
    fill = grid(kick="x.......", snare="....x.xx", high_tom="..xx....", tambourine="x.x.x.x.")
    calm = grid(shaker="x.x.x.x.", low_bongo="x......x")
    stomping, dancing = loop(*[stomp] * 7, fill), loop(*[dance] * 7, fill)
    song.part("Drums", intro=loop(grid(conga="x..x..x.", low_conga="....x...")),
              first=loop(grid(conga="x.xx.xx.", low_conga="....x...")), again=stomping, second=dancing, repeat=dancing,
              third=stomping, bridge=loop(*[calm] * 7, fill), last=dancing, faster=dancing,
              end=loop(dance, fill, grid(crash="x.......", kick="x.......")))


def night_market():
    """A groove among the stalls: marimba first, then everybody."""
    verse, chorus = "Am F C G Am F Dm E7", "F G Em Am F G E E7"
    song = Song("Night Market", "Am", "4/4", "1/16", 16, [
        ("intro", 100, "Am F Am E7"), ("first", 100, verse), ("second", 100, verse), ("chorus", 104, chorus),
        ("third", 100, verse), ("reprise", 104, chorus), ("outro", 100, "Am F Dm E7"), ("end", 80, "Am")])
    tune = ("A4 c2e4 d2c4 | A6 c2A8 | G4 c2e4 d2c4 | d6 B2G8 | A4 c2e4 g2e4 | f6 e2c8 | d4 f2a4 g2f4 | e6 ^g2e8")
    high = "a6 g2f4a4 | b6 a2g4b4 | g6 f2e4g4 | a12 e4 | a6 g2f4a4 | b6 c'2d'4b4 | b12 ^g4 | e8 z8"
    under = "e12 z4 | f8 e4d4 | e12 g4 | g8 f4d4 | e12 a4 | a8 g4f4 | f8 a8 | ^g8 b8"
    offbeat = struck(60, [(2, False), (2, True)] * 4)
    song.part("Accordion", first=tune, second=tune, third=tune, chorus=offbeat, reprise=offbeat,
              outro="A4 c2e4 d2c4 | A6 c2A8 | d4 f2a4 g2f4 | e16", end="[Ace]16")
    song.part("Flute", second="z16 | z8 c'2a2f4 | z16 | z8 d'2b2g4 | z16 | z8 a2c'2a4 | z16 | z8 b2^g2e4", chorus=high,
              third="z16 | z8 a2f2c4 | z16 | z8 b2g2d4 | z16 | z8 f2a2f4 | z16 | z8 ^g2b2e4",
              reprise=high, outro="z16 | z8 c'2a2f4 | z16 | b6 ^g2e8", end="a16")
    song.part("Fiddle", third=under, end="[Ae]16",
              reprise="f8 c8 | g8 d8 | e8 B8 | c8 A8 | f8 c8 | g8 d8 | e12 B4 | ^G8 B8")
    song.part("Choir", chorus=pad(60, 16), reprise=pad(64, 16), outro=pad(57, 16), end=pad(57, 16))
    song.part("Organ", second=pad(57, 16), third=pad(57, 16), reprise=pad(48, 16, 4), end=pad(45, 16, 5))
    riff = ((3, 0), (3, 2), (2, 3), (2, 2), (2, 1), (2, 3), (2, 2))

    def marimba(lowest):
        return lambda chords, _: [([chords[0].voiced(lowest, 4)[i]], length) for length, i in riff]

    song.part("Marimba", intro=marimba(57), first=marimba(57), second=marimba(60), chorus=marimba(64),
              third=marimba(57), reprise=marimba(64), outro=marimba(57), end="A,4 E4 A8")
    skank = struck(55, [(2, False), (1, True), (1, False), (2, False), (2, True)] * 2)
    song.part("Lute", second=skank, third=skank, chorus=broken(52, (0, 2, 3, 4, 3, 2, 1, 2), 2),
              reprise=broken(52, (0, 2, 3, 4, 3, 2, 1, 2), 2), outro=skank)
    groove = bass(33, [(3, 0), (3, None), (2, 0), (4, 7), (2, 12), (2, 7)])
    drive = bass(28, [(3, 0), (1, 0), (4, 12), (3, 0), (1, 0), (2, 7), (2, 12)])
    song.part("Bass", first=groove, second=groove, chorus=drive, third=groove, reprise=drive, outro=groove,
              end=bass(33, [(16, 0)]))
    song.part("Bells", chorus=lambda chords, i: [(chords[0].voiced(77, 1), 8), (chords[0].voiced(82, 1), 8)],
              reprise=lambda chords, i: [([p], 4) for p in chords[0].voiced(77, 4)], end="[a'e']16")
    quiet = grid(shaker="xxxxxxxxxxxxxxxx", conga="x..x..x.........", low_conga="..........x.x...")
    main = grid(kick="x.....x...x.....", snare="....x.......x...", hat="x.x.x.x.x.x.x...", open="..............x.",
                shaker=".x.x.x.x.x.x.x.x")
    busy = grid(kick="x.....x.x.x.....", snare="....x.......x..x", ride="x.x.x.x.x.x.x.x.", cowbell="x...x...x...x...",
                tambourine="..x...x...x...x.")
    fill = grid(kick="x.....x.........", snare="....x.......xxxx", hat="x.x.x.x.........",
                high_tom="........xx......", low_tom="..........xx....")
    entry = grid(kick="x.....x...x.....", snare="....x.......x...", crash="x...............", hat="..x.x.x.x.x.x.x.")
    strolling, bustling = loop(entry, *[main] * 6, fill), loop(entry, *[busy] * 6, fill)
    song.part("Drums", intro=loop(grid(shaker="x.x.x.x.x.x.x.x."), quiet), first=loop(*[quiet] * 7, fill),
              second=strolling, chorus=bustling, third=strolling, reprise=bustling,
              outro=loop(main, main, quiet, quiet),
              end=loop(grid(crash="x...............", kick="x...............")))


lanterns_on_the_water()
the_millers_wager()
night_market()
