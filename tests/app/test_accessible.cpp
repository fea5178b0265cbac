// What a screen reader is told, walked as it walks: everything that takes the keys says what it is; and every window
// fits a small screen.
#include "app/ExampleSongs.h"
#include "app/WindowWalk.h"
#include "support/Rows.h"
#include "ui/SpokenWidget.h"

#include <QAccessible>
#include <QScreen>
#include <QTranslator>

namespace {

using Interface = QAccessibleInterface;

constexpr QSize frameAndPanel(20, 60);
constexpr int mostOfAList = 40;

QString nameOf(const Interface &thing, const QWidget &window)
{
    const auto *const object = thing.object();
    return QStringLiteral("%1 %2, role %3, in %4 %5")
        .arg(object ? QLatin1String(object->metaObject()->className()) : QLatin1String("part"),
             object ? object->objectName() : QString())
        .arg(int(thing.role()), 0, 16)
        .arg(QLatin1String(window.metaObject()->className()), window.windowTitle());
}

// Roles that say nothing of what keys do to it.
bool isVague(QAccessible::Role role)
{
    static const QVector<QAccessible::Role> vague{QAccessible::NoRole, QAccessible::Client, QAccessible::Border,
                                                  QAccessible::Pane,   QAccessible::Window, QAccessible::LayeredPane};
    return vague.contains(role);
}

// A row of a table is known by its first cell; others may be empty.
bool isBlankBesideOthers(Interface &thing)
{
    const auto *const cell = thing.tableCellInterface();
    return cell && cell->columnIndex() > 0 && thing.text(QAccessible::Name).isEmpty();
}

bool hasValue(Interface &thing)
{
    switch (thing.role()) {
    case QAccessible::ComboBox:
        return !thing.text(QAccessible::Value).isEmpty() && thing.actionInterface() &&
               thing.actionInterface()->actionNames().contains(QAccessibleActionInterface::increaseAction());
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::Dial:
    case QAccessible::ProgressBar:
    case QAccessible::ScrollBar:
    case QAccessible::Canvas:
        return thing.valueInterface() && !thing.text(QAccessible::Value).isEmpty() &&
               thing.valueInterface()->maximumValue().isValid();
    case QAccessible::EditableText:
        return thing.textInterface() != nullptr;
    default:
        return true;
    }
}

// Visits what can be seen, and of a long list its beginning.
template<typename Visit>
void walk(Interface *thing, const Visit &visit)
{
    if (!thing || !thing->isValid() || thing->state().invisible)
        return;
    visit(*thing);
    for (int child = 0; child < std::min(thing->childCount(), mostOfAList); ++child)
        walk(thing->child(child), visit);
}

std::unique_ptr<QTranslator> speak(const QString &language)
{
    auto translator = std::make_unique<QTranslator>();
    if (!language.isEmpty() && translator->load(QStringLiteral(":/translations/kelvarion-composer_") + language))
        QCoreApplication::installTranslator(translator.get());
    return translator;
}

QString lines(const QSet<QString> &set)
{
    auto list = set.values();
    list.sort();
    return QStringLiteral("\n") + list.join(u'\n');
}

} // namespace

class TestAccessible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { speakWidgets(); }

    void everythingIsNamed()
    {
        QSet<QString> faults;
        int checked = 0;
        int windows = 0;
        const auto look = [&](QWidget &window) {
            window.show();
            QCoreApplication::processEvents();
            ++windows;
            walk(QAccessible::queryAccessibleInterface(&window), [&](Interface &thing) {
                if (!thing.state().focusable || thing.object() == &window || isBlankBesideOthers(thing))
                    return;
                ++checked;
                if (thing.text(QAccessible::Name).trimmed().isEmpty())
                    faults.insert(QStringLiteral("no name: ") + nameOf(thing, window));
                if (isVague(thing.role()))
                    faults.insert(QStringLiteral("no role: ") + nameOf(thing, window));
                if (!hasValue(thing))
                    faults.insert(QStringLiteral("no value: ") + nameOf(thing, window));
            });
        };
        QVERIFY(WindowWalk(demoGame, look).run());
        qInfo("%d things in %d windows checked, %d faults", checked, windows, int(faults.size()));
        QVERIFY2(faults.isEmpty(), qPrintable(lines(faults)));
        QVERIFY(checked > 300);
    }

    void everyWindowFitsASmallScreen_data()
    {
        const Rows<QString> row("language");
        row("English", "");
        row("German", "de");
        row("French", "fr");
    }

    void everyWindowFitsASmallScreen()
    {
        QFETCH(QString, language);
        const auto translator = speak(language);
        QSet<QString> faults;
        const auto look = [&](QWidget &window) {
            window.show();
            QCoreApplication::processEvents();
            if (qobject_cast<QMenu *>(&window))
                return;
            const auto size = window.size().expandedTo(window.minimumSizeHint());
            const auto most = window.screen()->size() - frameAndPanel; // without a display 800 x 600, of Qt 6 800 x 800
            if (size.boundedTo(most) != size)
                faults.insert(QStringLiteral("%1 %2: %3 x %4")
                                  .arg(QLatin1String(window.metaObject()->className()), window.windowTitle())
                                  .arg(size.width())
                                  .arg(size.height()));
        };
        QVERIFY(WindowWalk(demoGame, look).run());
        QCoreApplication::removeTranslator(translator.get());
        QVERIFY2(faults.isEmpty(), qPrintable(lines(faults)));
    }

    void aRowSpeaks()
    {
        WindowFixture fixture(demoGame);
        QVERIFY(fixture.waitUntilLoaded());
        QVERIFY(fixture.import(jig, 3));
        const auto of = [](QWidget *widget) { return QAccessible::queryAccessibleInterface(widget); };
        auto *const row = of(fixture.row(0));
        auto *const instrument = of(fixture.inRow<QWidget>(0, "cboInstrument"));
        QVERIFY(row->text(QAccessible::Description).startsWith(instrument->text(QAccessible::Value)));
        QCOMPARE(row->text(QAccessible::Name), fixture.titles().first());

        const auto before = instrument->text(QAccessible::Value);
        instrument->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        if (instrument->text(QAccessible::Value) == before) // it was the last
            instrument->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
        QVERIFY(instrument->text(QAccessible::Value) != before);
        QCOMPARE(fixture.tracks().song().first()->instrument, instrument->text(QAccessible::Value));

        fixture.tracks().setMuted({fixture.tracks().ids().first()}, true);
        fixture.tracks().setVolume({fixture.tracks().ids().first()}, 40);
        const auto said = row->text(QAccessible::Description);
        for (const auto *const word : {"volume 40 %", "muted", "level silent"})
            QVERIFY2(said.contains(QLatin1String(word)), qPrintable(said));

        auto *const overview = of(fixture.inRow<QWidget>(0, "wVis"))->valueInterface();
        overview->setCurrentValue(3);
        QCOMPARE(overview->currentValue().toInt(), 3);
        QCOMPARE(of(fixture.child<QWidget>("timeRuler"))->text(QAccessible::Value),
                 QStringLiteral("Measure 3, beat 1"));
        QCOMPARE(of(fixture.child<QWidget>("positionDisplay"))->text(QAccessible::Value).section(u' ', 1),
                 QStringLiteral("3.1"));
        QCOMPARE(of(fixture.child<QWidget>("masterMeter"))->text(QAccessible::Value), QStringLiteral("silent"));
    }
};

QTEST_MAIN(TestAccessible)
#include "test_accessible.moc"
