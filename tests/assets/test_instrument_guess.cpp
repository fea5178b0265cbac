#include "assets/Catalogue.h"
#include "assets/InstrumentGuess.h"
#include "support/Rows.h"

#include <QtTest>

class TestInstrumentGuess : public QObject
{
    Q_OBJECT

private slots:
    void guesses_data()
    {
        const Rows<QString, QString, QString> row("titles", "catalogue", "guess"); // titles with bars between
        const char *const band = "Bass 28-60, Drum Kit 35-60, Flute 60-96, Grand Piano 21-108, Harp 36-96, Lute 40-85, "
                                 "Music Box 60-100, Oboe 58-91";
        row("its name", "Track 1 - Acoustic Grand Piano", band, "Grand Piano by name");
        row("its name, in the plural and another case", "flutes", band, "Flute by name");
        row("the longest name", "Harp and Music Box", band, "Music Box by name");
        row("the first title that names one", "Melody|Oboe solo|Track 2 - Flute", band, "Oboe by name");
        row("no part of a word", "Bassoonist", band, "Flute by range");
        row("a word of its kind", "Track 4 - Acoustic Guitar (nylon)", band, "Lute by kind");
        row("two words before one", "Track 4 - English Horn", band, "Oboe by kind");
        row("a kind that is like it", "Track 9 - Trumpet", band, "Oboe by kind");
        row("percussion", "Track 10 - Percussion", band, "Drum Kit by kind");
        row("percussion without drums", "Track 10 - Percussion", "Flute 60-96, Lute 40-85", "nothing");
        row("of a kind, who can play more", "Track 1 - Banjo", "Cittern 70-90, Lute 40-85", "Lute by kind");
        row("no word for it", "Track 2 - Seashore", band, "Flute by range");
        row("no title", "", "Drum Kit 1-127, Flute 66-96, Oboe 58-91", "Oboe by range");
        row("equally well", "", "Flute 60-96, Oboe 58-91", "Flute by range");
        row("only drums", "Violin", "Drum Kit 35-60", "nothing");
    }

    void guesses()
    {
        QFETCH(QString, titles);
        QFETCH(QString, catalogue);
        const QMap<quint32, int> notes{{60, 3}, {64, 2}, {67, 1}};
        const auto guess = guessInstrument(titles.split(u'|'), notes, ::catalogue(catalogue));
        const std::array bases{" by name", " by kind", " by range"};
        QTEST(guess ? guess->name + QLatin1String(bases[size_t(guess->basis)]) : QStringLiteral("nothing"), "guess");
    }
};

QTEST_APPLESS_MAIN(TestInstrumentGuess)
#include "test_instrument_guess.moc"
