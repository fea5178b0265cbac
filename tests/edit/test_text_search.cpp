#include "edit/AbcLineState.h"
#include "edit/BracketMatch.h"
#include "edit/TextSearch.h"
#include "support/Rows.h"

#include <QTextBlock>
#include <QTextDocument>

class TestTextSearch : public QObject
{
    Q_OBJECT

private slots:
    void findsAndReplaces_data()
    {
        // flags: w whole words, c case, x extended, r regular expression
        // result: of "C cc Cc|\nc4 (C)\n"
        const Rows<QString, QString, QString, QString, QString> row("find", "replace", "flags", "count", "result");
        row("plain", "c", "d", "", "7", "d dd dd|\nd4 (d)\n");
        row("case", "c", "d", "c", "4", "C dd Cd|\nd4 (C)\n");
        row("whole words", "c", "d", "w", "2", "d cc Cc|\nc4 (d)\n");
        row("plain takes signs as they are", "(C)", "\\1", "c", "1", "C cc Cc|\nc4 \\1\n");
        row("plain is no expression", ".", "d", "", "0", "C cc Cc|\nc4 (C)\n");
        row("extended", "|\\n", " ", "x", "1", "C cc Cc c4 (C)\n");
        row("extended code", "\\x28C\\x29", "e\\tf", "x", "1", "C cc Cc|\nc4 e\tf\n");
        row("extended signs", "c4", "\\\\\\q\\", "x", "1", "C cc Cc|\n\\\\q\\ (C)\n");
        row("expression with signs", "c4", "\\$1\\t\\\\$", "rc", "1", "C cc Cc|\n$1\t\\$ (C)\n");
        row("expression", "([a-z])(\\d)", "$2\\1$0", "rc", "1", "C cc Cc|\n4cc4 (C)\n");
        row("expression with line ends", "^c", "d", "rc", "1", "C cc Cc|\nd4 (C)\n");
        row("expression with an empty match", "x*", "d", "r", "0", "C cc Cc|\nc4 (C)\n");
        row("broken expression", "(", "d", "r", "-", "C cc Cc|\nc4 (C)\n");
    }

    void findsAndReplaces()
    {
        QFETCH(QString, find);
        QFETCH(QString, replace);
        QFETCH(QString, flags);
        QFETCH(QString, count);
        SearchOptions options{find, replace};
        options.wholeWords = flags.contains(u'w');
        options.matchCase = flags.contains(u'c');
        options.mode = flags.contains(u'x')   ? SearchOptions::Extended
                       : flags.contains(u'r') ? SearchOptions::RegularExpression
                                              : SearchOptions::Plain;
        QString text = QStringLiteral("C cc Cc|\nc4 (C)\n");
        const auto pattern = TextSearch::pattern(options);
        QCOMPARE(pattern.isValid(), count != u"-");
        const auto matches = TextSearch::findAll(pattern, text);
        QCOMPARE(matches.size(), count.toInt());
        const auto original = text;
        for (auto match = matches.rbegin(); match != matches.rend(); ++match)
            text.replace(match->offset, match->length, TextSearch::replacement(options, pattern, original, *match));
        QTEST(text, "result");
    }

    void goesOnFromTheOtherEndIfItMay()
    {
        QStringList found;
        for (const bool wraps : {false, true}) {
            for (const auto direction : {SearchOptions::Down, SearchOptions::Up}) {
                SearchOptions options;
                options.wrapAround = wraps;
                options.direction = direction;
                for (const int selected : {0, 2, 8})
                    found += QString::number(TextSearch::next({{2, 2}, {8, 2}}, {selected, 2}, options));
            }
        }
        QCOMPARE(found.join(u' '), QStringLiteral("0 1 -1 -1 -1 0 0 1 0 1 1 0"));
    }

    void matchesBrackets()
    {
        QTextDocument text(QStringLiteral("[K:G] (3abc (d [eg]) {ab}\n(c\nd) [1 x"));
        QStringList found;
        for (const int caret : {0, 6, 12, 15, 20, 21, 26, 32}) {
            const auto [bracket, partner] = matchBracket(text, caret);
            found += QStringLiteral("%1-%2").arg(bracket).arg(partner);
        }
        QCOMPARE(found.join(u' '), QStringLiteral("0-4 -1--1 12-19 15-18 12-19 21-24 26-30 -1--1"));

        // Far below the line that says so, "!" breaks lines instead of hiding a bracket in a decoration.
        QTextDocument broken(u'\n' + QString(5000, u'z') + QStringLiteral("\n!(!c)!"));
        QVERIFY(matchBracket(broken, 5003) == std::pair(-1, -1));
        broken.firstBlock().setUserState(AbcLineState{true, {false, true, true}}.blockState());
        QVERIFY(matchBracket(broken, 5003) == std::pair(5003, 5006));
    }
};

QTEST_APPLESS_MAIN(TestTextSearch)
#include "test_text_search.moc"
