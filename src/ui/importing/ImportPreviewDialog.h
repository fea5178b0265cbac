#pragma once

#include "assets/InstrumentSetModel.h"
#include "audio/player/PlayerWorker.h"
#include "settings/Settings.h"
#include "song/preview/ImportPreview.h"

#include <QDialog>

class ImportSettingsBox;
enum class ImportKind;
class PartsTable;
class PreviewPlayer;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableView;

// What a preview works with; the settings outlive it.
struct PreviewServices
{
    Settings &settings;
    InstrumentSet instruments;
    QString fallback; // the instrument of a part that nothing speaks for
    EngineFactory makeEngine;
};

// Shows what an import would bring, and lets a person choose of it, change how it is read, and listen. Accepted, it
// remembers the settings and the instruments that were chosen for programs; cancelled, it changes nothing.
class ImportPreviewDialog : public QDialog
{
    Q_OBJECT

public:
    // song: the sources as they were read with the options.
    ImportPreviewDialog(const QVector<SongSource> &sources, const ReadSong &song, const ReadingOptions &options,
                        const PreviewServices &services, QWidget *parent = nullptr);
    ~ImportPreviewDialog() override;

    const ImportPreview &preview() const { return preview_; }

    void accept() override; // as soon as everything is known
    void done(int result) override;

signals:
    void aboutToListen();

private:
    QWidget *makeTable();
    void fitNames();
    QWidget *makeListening();
    QWidget *makeSettings(const QVector<ImportKind> &kinds);
    QWidget *makeButtons();
    void readAgain();
    void listen(const QVector<int> &parts);
    void showState();
    QString summary() const;

    Settings &settings_;
    InstrumentSetModel instruments_;
    ImportPreview preview_;
    PreviewPlayer *player_;
    PartsTable *parts_;
    QTableView *table_;
    ImportSettingsBox *box_;
    QLabel *summary_; // of all that are taken
    QLabel *loss_;    // of the current part
    QPushButton *listenPart_;
    QPushButton *listenAll_;
    QPushButton *import_;
    bool isAccepted_ = false; // and waits for what is being read
};
