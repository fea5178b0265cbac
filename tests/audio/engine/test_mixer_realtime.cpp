// The mixer neither allocates nor frees nor locks: calls of those functions are counted while it mixes.
#include "audio/engine/Mixer.h"
#include "audio/sound/Signals.h"

#include <QtTest>

#include <dlfcn.h>
#include <pthread.h>

namespace {

thread_local bool armed = false;
thread_local int calls = 0;

void count()
{
    if (armed)
        ++calls;
}

template<class Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The sanitizers bring their own; there the operators and locks are counted alone.
#ifndef SANITIZED_PROGRAM
extern "C" void *__libc_malloc(std::size_t);
extern "C" void __libc_free(void *);

extern "C" void *malloc(std::size_t size)
{
    count();
    return __libc_malloc(size);
}

extern "C" void free(void *memory)
{
    count();
    __libc_free(memory);
}

extern "C" int pthread_mutex_lock(pthread_mutex_t *mutex)
{
    count();
    static const auto lock = next<int (*)(pthread_mutex_t *)>("pthread_mutex_lock");
    return lock(mutex);
}
#endif

void *operator new(std::size_t size)
{
    count();
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    count();
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}

class TestMixerRealtime : public QObject
{
    Q_OBJECT

private slots:
    void countersCount()
    {
        calls = 0;
        armed = true;
        operator delete(operator new(10));
        pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
        pthread_mutex_lock(&mutex);
        armed = false;
        pthread_mutex_unlock(&mutex);
        QVERIFY(calls >= 2);
    }

    // Voices of every kind come, fade, are stopped and end; groups change their levels.
    void mixingIsFree()
    {
        const auto mixer = std::make_unique<Mixer>();
        const Sound sounds[] = {noiseSound(1, 3000, 1), noiseSound(2, 2000, 2)};
        std::vector<float> stereo(2 * 1024);
        for (std::uint32_t group = 1; group < 20; ++group)
            mixer->openGroup(GroupId{group});
        std::size_t finished = 0;
        calls = 0;
        for (std::uint32_t round = 0; round < 200; ++round) {
            for (std::uint32_t voice = 0; voice < 10; ++voice) {
                VoiceShape shape;
                const auto start = mixer->clock() + 37 * voice;
                const auto group = GroupId{voice % 20};
                QCOMPARE(shapeOf({sounds[voice % 2], group, start, start + 700, start + 900, 1, voice % 3 ? 1.0 : 1.5},
                                 shape),
                         AudioResult::Ok);
                QVERIFY(mixer->play((10 * round + voice) % maxVoices, group, shape));
            }
            mixer->fadeOut(10 * round % maxVoices, 100);
            mixer->setGains(GroupId{round % 20}, {float(round) / 200, 1});
            if (round % 5 == 0)
                mixer->stopGroup(GroupId{3});
            armed = true;
            mixer->mix(stereo.data(), 1024);
            armed = false;
            mixer->meter(GroupId{1});
            std::uint32_t slot = 0;
            while (mixer->takeFinished(slot))
                ++finished;
        }
        QCOMPARE(calls, 0);
        QVERIFY(finished > 1900);
    }
};

QTEST_APPLESS_MAIN(TestMixerRealtime)
#include "test_mixer_realtime.moc"
