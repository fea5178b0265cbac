#pragma once

#include "app/AnsweringDialogs.h"
#include "app/MainWindow.h"
#include "audio/engine/BuiltinEngine.h"
#include "support/PlayedKeyboard.h"
#include "support/TestFolder.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QAction>
#include <QDropEvent>
#include <QMimeData>

// The real window on the demo game, with an engine that nobody hears and dialogs that the test answers.
class WindowFixture
{
public:
    explicit WindowFixture(const QString &gameRoot) : settings_(path("Composer.cfg"))
    {
        settings_.setValue(Settings::RootPath, gameRoot);
        settings_.setValue(Settings::ChooseParts, false); // unless a test is about it
        makeWindow();
    }

    PlayedKeyboard::State keyboard; // the one there is
    std::shared_ptr<OutputControl> output = std::make_shared<OutputControl>();
    EngineFactory makeEngine = [] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); };
    FileEngineFactory makeFileEngine = [](const QString &file) {
        return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, file.toStdString());
    };
    void makeWindow(const QUrl &updateAddress = UpdateChecker::releaseAddress())
    {
        window_ = std::make_unique<MainWindow>(
            WindowServices{settings_, dialogs_, makeEngine, makeFileEngine, updateAddress, path("journals"), output,
                           [this] { return std::make_unique<PlayedKeyboard>(keyboard); }});
        window_->show();
    }

    bool waitUntilLoaded()
    {
        return QTest::qWaitFor([this] { return !window_->isLoading(); });
    }

    MainWindow &window() { return *window_; }
    TrackList &tracks() { return window_->tracks(); }
    Settings &settings() { return settings_; }
    AnsweringDialogs &dialogs() { return dialogs_; }
    QString path(const char *name) const { return folder_.path(name); }

    template<typename Widget>
    Widget *child(const char *name) const
    {
        return window_->findChild<Widget *>(QLatin1String(name));
    }
    QAction *action(const char *name) const { return child<QAction>(name); }
    void trigger(const char *name) const { action(name)->trigger(); }
    // Files are written beside the interface thread.
    bool waitUntilSaved()
    {
        return QTest::qWaitFor([this] { return !window_->isSaving(); });
    }

    // False when there are not so many tracks in the end.
    bool import(const QString &file, int tracks)
    {
        dialogs_.files = QStringList(file);
        trigger("actionImport_MIDI");
        const bool isDone = QTest::qWaitFor([&] { return this->tracks().song().size() == tracks; });
        dialogs_.files.clear();
        return isDone;
    }

    TrackWidget *row(int index)
    {
        return child<TrackRows>("scrollAreaWidgetContents")->row(tracks().ids().value(index));
    }
    template<typename Widget>
    Widget *inRow(int index, const char *name)
    {
        return row(index)->findChild<Widget *>(QLatin1String(name));
    }

    QStringList titles()
    {
        QStringList titles;
        for (const auto &track : tracks().song())
            titles.append(track->track->title());
        return titles;
    }

    QString write(const char *name, const QByteArray &bytes) const { return folder_.write(name, bytes); }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Over the window; the files are taken when the drop is over.
    void drop(const QStringList &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const auto &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(window_.get(), &enter);
        QDropEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted())
            QCoreApplication::sendEvent(window_.get(), &event);
        QCoreApplication::processEvents();
    }

private:
    TestFolder folder_;
    AnsweringDialogs dialogs_;
    Settings settings_;
    std::unique_ptr<MainWindow> window_;
};
