#pragma once

#include "settings/Settings.h"

#include <QHash>
#include <QVector>
#include <QWidget>

class QVBoxLayout;

// What settings of import are about.
enum class ImportKind { Midi, StandardAbc };

// The settings of import as controls in groups. They begin as the settings are stored; what is changed stays
// here until somebody stores it. On the interface thread.
class ImportSettingsBox : public QWidget
{
    Q_OBJECT

public:
    // The values are those that it begins with in place of the stored ones.
    ImportSettingsBox(const QVector<ImportKind> &kinds, const Settings &settings,
                      const QHash<Settings::Setting, QVariant> &values = {}, QWidget *parent = nullptr);

    // As it is shown; of settings that are not shown, as it is stored.
    QVariant value(Settings::Setting setting) const;
    void store(Settings &settings) const; // what was changed

signals:
    void changed(Settings::Setting setting, const QVariant &value);

private:
    enum class Group;
    struct Row;
    static const QVector<Row> &rows();
    static const QVector<Group> &groupsOf(ImportKind kind);
    static QString titleOf(Group group);
    QWidget *frameOf(Group group);
    void addRow(const Row &row, QVBoxLayout &column);
    QWidget *checkBox(const Row &row);
    QWidget *numberBox(const Row &row);
    void change(Settings::Setting setting, const QVariant &value);

    const Settings &settings_;
    QHash<Settings::Setting, QVariant> changes_;
};
