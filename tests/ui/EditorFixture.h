#pragma once

#include "app/AnsweringDialogs.h"
#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/TrackPlayer.h"
#include "core/AbcParser.h"
#include "settings/Settings.h"
#include "support/Rows.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/text/AbcTextEdit.h"

#include <QAction>
#include <QLabel>
#include <QTemporaryDir>
#include <QtTest>

// A real editor window with settings of its own, dialogs that answer, and an engine that nobody hears and that runs
// as fast as it is asked to.
struct EditorFixture
{
    explicit EditorFixture(const Text &body = {})
    {
        window.setInstrument(instrumentOf(samples.click()));
        open(body);
    }
    // A window whose text was changed would ask.
    ~EditorFixture() { window.document().text()->setModified(false); }

    // A tune of these notes in quarters.
    void open(const Text &body)
    {
        const auto header = QStringLiteral("X: 1\nT: Test\nM: 4/4\nL: 1/4\nQ: 1/4=120\nK: C\n");
        window.setTrack(parseAbc(header + body));
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    template<typename Widget>
    Widget *child(const char *name)
    {
        return window.findChild<Widget *>(QLatin1String(name));
    }
    void trigger(const char *name) { child<QAction>(name)->trigger(); }
    QString label(const char *name) { return child<QLabel>(name)->text(); }
    QString plainText() { return window.document().text()->toPlainText(); }
    QString body() { return plainText().mid(window.document().reading().layout.bodyOffset); }
    // In columns of the notes.
    void select(int begin, int end)
    {
        const auto offset = window.document().reading().layout.bodyOffset;
        auto cursor = text->textCursor();
        cursor.setPosition(offset + begin);
        cursor.setPosition(offset + end, QTextCursor::KeepAnchor);
        text->setTextCursor(cursor);
    }
    void insert(const Text &typed) { text->insertPlainText(typed); }
    QString selected() { return text->textCursor().selectedText(); }

    QTemporaryDir folder;
    SampleFiles samples;
    Settings settings{folder.filePath(QStringLiteral("settings.cfg"))};
    AnsweringDialogs dialogs;
    TrackPlayer player{[] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); }};
    AbcEditorWindow window{settings, dialogs, player};
    AbcTextEdit *text = window.findChild<AbcTextEdit *>();
};
