#!/usr/bin/env python3
"""Compares how standard ABC is read with how abcmidi's abc2midi reads it, tune by tune: onsets and pitches.

usage: abc_agreement.py CLI [FILE.abc...]     (without files: ../shared/corpus/abc beside the source tree)

What abc2midi adds as a performance is off: chord names, ornaments, swing, grace notes, fermatas. Old chords, "+CEG+",
are chords to it. A tune that differs is written again so that it can be understood in one way only, each time for one
cause, and is read by abc2midi again: when that gives what was read of the tune as it stands, it is the cause.

abc2midi writes a file even where it prints "Error ..." of a tune, and has then left something out or guessed.
Such a tune is not one that both accept, whether the two agree about it or not. The second figure counts these tunes too.
"""
import collections
import itertools
import os
import re
import struct
import subprocess
import sys
import tempfile

CORPUS = os.path.join(os.path.dirname(os.path.abspath(__file__)), '../../shared/corpus/abc')
FIELD = re.compile(r'[A-Za-z+]:(?![|:])|%')
SOUNDING = re.compile(r'!(trill|roll|fermata|breath|arpeggio|ped|.*mordent|turn|[pmf]+|sfz|.*\(|.*\)|segno|coda|'
                      r'D\.[CS]\.|fine|accent|>|staccato|tenuto|slide|invertedfermata)')
PLAYING = re.compile(r'%%MIDI\s+(gchord|drum|drone|grace|chordattack|ratio)')
WITH_ERRORS = ', with errors in abc2midi'
ERROR = re.compile(rb'(?m)^Error\b')
OLD_CHORD = re.compile(r'\+ *[\^_=]*[A-Ga-g][^+\n|]*\+')


def variable_length(data, at):
    value = 0
    while True:
        byte = data[at]
        at += 1
        value = value << 7 | byte & 127
        if byte < 128:
            return value, at


def onsets(data, first_tick):
    """Sorted (pitch, quarter notes) of a MIDI file; a pitch that is struck twice at once, as it can hold only one."""
    notes = []
    division = struct.unpack('>H', data[12:14])[0]
    at = 14
    while at + 8 <= len(data):
        end = at + 8 + struct.unpack('>I', data[at + 4:at + 8])[0]
        at += 8
        time = status = 0
        while at < end:
            delta, at = variable_length(data, at)
            time += delta
            if data[at] & 128:
                status = data[at]
                at += 1
            if status in (0xF0, 0xF7, 0xFF):
                length, at = variable_length(data, at + (status == 0xFF))
                at += length
            else:
                if status >> 4 == 9 and data[at + 1] > 0:
                    notes.append((data[at], (time - first_tick) / division))
                at += 1 if status >> 4 in (12, 13) else 2
        at = end
    notes.sort()
    return [note for i, note in enumerate(notes)
            if i == 0 or note[0] != notes[i - 1][0] or note[1] - notes[i - 1][1] > 0.05]


def same(a, b):
    """abc2midi spreads the notes of a chord by some ticks."""
    return len(a) == len(b) and all(x[0] == y[0] and abs(x[1] - y[1]) < 0.12 for x, y in zip(a, b))


def tunes_of(path):
    tunes, inside = [], False
    with open(path, encoding='latin1', newline='') as book:
        for line in re.split('\r\n|\r|\n', book.read()):
            if line.startswith('X:'):
                tunes.append([])
                inside = True
            elif not line.strip():
                inside = False
            if inside:
                tunes[-1].append(line)
    return tunes


def without_performance(lines):
    plain = []
    for line in lines:
        if line.startswith('R:') or PLAYING.match(line):
            continue
        if not FIELD.match(line):
            line = re.sub(r'![^!\s]+!', lambda mark: '' if SOUNDING.match(mark[0]) else mark[0], line)
            pieces = re.split(r'("[^"]*"|![^!\s]*!|\[[A-Za-z]:[^\]]*\])', line)
            line = ''.join(piece if i % 2 else re.sub('[~HTR]', '', piece) for i, piece in enumerate(pieces))
            line = re.sub(r'\.(?=[\^_=A-Ga-g\[\{(])', '', line)
        plain.append(line)
    return plain


def abc2midi(lines, folder):
    """Its onsets, and whether it met errors; (None, …) when it wrote nothing."""
    text = '\n'.join(lines) + '\n'
    source, result = folder + '/theirs.abc', folder + '/theirs.mid'
    with open(source, 'w', encoding='latin1') as out:
        out.write(text)
    if os.path.exists(result):
        os.remove(result)
    options = ['-NGRA', '-NGUI', '-NFER']
    if OLD_CHORD.search(re.sub('"[^"]*"', '', text)):
        options.append('-OCC')
    run = subprocess.run(['abc2midi', source, '-o', result] + options, capture_output=True, timeout=20, check=False)
    has_errors = bool(ERROR.search(run.stdout + b'\n' + run.stderr))
    if not os.path.exists(result):
        return None, has_errors
    with open(result, 'rb') as written:
        return onsets(written.read(), 1), has_errors


def in_music(change):
    """A respelling of the music as one text; fields in it stay where they are."""
    def respell(lines):
        body = next((i for i, line in enumerate(lines) if line.startswith('K:')), len(lines) - 1) + 1
        return lines[:body] + change('\n'.join(lines[body:])).split('\n')
    return respell


