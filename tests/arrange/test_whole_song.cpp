#include "arrange/WholeSong.h"
#include "core/AbcParser.h"
#include "support/Rows.h"

namespace {

const auto header = QStringLiteral("X:1\nT:Part\nL:1/4\n");

// Each part is fields and music, "Q:1/4=60|K:G|GABc".
QVector<Track> tracksOf(const QString &parts)
{
    QVector<Track> tracks;
    for (const auto &part : parts.split(QStringLiteral(" & "))) {
        tracks.append(parseAbc(header + QString(part).replace(u'|', u'\n') + u'\n'));
        tracks.last().normalize();
    }
    return tracks;
}

// The text in the same form; each part must have the notes that its text says.
QString textOf(QVector<Track> tracks)
{
    QStringList parts;
    for (auto &track : tracks) {
        auto lines = track.toAbc().split(u'\n', Qt::SkipEmptyParts);
        while (QStringLiteral("XTZL").contains(lines.first().at(0)))
            lines.removeFirst();
        for (auto &line : lines)
            line = line.trimmed().replace(QStringLiteral(": "), QStringLiteral(":"));
        parts.append(lines.join(u'|'));
        auto again = parseAbc(track.toAbc());
        again.normalize();
        if (again.noteCount() != track.noteCount())
            parts.append(QStringLiteral("the text says something else"));
    }
    return parts.join(QStringLiteral(" & "));
}

} // namespace

class TestWholeSong : public QObject
{
    Q_OBJECT

private slots:
    void transposes_data()
    {
        const Rows<QString, int, bool, QString> row("part", "semitones", "isFolded", "expected");
        row("up a tone", "K:C|C E", 2, false, "K:D|D F");
        row("minor", "K:Am|A c", 3, false, "K:Cm|c e");
        row("in the tune", "K:G|G|K:D|d", 5, false, "K:C|c|K:G|g");
        row("from flats to flats", "K:Gb|G", 12, false, "K:Gb|g");
        row("six sharps stay sharps", "K:F#|F", 12, false, "K:F#|f");
        row("beyond the range", "K:C|C c'''", 12, false, "K:C|c");
        row("folded", "K:C|C c'''", 12, true, "K:C|c c'''");
    }
    void transposes()
    {
        QFETCH(QString, part);
        QFETCH(int, semitones);
        QFETCH(bool, isFolded);
        QFETCH(QString, expected);
        const auto track = tracksOf(part).first();
        const auto changed = WholeSong::transposed(track, semitones, isFolded ? BeyondRange::Fold : BeyondRange::Drop);
        QCOMPARE(textOf({changed}), expected);
        QVERIFY(WholeSong::transposed(track, 0, BeyondRange::Drop).hasAbc());
    }

    void changesAllTogether_data()
    {
        const Rows<QString, QString, QString> row("what", "parts", "expected");
        row("silence", "trim", "K:C|z2 C z & K:C|z3 D3", "K:C|C & K:C|z D3");
        row("what is in force", "trim", "Q:1/4=60|K:C|z|K:G|Q:1/4=90|z G|K:D", "Q:1/4=90|K:C|K:G|G");
        row("moments of the start", "trim", "Q:1/4=60|K:C|z C & Q:1/4=120|K:C|z2 z D",
            "Q:1/4=60|K:C|C & Q:1/4=120|K:C|z D");
        row("no silence", "trim", "K:C|C z D & K:C|z C", "K:C|C z D & K:C|z C");
        row("no notes", "trim", "K:C|z2", "K:C|z2");
        row("rests", "pad", "K:C|C & K:C|C4", "K:C|C z3|L:1/4 & K:C|C4");
        row("moments of the end", "pad", "Q:1/4=60|K:C|C & Q:1/4=120|K:C|C4",
            "Q:1/4=60|K:C|C z|L:1/4 & Q:1/4=120|K:C|C4");
        row("other lengths", "moments", "Q:1/4=120|K:C|C4 & Q:1/4=60|K:C|C z D2",
            "Q:1/4=120|K:C|C4 & Q:1/4=120|K:C|C2 z2|D4");
        row("other keys in the tune", "moments", "Q:1/4=120|K:C|C4 & Q:1/4=60|K:C|C|K:G|z D2",
            "Q:1/4=120|K:C|C4 & Q:1/4=120|K:C|C2|K:G|z2|D4");
        row("the same lengths", "lengths", "Q:1/4=120|K:C|C4 & Q:1/4=60|K:C|C z D2",
            "Q:1/4=120|K:C|C4 & Q:1/4=120|K:C|C z D2");
    }
    void changesAllTogether()
    {
        QFETCH(QString, what);
        QFETCH(QString, parts);
        QFETCH(QString, expected);
        auto tracks = tracksOf(parts);
        const auto leader = tracks.first();
        if (what == u"trim")
            tracks = WholeSong::trimmed(tracks);
        else if (what == u"pad")
            tracks = WholeSong::padded(tracks);
        const auto change = what == u"moments" ? WholeSong::inTempoOf : WholeSong::withTemposOf;
        for (auto &track : tracks)
            track = what == u"moments" || what == u"lengths" ? change(track, leader) : track;
        QCOMPARE(textOf(tracks), expected);
    }
};

QTEST_APPLESS_MAIN(TestWholeSong)
#include "test_whole_song.moc"
