#pragma once

#include "audio/OutputControl.h"
#include "settings/Settings.h"

#include <QTimer>
#include <QWidget>

class Dialogs;
class MidiKeyboard;
class QComboBox;
class QFormLayout;
class QLabel;
class QVBoxLayout;

// What the page is about; all outlive it.
struct SoundDevices
{
    OutputControl &output;
    const MidiKeyboard *keyboard = nullptr; // null: none is spoken of
};

// The sound device that is wanted, and how it does now; the engine; the MIDI keyboard.
class SoundPage : public QWidget
{
    Q_OBJECT

public:
    // Shows what is in the settings; the dialogs outlive it.
    SoundPage(const Settings &settings, const SoundDevices &devices, Dialogs &dialogs, QWidget *parent = nullptr);

signals:
    void changed(Settings::Setting setting, const QVariant &value);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    template<typename Group>
    void addGroup(Group *group);
    QWidget *deviceGroup();
    QComboBox *deviceBox();
    QComboBox *blockBox();
    QLabel *addFigure(QFormLayout &rows, const char *name, const QString &title, const QString &tip);
    void listDevices(const OutputControl::Names &names);
    void showState();

    OutputControl &output_;
    const QString wantedDevice_;
    const int wantedBlock_;
    QComboBox *device_;
    QComboBox *block_;
    QLabel *latency_;
    QLabel *underruns_;
    QLabel *missing_;
    std::future<OutputControl::Names> search_;
    QTimer timer_;
};
