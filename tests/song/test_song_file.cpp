#include "song/SongFile.h"
#include "song/SongMembers.h"
#include "support/RandomSongs.h"
#include "support/Rows.h"
#include "support/Thrown.h"

namespace {

const char *const hymn = R"({
  "format": "kelvarion-song",
  "version": 1,
  "title": "Winter Hymn",
  "masterVolume": 100,
  "tempoFactor": 100,
  "loop": {
    "begin": 0,
    "end": 40320
  },
  "imports": [
    {
      "file": "in/hymn.mid",
      "settings": {
        "midi/pitchBend": true
      }
    },
    {
      "settings": {},
      "text": [
        "MML@c;",
        ""
      ]
    }
  ],
  "parts": [
    {
      "id": "T1",
      "name": "Lute",
      "instrument": "lute",
      "volume": 100,
      "pan": 0,
      "muted": false,
      "file": "lute.abc",
      "barLines": [10080,50400],
      "abc": [
        "X:1\r",
        "K:C",
        "C\té",
        ""
      ],
      "draft": [
        ""
      ]
    }
  ],
  "aNewOne": {
    "a": 1
  }
}
)";

} // namespace

class TestSongFile : public QObject
{
    Q_OBJECT

private slots:
    void comesBackEqual()
    {
        RandomSongs songs(1);
        for (int number = 0; number < 1000; ++number) {
            const auto song = songs.song();
            const auto bytes = SongFile::toBytes(song, folder_);
            QVERIFY2(SongFile::fromBytes(bytes, folder_) == song, bytes);
            QCOMPARE(SongFile::toBytes(SongFile::fromBytes(bytes, folder_), folder_), bytes);
        }
    }

    // What a person reads, and what must not change when the program does.
    void isWrittenForPeople()
    {
        Song song;
        song.title = QStringLiteral("Winter Hymn");
        song.loop = SongLoop{0, 40320, {}};
        song.imports.append({QStringLiteral("/songs/in/hymn.mid"), {{QStringLiteral("midi/pitchBend"), true}}, {}});
        song.imports.append(SongImported{{}, {}, {}, {}, QStringLiteral("MML@c;\n")});
        SongPart part;
        part.id = QStringLiteral("T1");
        part.name = QStringLiteral("Lute");
        part.abc = QStringLiteral("X:1\r\nK:C\nC\t\u00e9\n");
        part.instrument = QStringLiteral("lute");
        part.path = QStringLiteral("/songs/lute.abc");
        part.barLines = {0, 10080, 50400, 50400};
        part.draft = QString();
        song.parts.append(part);
        song.others.insert(QStringLiteral("aNewOne"), QJsonObject{{QStringLiteral("a"), 1}});
        QCOMPARE(QString::fromUtf8(SongFile::toBytes(song, folder_)), QString::fromUtf8(hymn));
    }

    void findsFilesWhereTheSongStands()
    {
        Song song;
        SongPart part;
        part.id = QStringLiteral("T1");
        part.path = QStringLiteral("/songs/lute.abc");
        song.parts.append(part);
        const auto moved = SongFile::fromBytes(SongFile::toBytes(song, folder_), QStringLiteral("/moved/"));
        QCOMPARE(moved.parts[0].path, QStringLiteral("/moved/lute.abc"));
    }

    void refuses_data()
    {
        const Rows<QByteArray, QString> row("bytes", "message");
        const auto song = [](const QByteArray &members) {
            return R"({"format": "kelvarion-song", "version": 1, )" + members + "}";
        };
        const auto damaged = QStringLiteral("The song file is damaged. ");
        row("nothing", "", "The song file is damaged at line 1, column 1 (illegal value).");
        row("cut", "{\n  \"format\": \"kelv", "The song file is damaged at line 2, column 18 (unterminated string).");
        row("foreign", "{\"parts\": []}", "This is not a song file.");
        row("no object", "[]", "This is not a song file.");
        row("newer", R"({"format": "kelvarion-song", "version": 2})",
            "The song was saved by a newer version of this program (song format 2; this version reads up to 1).");
        row("no version", R"({"format": "kelvarion-song"})", "The song file is damaged: \"version\" is missing.");
        row("no parts", song("\"title\": \"x\""), damaged + QStringLiteral("\"parts\": a list is expected"));
        row("far off", song(R"("parts": [{"id": "a", "startOffset": 10001}])"),
            damaged + QStringLiteral("Part 1, \"startOffset\": a whole number from -10000 to 10000 is expected."));
        row("range", song(R"("parts": [{"id": "a"}, {"id": "b", "pan": 101}])"),
            damaged + QStringLiteral("Part 2, \"pan\": a whole number from -100 to 100 is expected."));
        row("fraction", song(R"("masterVolume": 0.5)"),
            damaged + QStringLiteral("\"masterVolume\": a whole number from 0 to 100 is expected"));
        row("line", song(R"("parts": [{"id": "a", "abc": ["x", 1]}])"),
            damaged + QStringLiteral("Part 1, \"abc\": a text is expected."));
        row("loop", song(R"("parts": [], "loop": {"begin": 5, "end": 5})"),
            damaged + QStringLiteral("\"end\": a whole number from 6 to 9007199254740992 is expected"));
        row("bar lines", song(R"("parts": [{"id": "a", "barLines": [7, 7]}])"),
            damaged + QStringLiteral("Part 1, \"barLines\": a whole number from 8 to 9007199254740992 is expected."));
        row("same id", song(R"("parts": [{"id": "a"}, {"id": "a"}])"),
            damaged + QStringLiteral("Two parts have the id \"a\"."));
        row("no id", song(R"("parts": [{"id": ""}])"), damaged + QStringLiteral("A part has no id."));
        row("too many parts", song("\"parts\": [" + QByteArray("0,").repeated(10'000) + "0]"),
            damaged + QStringLiteral("The song has more than 10000 parts."));
        row("too long", QByteArray(int(SongJson::largestSong) + 1, ' '), "The song file is larger than 256 MB.");
    }

    void refuses()
    {
        QFETCH(const QByteArray, bytes);
        const auto message = thrownBy([&] { SongFile::fromBytes(bytes, folder_); });
        QTEST(message, "message");
    }

    void writesNothingThatItWouldRefuse()
    {
        const auto refusal = [this](const char *id, int volume, int parts) {
            SongPart part;
            part.id = QString::fromLatin1(id);
            part.volume = volume;
            Song song;
            song.parts.fill(part, parts);
            return thrownBy([&] { SongFile::toBytes(song, folder_); });
        };
        QCOMPARE(refusal("T1", 101, 1), QStringLiteral("\"volume\": a whole number from 0 to 100 is expected"));
        QCOMPARE(refusal("", 100, 1), QStringLiteral("A part has no id."));
        QCOMPARE(refusal("T1", 100, 10'001), QStringLiteral("The song has more than 10000 parts."));
    }

    // Whatever is cut off, the rest is never taken for the song.
    void refusesEveryCut()
    {
        const auto bytes = SongFile::toBytes(RandomSongs(7).song(), folder_);
        for (int length = 0; length < bytes.size() - 2; ++length)
            QVERIFY(throws<QString>([&] { SongFile::fromBytes(bytes.left(length), folder_); }));
    }

private:
    const QString folder_ = QStringLiteral("/songs");
};

QTEST_GUILESS_MAIN(TestSongFile)
#include "test_song_file.moc"
