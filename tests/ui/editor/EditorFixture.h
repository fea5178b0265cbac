#pragma once

#include "app/AnsweringDialogs.h"
#include "app/Settings.h"
#include "audio/SampleFiles.h"
#include "audio/TrackPlayer.h"
#include "audio/engine/BuiltinEngine.h"
#include "core/AbcParser.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/AbcTextEdit.h"

#include <QAction>
#include <QTemporaryDir>
#include <QtTest>

// A real editor window with settings of its own, dialogs that answer, and an engine that nobody hears and that runs
// as fast as it is asked to.
struct EditorFixture
{
    EditorFixture() { window.setInstrument(instrumentOf(samples.click())); }
    // A window whose text was changed would ask.
    ~EditorFixture() { window.document().text()->setModified(false); }

    void open(const QString &abc) { window.setTrack(parseAbc(abc)); }
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
    QString plainText() { return window.document().text()->toPlainText(); }
    QString body() { return plainText().mid(window.document().reading().layout.bodyOffset); }
    void select(int begin, int end)
    {
        auto cursor = text->textCursor();
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        text->setTextCursor(cursor);
    }

    QTemporaryDir folder;
    SampleFiles samples;
    Settings settings{folder.filePath(QStringLiteral("settings.cfg"))};
    AnsweringDialogs dialogs;
    TrackPlayer player{[] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); }};
    AbcEditorWindow window{settings, dialogs, player};
    AbcTextEdit *text = window.findChild<AbcTextEdit *>();
};
