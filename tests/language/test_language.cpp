// Which language is spoken, and whether its texts fit the places of the English ones.
#include "language/Language.h"
#include "support/Rows.h"

#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

struct Message
{
    QString source;
    QStringList translations; // one a plural form
};

QVector<Message> messagesOf(const QString &file)
{
    QFile ts(file);
    if (!ts.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&ts);
    QVector<Message> messages;
    bool hasForms = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == QLatin1String("message")) {
            messages.append(Message());
            hasForms = xml.attributes().hasAttribute(QStringLiteral("numerus"));
        } else if (name == QLatin1String("source"))
            messages.last().source = xml.readElementText();
        else if (name == QLatin1String("numerusform"))
            messages.last().translations.append(xml.readElementText());
        else if (name == QLatin1String("translation") && !hasForms) {
            const auto text = xml.readElementText();
            if (!text.trimmed().isEmpty())
                messages.last().translations.append(text);
        }
    }
    return messages;
}

// What a translation must have as its source does, whatever its words.
QStringList fixedParts(const QString &text)
{
    static const QRegularExpression part(
        QStringLiteral("%L?\\d|%n|\\*\\.\\w+|;;|\\[\\*\\]|</?\\w+>|\\+[A-Z0-9]\\b|\\bF\\d+\\b"));
    static const QRegularExpression mnemonic(QStringLiteral("&(?=[^\\s&])"));
    QStringList parts;
    for (auto matches = part.globalMatch(text); matches.hasNext();)
        parts.append(matches.next().captured());
    parts.removeAll(QStringLiteral("%n")); // "one file"
    parts.sort();
    parts.append(QStringLiteral("lines: %1").arg(text.count(u'\n')));
    parts.append(QStringLiteral("mnemonics: %1").arg(text.count(mnemonic)));
    parts.append(QStringLiteral("begins with a blank: %1").arg((!text.isEmpty() && text.at(0).isSpace())));
    for (const auto *const end : {" ", ":", "...", "…"})
        parts.append(
            QStringLiteral("ends with '%1': %2").arg(QLatin1String(end)).arg(text.endsWith(QString::fromUtf8(end))));
    return parts;
}

// Whether French marks stand at an ordinary blank, where a line may break, or at none.
bool mayBreakAtMark(const QString &french)
{
    static const QRegularExpression mark(
        QStringLiteral("«(?!\u00a0)|(?<!\u00a0)»| :|(?<=[^\u00a0])[;!?](?=\\s|$)|[^\u00a0]:$"));
    return french.contains(mark);
}

} // namespace

class TestLanguage : public QObject
{
    Q_OBJECT

private slots:
    void findsTheBestForASystem_data()
    {
        const Rows<QStringList, QString> row("system", "language");
        const auto names = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
        row("region", names("de-AT"), "de");
        row("first", names("en-GB de"), "en");
        row("others before it", names("nl nl-BE fr_CA en"), "fr");
        row("none of them", names("nl fil den frp"), "en");
        row("no language", names("C"), "en");
    }

    void findsTheBestForASystem()
    {
        QFETCH(QStringList, system);
        QTEST(Language::best(system), "language");
    }

    void translationsFitTheirSources_data()
    {
        QTest::addColumn<QString>("file");
        const QDir folder(QStringLiteral(COMPOSER_TRANSLATIONS));
        for (const auto &name : folder.entryList({QStringLiteral("*.ts")}))
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }

    void translationsFitTheirSources()
    {
        QFETCH(QString, file);
        const auto messages = messagesOf(file);
        QVERIFY(messages.size() > 10);
        QStringList misfits;
        for (const auto &message : messages) {
            if (message.translations.isEmpty())
                misfits.append(message.source + QStringLiteral(" is not translated"));
            for (const auto &translation : message.translations) {
                if (fixedParts(translation) != fixedParts(message.source) ||
                    (file.endsWith(QStringLiteral("_fr.ts")) && mayBreakAtMark(translation)))
                    misfits.append(message.source + QStringLiteral(" -> ") + translation);
            }
        }
        QCOMPARE(misfits.join(u'\n'), QString());
    }

    // Last: what is installed stays.
    void speaksGerman()
    {
        const auto stop = [] { return QCoreApplication::translate("TransportCommands", "Stop preview."); };
        QCOMPARE(stop(), QStringLiteral("Stop preview."));
        Language::start(QStringLiteral("de"));
        QCOMPARE(stop(), QStringLiteral("Wiedergabe anhalten."));
        QCOMPARE(QLocale().toString(1.5), QStringLiteral("1,5"));
        const auto parts = [](int n) {
            return QCoreApplication::translate("StatusIndicators", "%n part(s)", nullptr, n);
        };
        QCOMPARE(parts(1), QStringLiteral("1 Stimme"));
        QCOMPARE(parts(2), QStringLiteral("2 Stimmen"));
    }
};

QTEST_GUILESS_MAIN(TestLanguage)
#include "test_language.moc"
