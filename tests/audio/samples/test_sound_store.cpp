#include "audio/samples/SoundStore.h"

#include <QtTest>

namespace {

constexpr std::size_t frames = 1000;

Sound sound()
{
    return std::make_shared<SoundData>(1, frames, 48000);
}

} // namespace

class TestSoundStore : public QObject
{
    Q_OBJECT

private slots:
    void theLeastUsedLeavesFirst()
    {
        SoundStore<int> store(3 * sound()->bytes());
        for (int key = 1; key <= 3; ++key)
            QVERIFY(store.insert(key, sound(), never));
        QVERIFY(store.find(1, 5)); // 2 is the oldest now
        QVERIFY(store.insert(4, sound(), never));
        QVERIFY(store.find(1, 5) && !store.find(2, 5) && store.find(3, 5) && store.find(4, 5));
        QCOMPARE(store.bytes(), 3 * sound()->bytes());
    }

    void whatIsInUseStays()
    {
        SoundStore<int> store(2 * sound()->bytes());
        QVERIFY(store.insert(1, sound(), never) && store.insert(2, sound(), never));
        {
            const auto first = store.find(1, 0), second = store.find(2, 0);
            QVERIFY(!store.insert(3, sound(), never));
            QVERIFY(store.find(1, 0) && store.find(2, 0) && !store.find(3, 0));
        }
        QVERIFY(store.insert(3, sound(), never));
        QVERIFY(!store.find(1, 0));
        QVERIFY(!store.insert(4, std::make_shared<SoundData>(2, 2 * frames, 48000), never));
    }

    void servesNotesUpToItsLength()
    {
        SoundStore<int> store(10 * sound()->bytes());
        QVERIFY(store.insert(1, sound(), 500));
        QVERIFY(store.find(1, 500) && !store.find(1, 501));
        QVERIFY(store.insert(1, sound(), 700)); // replaces it
        QVERIFY(store.find(1, 700));
        QCOMPARE(store.bytes(), sound()->bytes());
    }

private:
    static constexpr auto never = ~std::uint64_t(0);
};

QTEST_GUILESS_MAIN(TestSoundStore)
#include "test_sound_store.moc"
