#include "support/Rows.h"
#include "ui/PaintCounter.h"
#include "ui/song/VUMeter.h"

#include <cmath>

class TestVUMeter : public QObject
{
    Q_OBJECT

private slots:
    void scale_data()
    {
        const Rows<double, double, double> row("amplitude", "decibels", "position");
        row("silence is nothing", 0.0, -100.0, 0.0);
        row("below the scale", 0.001, -60.0, 0.0);
        row("full scale", 1.0, 0.0, 48.0 / 54.0);
        row("a tenth", 0.1, -20.0, 28.0 / 54.0);
        row("above the scale", 3.0, 6.0, 1.0);
    }
    void scale()
    {
        QFETCH(double, amplitude);
        QFETCH(double, decibels);
        QFETCH(double, position);
        QVERIFY(std::abs(MeterScale::decibels(amplitude) - decibels) < 1e-9);
        QVERIFY(std::abs(MeterScale::position(decibels) - position) < 1e-9);
        const bool isOnScale = decibels >= MeterScale::lowest;
        QVERIFY(std::abs(MeterScale::decibelsAt(position) - (isOnScale ? decibels : MeterScale::lowest)) < 1e-9);
    }

    void channels_data()
    {
        // steps: "RMS/PEAK@MS" is received, "+ELAPSED@MS" falls. shown: RMS, peak, hold, whether the last step fell.
        const Rows<QString, QString> row("steps", "shown");
        row("rises at once", "0.4/0.8@0", "0.4 0.8 0.8 -");
        row("stays until it falls", "0.4/0.8@0 0/0@10", "0.4 0.8 0.8 -");
        row("falls", "0.4/0.8@0 0/0@10 +20@20", "0.3 0.6 0.8 fell");
        row("falls with time", "0.5/1@0 0/0@0 +100@100", "0.118652 0.237305 1 fell");
        row("not with ticks", "0.5/1@0 0/0@0 +20@20 +20@40 +60@100", "0.118652 0.237305 1 fell");
        row("stops at what is heard", "0.5/1@0 0.4/0.9@0 +20@20", "0.4 0.9 1 fell");
        row("rests there", "0.5/1@0 0.4/0.9@0 +20@20 +20@40", "0.4 0.9 1 -");
        row("small values are silence", "0.0013/0.0013@0 0/0@0 +20@20", "0 0 0.0013 fell");
        row("holds for two seconds", "0/1@500 0/0@520 +1980@2500 +20@2500", "0 0 1 -");
        row("then the hold falls", "0/1@500 0/0@520 +1980@2500 +20@2520", "0 0 0.9 fell");
        row("slowly", "0/1@500 0/0@520 +1980@2500 +20@2520 +40@2560", "0 0 0.729 fell");
        row("as good as equal holds again", "0/0.5@0 0/0.499995@1500 0/0@1500 +1500@3400", "0 0 0.499995 fell");
        row("for two seconds", "0/0.5@0 0/0.499995@1500 0/0@1500 +1500@3400 +20@3520", "0 0 0.449995 fell");
    }
    void channels()
    {
        QFETCH(QString, steps);
        MeterChannel channel;
        bool fell = false;
        for (const auto &step : steps.split(u' ')) {
            const auto now = step.section(u'@', 1).toLongLong();
            const auto what = step.section(u'@', 0, 0);
            fell = what.startsWith(u'+') && channel.decay(what.toLongLong(), now);
            if (!what.startsWith(u'+'))
                channel.receive(what.section(u'/', 0, 0).toFloat(), what.section(u'/', 1).toFloat(), now);
        }
        QStringList shown;
        for (const auto value : {channel.shownRms(), channel.shownPeak(), channel.hold()})
            shown += QString::number(double(value));
        QTEST(shown.join(u' ') + QLatin1String(fell ? " fell" : " -"), "shown");
    }

    void ignoresChannelsThatAreNotThere()
    {
        VUMeter meter(Qt::Vertical);
        for (const int channel : {2, -1})
            meter.setLevels(channel, 1.0F, 1.0F);
        QCOMPARE(meter.channel(0).peak() + meter.channel(1).peak(), 0.0F);
        meter.setChannelCount(3);
        meter.setLevels(2, 0.5F, 1.0F);
        QCOMPARE(meter.channel(2).shownPeak(), 1.0F);
        meter.setChannelCount(0);
        meter.setLevels(0, 1.0F, 1.0F);
        QVERIFY(!meter.grab().isNull());
    }

    void paintsOnlyWhileSomethingChanges()
    {
        VUMeter meter(Qt::Vertical);
        PaintCounter paints(&meter);
        meter.show();
        QTRY_VERIFY(paints.count() > 0);
        QTest::qWait(60);
        paints.clear();
        QTest::qWait(100);
        QCOMPARE(paints.count(), 0);

        meter.setLevels(0, 0.0F, 0.01F);
        meter.setLevels(0, 0.0F, 0.0F);
        QTRY_COMPARE(meter.channel(0).shownPeak(), 0.0F); // its own timer lets it fall
        QTRY_VERIFY(paints.count() > 0);
        QVERIFY(paints.area().width() < meter.width());
    }

    void drawsLevels()
    {
        for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
            VUMeter meter(orientation);
            QVector<QImage> pictures;
            for (const float level : {0.001F, 0.1F, 2.1F, 50.0F}) {
                meter.setLevels(0, level, level);
                pictures.append(meter.grab().toImage());
            }
            QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2] && pictures[2] == pictures[3]);
        }
    }

    void holdsThatItClipped()
    {
        for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
            VUMeter meter(orientation);
            meter.resize(meter.sizeHint());
            meter.setLevels(1, 1.0F, 1.0F);
            QVERIFY(!meter.hasClipped());
            meter.setLevels(1, 0.0F, 1.001F);
            meter.setLevels(1, 1.0F, 1.0F);
            const auto clipped = meter.grab().toImage();
            QVERIFY(meter.hasClipped());
            QTest::mouseClick(&meter, Qt::LeftButton);
            QVERIFY(!meter.hasClipped() && meter.grab().toImage() != clipped);
        }
    }

    void tellsTheLevelUnderTheMouse()
    {
        constexpr int border = 2;
        constexpr int length = 108; // two pixels to a decibel
        VUMeter meter(Qt::Vertical);
        meter.resize(44, length + 2 * border);
        const auto silent = meter.grab().toImage();
        for (const auto &[share, text] : {std::pair(0.0, "-48.0 dB"), {0.5, "-21.0 dB"}, {1.0, "6.0 dB"}}) {
            const QPointF point(20, border + (1.0 - share) * length);
            QMouseEvent move(QEvent::MouseMove, point, meter.mapToGlobal(point.toPoint()), Qt::NoButton, Qt::NoButton,
                             {});
            QCoreApplication::sendEvent(&meter, &move);
            QCOMPARE(meter.hoverText(), QLatin1String(text));
            QVERIFY(meter.grab().toImage() != silent);
        }
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&meter, &leave);
        QVERIFY(meter.hoverText().isEmpty());
        QCOMPARE(meter.grab().toImage(), silent);
    }
};

QTEST_MAIN(TestVUMeter)
#include "test_vu_meter.moc"
