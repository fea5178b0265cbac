// What the editor's window survives: a person in a hurry. Fails when both views show something else than the text
// means. Usage: soak_editor [EVENTS] [SEED]
#include "core/AbcParser.h"
#include "support/DescribeTrack.h"
#include "support/Figures.h"
#include "ui/EditorFixture.h"
#include "ui/roll/PianoRoll.h"

#include <QClipboard>
#include <QDialog>
#include <QMenu>
#include <QRandomGenerator>
#include <QTimer>

namespace {

// Keys, commands, clicks, drags that may never end, playing and pastes, as a person in a hurry does them. Whatever
// opens is closed again.
class RandomUser
{
public:
    explicit RandomUser(EditorFixture &editor, quint32 seed) : editor_(editor), random_(seed)
    {
        for (auto *const action : editor_.window.findChildren<QAction *>()) {
            if (!action->objectName().contains(QStringLiteral("Close")) && action->menu() == nullptr)
                actions_.append(action);
        }
        editor_.dialogs.answerOrCancel = Dialogs::Answer::Yes;
        editor_.dialogs.enteredText = QStringLiteral("3");
    }

    void act()
    {
        const int kind = below(12);
        if (kind < 2)
            QTest::keyClick(editor_.text, letters_[below(letters_.size())].toLatin1());
        else if (kind < 4)
            runAction();
        else if (kind == 4)
            QGuiApplication::clipboard()->setText(letters_.mid(below(20), below(30)));
        else if (kind == 5)
            editor_.window.document().setPlayPosition(below(200'000) - 1);
        else if (kind == 6)
            editor_.window.resize(300 + below(900), 200 + below(700));
        else
            useView(kind);
    }

private:
    int below(int limit) { return random_.bounded(std::max(1, limit)); }
    void useView(int kind)
    {
        auto *const roll = editor_.window.findChild<PianoRoll *>();
        auto *const view = below(2) == 0 ? static_cast<QAbstractScrollArea *>(editor_.text) : roll;
        auto *const canvas = view->viewport();
        const QPoint place(below(canvas->width()), below(canvas->height()));
        const auto modifiers = std::array{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                          Qt::AltModifier}[size_t(below(5))];
        if (kind == 7)
            QTest::keyClick(view, keys_[below(keys_.size())], modifiers);
        else if (kind == 8)
            QTest::mouseClick(canvas, Qt::LeftButton, modifiers, place);
        else if (kind == 9)
            QTest::mousePress(canvas, Qt::LeftButton, modifiers, place);
        else if (kind == 10)
            QTest::mouseRelease(canvas, Qt::LeftButton, modifiers, place);
        QMouseEvent move(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(canvas, &move);
    }
    void runAction()
    {
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [] {
            if (auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
                dialog->done(QDialog::Accepted);
            else if (auto *const popup = QApplication::activePopupWidget())
                popup->close();
        });
        closer.start(5);
        actions_[below(actions_.size())]->trigger();
    }

    EditorFixture &editor_;
    QRandomGenerator random_;
    QVector<QAction *> actions_;
    const QString letters_ = QStringLiteral("CDEFGABcdefgabzxZ|[](){}<>-/0123456789^_=,'!+.\"~%:KQML #?\\$");
    const QVector<Qt::Key> keys_{Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,   Qt::Key_Right,
                                 Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Home,   Qt::Key_End,    Qt::Key_Insert,
                                 Qt::Key_D,      Qt::Key_Z,         Qt::Key_V,      Qt::Key_Escape, Qt::Key_PageDown};
};

// Whether what both views show is what the text means, and no dialog was left open.
bool isWell(EditorFixture &editor)
{
    QCoreApplication::processEvents();
    auto &document = editor.window.document();
    document.update();
    return QApplication::activeModalWidget() == nullptr &&
           (document.hasErrors() || describe(document.track()) == describe(parseAbc(editor.plainText()))) &&
           editor.child<PianoRoll>("pianoRoll")->state().notes.count() == document.track().noteCount();
}

int countFailures(int events, quint32 seed)
{
    EditorFixture editor;
    editor.show();
    editor.trigger("actionShowRoll");
    RandomUser user(editor, seed);
    int failures = 0;
    for (int i = 0; i < events; ++i) {
        if (i % 100 == 0)
            editor.open(QStringLiteral("C D [EG]2 | (3abc d>e | z4 | F4- | F4 |\n").repeated(4));
        user.act();
        if (i % 100 == 99)
            failures += isWell(editor) ? 0 : 1;
    }
    return failures;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const auto argument = [](int number, int fallback) {
        return QCoreApplication::arguments().value(number, QString::number(fallback)).toInt();
    };
    const int failures = countFailures(argument(1, 10'000), quint32(argument(2, 11)));
    return report({"Editor: times that its views showed something else", double(failures), 0, {}, Better::Less}) ? 0
                                                                                                                 : 1;
}
