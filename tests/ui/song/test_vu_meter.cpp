#include "ui/PaintCounter.h"
#include "ui/song/VUMeter.h"

#include <QtTest>

#include <cmath>

class TestVUMeter : public QObject
{
    Q_OBJECT

private slots:
    void scale_data();
    void scale();
    void barsRiseAtOnceAndFallWithTime();
    void fallingDependsOnTimeNotOnTicks();
    void barsStopAtTheLevelThatIsHeard();
    void smallValuesBecomeSilence();
    void holdWaitsTwoSecondsThenFallsSlowly();
    void anEqualPeakHoldsAgain();
    void ignoresChannelsThatAreNotThere();
    void paintsOnlyWhileSomethingChanges();
    void drawsLevels();
    void tellsTheLevelUnderTheMouse_data();
    void tellsTheLevelUnderTheMouse();
};

void TestVUMeter::scale_data()
{
    QTest::addColumn<double>("amplitude");
    QTest::addColumn<double>("decibels");
    QTest::addColumn<double>("position");
    QTest::newRow("silence is nothing") << 0.0 << -100.0 << 0.0;
    QTest::newRow("below the scale") << 0.001 << -60.0 << 0.0;
    QTest::newRow("full scale") << 1.0 << 0.0 << 48.0 / 54.0;
    QTest::newRow("a tenth") << 0.1 << -20.0 << 28.0 / 54.0;
    QTest::newRow("above the scale") << 3.0 << 6.0 << 1.0;
}

void TestVUMeter::scale()
{
    QFETCH(double, amplitude);
    QFETCH(double, decibels);
    QFETCH(double, position);
    QVERIFY(std::abs(MeterScale::decibels(amplitude) - decibels) < 1e-9);
    QVERIFY(std::abs(MeterScale::position(decibels) - position) < 1e-9);
    const bool isOnScale = decibels >= MeterScale::lowest;
    QVERIFY(std::abs(MeterScale::decibelsAt(position) - (isOnScale ? decibels : MeterScale::lowest)) < 1e-9);
}

void TestVUMeter::barsRiseAtOnceAndFallWithTime()
{
    MeterChannel channel;
    channel.receive(0.4F, 0.8F, 0);
    QCOMPARE(channel.shownRms(), 0.4F);
    QCOMPARE(channel.shownPeak(), 0.8F);
    channel.receive(0.0F, 0.0F, 10);
    QCOMPARE(channel.shownPeak(), 0.8F);
    QVERIFY(channel.decay(20, 20));
    QCOMPARE(channel.shownRms(), 0.4F * 0.75F);
    QCOMPARE(channel.shownPeak(), 0.8F * 0.75F);
    QCOMPARE(channel.hold(), 0.8F);
}

void TestVUMeter::fallingDependsOnTimeNotOnTicks()
{
    MeterChannel late;
    MeterChannel punctual;
    for (auto *const channel : {&late, &punctual}) {
        channel->receive(0.5F, 1.0F, 0);
        channel->receive(0.0F, 0.0F, 0);
    }
    late.decay(100, 100);
    for (int i = 1; i <= 5; ++i)
        punctual.decay(20, 20 * i);
    QVERIFY(std::abs(late.shownPeak() - punctual.shownPeak()) < 1e-6F);
    QVERIFY(std::abs(late.shownRms() - punctual.shownRms()) < 1e-6F);
}

void TestVUMeter::barsStopAtTheLevelThatIsHeard()
{
    MeterChannel channel;
    channel.receive(0.5F, 1.0F, 0);
    channel.receive(0.4F, 0.9F, 0);
    QVERIFY(channel.decay(20, 20));
    QCOMPARE(channel.shownRms(), 0.4F);
    QCOMPARE(channel.shownPeak(), 0.9F);
    QVERIFY(!channel.decay(20, 40));
}

void TestVUMeter::smallValuesBecomeSilence()
{
    MeterChannel channel;
    channel.receive(0.0013F, 0.0013F, 0);
    channel.receive(0.0F, 0.0F, 0);
    QVERIFY(channel.decay(20, 20));
    QCOMPARE(channel.shownRms(), 0.0F);
    QVERIFY(!channel.decay(20, 40));
}