ENDING = r'(?:\[|\|\s*)2[^:|\]]*(?:\|(?![\]|:])[^:|\]]*)*'  # a second ending, up to the bar line that ends it
MEANT = [  # written again as we understand it, for abc2midi alone
    ('a text behind P: ("P:D.S.") begins no part; a part has one letter',
     in_music(lambda music: re.sub(r'(?m)^P:(?![A-Z]\s*$).*\n', '', music))),
    ('behind "[2 ... ||" a strain begins that its ":|" repeats; abc2midi goes back to the first strain, or nowhere',
     in_music(lambda music: re.sub('(' + ENDING + r'\|\|)(?!\s*\|?:)', r'\1|:', music))),
    ('":|" at the end of the last ending ends it; abc2midi plays the strain a third time',
     in_music(lambda music: re.sub('(' + ENDING + r'):\|(?!:)', r'\1||', music))),
    ('":|" repeats what follows the ":|" before it; abc2midi plays that once, or from the first strain on',
     in_music(lambda music: re.sub(r':\|(?=[^:|\[\d]*[A-Ga-g][^:]*:\|)', r':||:', music))),
    ('":|" repeats from the heading "P:B" on; abc2midi goes back to the first strain',
     in_music(lambda music: re.sub(r'(?m)^(P:[A-Z]\s*\n)(?!\s*\|?:)', r'\1|:', music))),
    ('where "[2 ... |" has no end, a strain of its own follows the last measure of the ending, and ":|" repeats that',
     in_music(lambda music: re.sub(r'(\[2 ?[^|]*\|)(?=\s)', r'\1|||:', music))),
    ('":|:" ends a repeat and begins the next; abc2midi begins none',
     in_music(lambda music: music.replace(':|:', '::'))),
]
MENDED = [  # what is amiss, or free, is taken out for both
    ('a chord is not closed, or opened twice',
     in_music(lambda music: re.sub(r'(\[[\^_=A-Ga-g][^\]|+(]*)(?=[|(+])\+?', r'\1]', music).replace('[+', '['))),
    ('a tie leads into every ending; abc2midi strikes the note again in the second',
     in_music(lambda music: re.sub(r'-(\s*\|\s*\[?1)', r'\1', music))),
    ('the accidental of a grace note holds for its measure; abc2midi drops it with the grace note, as it is asked',
     in_music(lambda music: re.sub(r'\{[^}]*\}', '', music))),
]


def cause_of(tune, ours, cli, folder):
    """What makes the difference; several causes together where none does alone."""
    plain = without_performance(tune)
    for causes in itertools.chain.from_iterable(itertools.permutations(MEANT, count) for count in (1, 2, 3)):
        lines = plain
        for _, respell in causes:
            lines = respell(lines)
        if lines != plain and same(abc2midi(lines, folder)[0] or [], ours):
            return ';\n    and '.join(name for name, _ in causes)
    for name, respell in MENDED:
        lines = respell(plain)
        with tempfile.TemporaryDirectory() as scratch:
            mended = read_all(cli, [('', 0, lines)], scratch)[0] if lines != plain else None
        if mended and same(mended, abc2midi(lines, folder)[0] or []):
            return name
    return 'not explained'


def read_all(cli, tunes, folder):
    """What our reader makes of each tune."""
    os.mkdir(folder + '/in')
    os.mkdir(folder + '/out')
    for number, (_, _, lines) in enumerate(tunes):
        with open(f'{folder}/in/{number}.abc', 'w', encoding='latin1') as out:
            out.write('\n'.join(lines) + '\n')
    inputs = [f'{folder}/in/{number}.abc' for number in range(len(tunes))]
    subprocess.run([cli, 'convert', '--to', 'midi', '--read', 'standard', '--set', 'abc/graceNotes=false', '--output',
                    folder + '/out'] + inputs, stdout=subprocess.DEVNULL, check=False)
    results = []
    for number in range(len(tunes)):
        path = f'{folder}/out/{number}.mid'
        data = open(path, 'rb').read() if os.path.exists(path) else None
        results.append(onsets(data, 0) if data else None)
    return results


def agreement(same_tunes, different_tunes):
    both = same_tunes + different_tunes
    return f'{same_tunes} of {both} agree, {100 * same_tunes / max(1, both):.2f} %'


def main():
    cli = sys.argv[1]
    files = sys.argv[2:] or sorted(os.path.join(CORPUS, name) for name in os.listdir(CORPUS))
    tunes = [(os.path.basename(path), i + 1, lines) for path in files for i, lines in enumerate(tunes_of(path))]
    counts = collections.Counter()
    differing = collections.defaultdict(list)
    with tempfile.TemporaryDirectory() as folder:
        for (name, number, lines), ours in zip(tunes, read_all(cli, tunes, folder)):
            theirs, has_errors = abc2midi(without_performance(lines), folder)
            if not ours:
                counts['refused by us'] += 1
            elif not theirs:
                counts['refused by abc2midi'] += 1
            else:
                result = 'same' if same(ours, theirs) else 'different'
                counts[result + (WITH_ERRORS if has_errors else '')] += 1
                if result == 'different':
                    title = next((line[2:].strip() for line in lines if line.startswith('T:')), '')
                    mark = ' (abc2midi: errors)' if has_errors else ''
                    differing[cause_of(lines, ours, cli, folder)].append(f'{name} {number}, {title}{mark}')
    print(f'{len(tunes)} tunes, {dict(counts)}')
    same_all = counts['same'] + counts['same' + WITH_ERRORS]
    print('that both accept: ' + agreement(counts['same'], counts['different']))
    print('and with those that abc2midi has errors in: ' +
          agreement(same_all, counts['different'] + counts['different' + WITH_ERRORS]))
    for cause, names in differing.items():
        print(f'\n{len(names)}: {cause}')
        for each in names:
            print('    ' + each)


main()
