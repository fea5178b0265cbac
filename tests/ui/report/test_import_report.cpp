#include "support/Outline.h"
#include "support/Rows.h"
#include "ui/report/ImportReportModel.h"
#include "ui/report/ImportWords.h"

#include <QTest>

namespace {

using Finding = ImportFinding;

PartReport report(int notes, const QVector<QPair<Finding, int>> &counts, double worstMs = 0)
{
    PartReport report;
    report.notes = notes;
    for (const auto &[finding, count] : counts) {
        for (int i = 0; i < count; ++i)
            report.add(finding, i * ticksPerWholeNote);
    }
    if (worstMs > 0)
        report.shifts.add(Shifts{{worstMs, 2 * ticksPerWholeNote}});
    return report;
}

} // namespace

Q_DECLARE_METATYPE(PartReport)

class TestImportReport : public QObject
{
    Q_OBJECT

private slots:
    void lines_data()
    {
        const Rows<PartReport, QString> row("report", "line");
        row("nothing", report(12, {}), "");
        row("MIDI", report(497, {{Finding::BelowVelocityGate, 12}, {Finding::Restruck, 341}}, 9.2),
            "341 of 850 notes were struck again and lost, 12 too soft, worst shift 9 ms");
        row("shifts alone", report(3, {}, 0.4), "worst shift 0 ms");
        row("ABC", report(9, {{Finding::TieLost, 2}, {Finding::BarLineSilence, 3}, {Finding::OutOfRange, 1}}),
            "1 of 10 notes were out of range, silences by bar lines: 3, ties lost: 2");
    }
    void lines()
    {
        QFETCH(PartReport, report);
        QTEST(lineOf(report), "line");
    }

    void rowsGoThroughTheirPlaces()
    {
        Track track;
        track.setHeaderField(QStringLiteral("T"), QStringLiteral("Flute"));
        auto lost = report(4, {{Finding::Restruck, 2}}, 9.2);
        lost.addWithoutPlace(Finding::Unreadable, 3);
        ImportReportModel model;
        model.show({{QStringLiteral("T1"), track, lost},
                    {QStringLiteral("T2"), {}, report(4, {})},
                    {{}, {}, report(0, {{Finding::BelowVelocityGate, 1}})}});
        QCOMPARE(outline(model), QStringLiteral("Flute\n"
                                                "  Notes struck again and lost|2|measure 1 (1 of 2)\n"
                                                "  Signs and fields without a meaning|3\n"
                                                "  Notes moved by up to 9 ms, 9 ms on average|1|measure 3\n"
                                                "In no part\n"
                                                "  Notes too soft|1\n"));
        QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("Where"));
        const auto flute = model.index(0, 0);
        const auto restruck = model.index(0, 0, flute);
        QCOMPARE(model.place(restruck)->trackId, QStringLiteral("T1"));
        model.goOn(restruck);
        QCOMPARE(model.place(restruck)->tick, ticksPerWholeNote);
        QCOMPARE(model.data(model.index(0, 2, flute)).toString(), QStringLiteral("measure 2 (2 of 2)"));
        model.goOn(restruck);
        QCOMPARE(model.place(restruck)->tick, 0);
        for (const auto &placeless : {flute, model.index(1, 0, flute), model.index(0, 0, model.index(1, 0))})
            QVERIFY(!model.place(placeless));
    }
};

QTEST_APPLESS_MAIN(TestImportReport)
#include "test_import_report.moc"
