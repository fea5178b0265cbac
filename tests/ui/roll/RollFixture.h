#pragma once

#include "settings/Settings.h"
#include "support/Text.h"
#include "ui/document/EditorDocument.h"
#include "ui/roll/PianoRoll.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTemporaryDir>
#include <QtTest>

inline constexpr Ticks eighth = ticksPerWholeNote / 8;
inline const Text longTune("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8 G8 A8 B8 c8");

// A roll on the screen with the focus, over a document of its own.
struct RollFixture
{
    QTemporaryDir folder;
    Settings settings{folder.filePath(QStringLiteral("settings.cfg"))};
    EditorDocument document;
    PianoRoll roll{document, settings};

    // Of notes in eighths.
    explicit RollFixture(const Text &body = {})
    {
        Track track;
        track.setAbc(QStringLiteral("X:1\nM:4/4\nL:1/8\nK:C\n") + body);
        document.setTrack(track);
        roll.resize(1000, 500);
        roll.show();
        QApplication::setActiveWindow(&roll);
        roll.setFocus();
        if (!QTest::qWaitForWindowActive(&roll) || !roll.hasFocus())
            qFatal("The window does not become active.");
    }

    QWidget *canvas() { return roll.viewport(); }
    const RollState &state() const { return roll.state(); }
    const RollGeometry &geometry() const { return state().geometry; }

    QPoint at(double eighths, int pitch) const
    {
        return {qRound(geometry().x(Ticks(eighths * eighth))), int(geometry().top(pitch)) + geometry().rowHeight() / 2};
    }
    static void move(QWidget *over, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, to, over->mapToGlobal(to), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(over, &event);
    }
    void moveTo(QPoint to, Qt::KeyboardModifiers modifiers = {}) { move(canvas(), to, Qt::LeftButton, modifiers); }
    void openMenu(QPoint place)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, canvas()->mapToGlobal(place));
        QApplication::sendEvent(canvas(), &event);
        QApplication::activePopupWidget()->close();
    }

    // Keys, "=ABC_text" for the clipboard, and gestures of the mouse at "eighths:pitch": a click, "2x" a double one,
    // "Menu+" the context menu's; "from>to" a drag, that "!" breaks off with the escape key.
    void act(const Text &steps)
    {
        static const QRegularExpression gesture(
            QStringLiteral("^(?:(Shift|Ctrl|Alt|Menu)\\+)?(2x)?([-.\\d]+):(\\d+)(?:>([-.\\d]+):(\\d+)(!)?)?$"));
        for (const auto &step : steps.split(u' ')) {
            if (const auto match = gesture.match(step); match.hasMatch())
                gesticulate(match);
            else if (step.startsWith(u'='))
                QApplication::clipboard()->setText(step.mid(1).replace(u'_', u' '));
            else
                QTest::keySequence(&roll, QKeySequence(step));
        }
    }
    void gesticulate(const QRegularExpressionMatch &match)
    {
        const auto keys = match.captured(1) == u"Shift"  ? Qt::ShiftModifier
                          : match.captured(1) == u"Ctrl" ? Qt::ControlModifier
                          : match.captured(1) == u"Alt"  ? Qt::AltModifier
                                                         : Qt::NoModifier;
        const auto from = at(match.captured(3).toDouble(), match.captured(4).toInt());
        const bool isDrag = !match.captured(5).isEmpty();
        const auto to = isDrag ? at(match.captured(5).toDouble(), match.captured(6).toInt()) : from;
        if (match.captured(1) == u"Menu")
            return openMenu(from);
        if (match.captured(2).isEmpty())
            QTest::mousePress(canvas(), Qt::LeftButton, keys, from);
        else
            QTest::mouseDClick(canvas(), Qt::LeftButton, keys, from);
        if (isDrag) {
            moveTo((from + to) / 2, keys);
            moveTo(to, keys);
        }
        if (!match.captured(7).isEmpty())
            act("Esc");
        QTest::mouseRelease(canvas(), Qt::LeftButton, keys, to);
    }

    // "start+length:pitch" in eighths, by start and pitch, the selected ones with a star, and the cursor.
    QString result() const
    {
        QVector<RollNote> sorted;
        for (int note = 0; note < state().notes.count(); ++note)
            sorted.append(state().notes[note]);
        std::sort(sorted.begin(), sorted.end(), [](const RollNote &a, const RollNote &b) {
            return std::tie(a.start, a.pitch) < std::tie(b.start, b.pitch);
        });
        QStringList texts;
        for (const auto &note : sorted)
            texts.append(QStringLiteral("%1+%2:%3%4")
                             .arg(double(note.start) / eighth)
                             .arg(double(note.length) / eighth)
                             .arg(note.pitch)
                             .arg(document.selectedNotes().contains(note.event) ? u"*" : u""));
        texts.append(QStringLiteral("@%1:%2").arg(double(state().cursor) / eighth).arg(state().cursorPitch));
        return texts.join(u' ');
    }
};
