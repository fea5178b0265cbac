// Every door through which a song comes or goes says it when memory runs out, and the window lives on.
#include "app/Application.h"
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "ui/document/EditorDocument.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>

#include <atomic>
#include <cerrno>
#include <limits>
#include <new>

// The allocation functions of this program: they refuse what is larger.
namespace scarcity {

constexpr std::size_t plenty = std::numeric_limits<std::size_t>::max();
std::atomic<std::size_t> largest = plenty;

bool refuses(std::size_t size)
{
    if (size <= largest)
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace scarcity

extern "C" void *__libc_malloc(std::size_t);
extern "C" void *__libc_realloc(void *, std::size_t);

extern "C" void *malloc(std::size_t size)
{
    return scarcity::refuses(size) ? nullptr : __libc_malloc(size);
}

extern "C" void *realloc(void *memory, std::size_t size)
{
    return scarcity::refuses(size) ? nullptr : __libc_realloc(memory, size);
}

using Door = std::function<void(WindowFixture &)>;
Q_DECLARE_METATYPE(Door)

class TestMemory : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
        fixture_->write("long.abc", longTune());
    }

    void cleanup() { scarcity::largest = scarcity::plenty; }

    void doors_data()
    {
        const Rows<Door, QString> row("door", "named");
        row("open", open, "long.abc");
        row("drop", drop, "long.abc");
        row("paste", paste, "the text");
        row("import MIDI", importMidi, "long.mid");
        row("merge", merge, "Could not merge tracks");
        row("save", save, "long.abc");
        row("apply", apply, "");
        row("any event", handleEvent, "Kelvarion Composer");
    }

    void doors()
    {
        QFETCH(Door, door);
        QFETCH(QString, named);
        door(*fixture_);
        auto &messages = fixture_->dialogs().messages;
        QTRY_VERIFY(!messages.isEmpty());
        scarcity::largest = scarcity::plenty;
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains(QStringLiteral("ot enough memory")) && messages[0].contains(named),
                 qPrintable(messages[0]));
        const auto tracks = fixture_->titles().size();
        fixture_->trigger("actionNew_Track"); // the window works on
        QTRY_COMPARE(fixture_->titles().size(), tracks + 1);
    }

private:
    static constexpr int notes = 300'000; // 14 MB as events
    static constexpr std::size_t fewMegabytes = 8 << 20;

    static QByteArray longTune()
    {
        return "X:1\nT:Long\nL:1/8\nK:C\n" + QByteArray("CDEFGABc|").repeated(12).append('\n').repeated(notes / 96);
    }

    static void importMidi(WindowFixture &fixture)
    {
        const auto note = MidiBytes::noteOn(0, 60) + MidiBytes::noteOff(24, 60);
        fixture.write("long.mid", "MThd" + MidiBytes::bigEndian(6, 4) + MidiBytes::bigEndian(0, 2) +
                                      MidiBytes::bigEndian(1, 2) + MidiBytes::bigEndian(96, 2) +
                                      MidiBytes::chunk(note.repeated(notes) + MidiBytes::endOfTrack()));
        scarcity::largest = fewMegabytes;
        fixture.dialogs().files = QStringList(fixture.path("long.mid"));
        fixture.trigger("actionImport_MIDI");
    }

    static void drop(WindowFixture &fixture)
    {
        scarcity::largest = fewMegabytes;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(fixture.path("long.abc"))});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&fixture.window(), &enter);
        QDropEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&fixture.window(), &event);
    }

    static void paste(WindowFixture &fixture)
    {
        QApplication::clipboard()->setText(QString::fromLatin1(longTune()));
        scarcity::largest = fewMegabytes;
        fixture.trigger("actionImport_from_Clipboard");
    }

    static void merge(WindowFixture &fixture)
    {
        openWithPlenty(fixture);
        scarcity::largest = fewMegabytes;
        fixture.trigger("actionMerge_Selected");
    }

    static void save(WindowFixture &fixture)
    {
        openWithPlenty(fixture);
        scarcity::largest = 200'000;
        fixture.trigger("actionSave_Selected");
    }

    static void apply(WindowFixture &fixture)
    {
        EditorDocument document;
        document.text()->setPlainText(QString::fromLatin1(longTune()));
        scarcity::largest = fewMegabytes;
        QString error;
        QVERIFY(!document.apply(&error));
        fixture.dialogs().messages.append(error);
    }

    static void handleEvent(WindowFixture &fixture)
    {
        QMetaObject::invokeMethod(
            &fixture.window(), [] { throw std::bad_alloc(); }, Qt::QueuedConnection);
    }

    static void open(WindowFixture &fixture)
    {
        scarcity::largest = fewMegabytes;
        fixture.window().openFiles({fixture.path("long.abc")});
    }

    static void openWithPlenty(WindowFixture &fixture)
    {
        fixture.window().openFiles({fixture.path("long.abc")});
        QTRY_VERIFY(fixture.row(0));
        fixture.trigger("actionSelect_All");
    }

    std::unique_ptr<WindowFixture> fixture_;
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestMemory test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_memory.moc"
