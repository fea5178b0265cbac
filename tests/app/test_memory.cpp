// Every door through which a song comes or goes says it when memory runs out, and the window lives on.
#include "app/Application.h"
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "ui/document/EditorDocument.h"

#include <QClipboard>

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
    void cleanup() { scarcity::largest = scarcity::plenty; }

    // What is allocated as a whole is refused above so many bytes, of texts and events of 14 MB.
    void doors_data()
    {
        const Rows<bool, int, QString, Door> row("isOpen", "largest", "named", "door");
        constexpr int few = 8 << 20;
        row("open", false, few, "long.abc", [](auto &window) { window.window().openFiles({window.path("long.abc")}); });
        row("drop", false, few, "long.abc", [](auto &window) { window.drop({window.path("long.abc")}); });
        row("paste", false, few, "the text", [](auto &window) { window.trigger("actionImport_from_Clipboard"); });
        row("import MIDI", false, few, "long.mid", [](auto &window) { window.trigger("actionImport_MIDI"); });
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // the lists of Qt 6.4 do not notice that their copy found no memory
        row("merge", true, few, "Could not merge", [](auto &window) { window.trigger("actionMerge_Selected"); });
#endif
        row("save", true, 200'000, "long.abc", [](auto &window) { window.trigger("actionSave_Selected"); });
        row("apply", false, few, "", [](auto &window) {
            EditorDocument document;
            document.text()->setPlainText(QApplication::clipboard()->text());
            QString error;
            QVERIFY(!document.apply(&error));
            window.dialogs().messages.append(error);
        });
        row("any event", false, few, "Kelvarion Composer", [](auto &window) {
            const auto fail = [] { throw std::bad_alloc(); };
            QMetaObject::invokeMethod(&window.window(), fail, Qt::QueuedConnection);
        });
    }

    void doors()
    {
        QFETCH(bool, isOpen);
        QFETCH(int, largest);
        QFETCH(Door, door);
        QFETCH(QString, named);
        const auto tune =
            "X:1\nT:Long\nL:1/8\nK:C\n" + QByteArray("CDEFGABc|").repeated(12).append('\n').repeated(notes / 96);
        const auto note = MidiBytes::noteOn(0, 60) + MidiBytes::noteOff(24, 60);
        WindowFixture window(demoGame);
        QVERIFY(window.waitUntilLoaded());
        const auto file = window.write("long.abc", tune);
        QApplication::clipboard()->setText(QString::fromLatin1(tune));
        window.dialogs().files =
            QStringList(window.write("long.mid", MidiBytes::file({note.repeated(notes) + MidiBytes::endOfTrack()})));
        if (isOpen) {
            window.window().openFiles({file});
            QTRY_VERIFY(window.row(0));
            window.trigger("actionSelect_All");
        }

        scarcity::largest = std::size_t(largest);
        door(window);
        auto &messages = window.dialogs().messages;
        QTRY_VERIFY(!messages.isEmpty());
        scarcity::largest = scarcity::plenty;
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains(QStringLiteral("ot enough memory")) && messages[0].contains(named),
                 qPrintable(messages[0]));
        const auto tracks = window.titles().size();
        window.trigger("actionNew_Track"); // the window works on
        QTRY_COMPARE(window.titles().size(), tracks + 1);
    }

private:
    static constexpr int notes = 300'000;
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestMemory test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_memory.moc"