void TestVUMeter::holdWaitsTwoSecondsThenFallsSlowly()
{
    MeterChannel channel;
    channel.receive(0.0F, 1.0F, 500);
    channel.receive(0.0F, 0.0F, 520);
    for (qint64 now = 520; now <= 2500; now += 20)
        channel.decay(20, now);
    QCOMPARE(channel.hold(), 1.0F);
    QVERIFY(channel.decay(20, 2520));
    QCOMPARE(channel.hold(), 0.9F);
    channel.decay(40, 2560);
    QVERIFY(std::abs(channel.hold() - 0.9F * 0.9F * 0.9F) < 1e-6F);
}

void TestVUMeter::anEqualPeakHoldsAgain()
{
    MeterChannel channel;
    channel.receive(0.0F, 0.5F, 0);
    channel.receive(0.0F, 0.499995F, 1500); // as good as equal
    channel.receive(0.0F, 0.0F, 1500);
    channel.decay(1500, 3400);
    QCOMPARE(channel.hold(), 0.499995F);
    channel.decay(20, 3520);
    QVERIFY(channel.hold() < 0.49F);
}

void TestVUMeter::ignoresChannelsThatAreNotThere()
{
    VUMeter meter(Qt::Vertical);
    QCOMPARE(meter.channelCount(), 2);
    meter.setLevels(2, 1.0F, 1.0F);
    meter.setLevels(-1, 1.0F, 1.0F);
    QCOMPARE(meter.channel(0).peak(), 0.0F);
    QCOMPARE(meter.channel(1).peak(), 0.0F);
    meter.setChannelCount(3);
    meter.setLevels(2, 0.5F, 1.0F);
    QCOMPARE(meter.channel(2).shownPeak(), 1.0F);
    meter.setChannelCount(0);
    meter.setLevels(0, 1.0F, 1.0F);
    QVERIFY(!meter.grab().isNull());
}

void TestVUMeter::paintsOnlyWhileSomethingChanges()
{
    VUMeter meter(Qt::Vertical);
    PaintCounter paints(&meter);
    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    QTest::qWait(60);
    paints.clear();
    QTest::qWait(150);
    QCOMPARE(paints.count(), 0);

    meter.setLevels(0, 0.0F, 0.01F);
    meter.setLevels(0, 0.0F, 0.0F);
    QTest::qWait(300);
    QVERIFY(paints.count() > 2);
    QCOMPARE(meter.channel(0).shownPeak(), 0.0F); // and its own timer has let it fall
    QVERIFY(paints.area().width() < meter.width());
}

void TestVUMeter::drawsLevels()
{
    for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
        VUMeter meter(orientation);
        meter.resize(meter.sizeHint());
        const auto silent = meter.grab().toImage();
        meter.setLevels(0, 0.0F, 0.001F); // below the scale
        QCOMPARE(meter.grab().toImage(), silent);
        meter.setLevels(0, 0.1F, 0.1F);
        const auto soft = meter.grab().toImage();
        QVERIFY(soft != silent);
        meter.setLevels(0, 2.1F, 2.1F);
        const auto loudest = meter.grab().toImage();
        meter.setLevels(0, 50.0F, 50.0F);
        QCOMPARE(meter.grab().toImage(), loudest);
    }
}

void TestVUMeter::tellsTheLevelUnderTheMouse_data()
{
    QTest::addColumn<double>("share"); // of the bar, from its quiet end
    QTest::addColumn<QString>("text");
    QTest::newRow("quiet end") << 0.0 << QStringLiteral("-48.0 dB");
    QTest::newRow("half") << 0.5 << QStringLiteral("-21.0 dB");
    QTest::newRow("loud end") << 1.0 << QStringLiteral("6.0 dB");
}

void TestVUMeter::tellsTheLevelUnderTheMouse()
{
    QFETCH(double, share);
    QFETCH(QString, text);
    constexpr int border = 2;
    constexpr int length = 108; // two pixels to a decibel
    VUMeter meter(Qt::Vertical);
    meter.resize(44, length + 2 * border);
    const auto silent = meter.grab().toImage();
    const QPointF point(20, border + (1.0 - share) * length);
    QMouseEvent move(QEvent::MouseMove, point, meter.mapToGlobal(point.toPoint()), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&meter, &move);
    QCOMPARE(meter.hoverText(), text);
    QVERIFY(meter.grab().toImage() != silent);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&meter, &leave);
    QVERIFY(meter.hoverText().isEmpty());
    QCOMPARE(meter.grab().toImage(), silent);
}

QTEST_MAIN(TestVUMeter)
#include "test_vu_meter.moc"
