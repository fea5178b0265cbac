#pragma once

#include "settings/Settings.h"

#include <QHash>
#include <QWidget>

class QVBoxLayout;

// The settings of MIDI import as controls in two groups. They begin as the settings are stored; what is changed stays
// here until somebody stores it. On the interface thread.
class MidiSettingsBox : public QWidget
{
    Q_OBJECT

public:
    explicit MidiSettingsBox(const Settings &settings, QWidget *parent = nullptr);
    // These begin with other values.
    MidiSettingsBox(const Settings &settings, const QHash<Settings::Setting, QVariant> &values,
                    QWidget *parent = nullptr);

    // As it is shown; of settings that are not shown, as it is stored.
    QVariant value(Settings::Setting setting) const;
    void store(Settings &settings) const; // what was changed

signals:
    void changed(Settings::Setting setting, const QVariant &value);

private:
    struct Row;
    static const QVector<Row> &rows();
    void addRow(const Row &row, QVBoxLayout &column);
    QWidget *checkBox(const Row &row);
    QWidget *numberBox(const Row &row);
    void change(Settings::Setting setting, const QVariant &value);

    const Settings &settings_;
    QHash<Settings::Setting, QVariant> changes_;
};
