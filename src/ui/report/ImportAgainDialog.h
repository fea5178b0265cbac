#pragma once

#include "song/Song.h"

#include <QDialog>
#include <QVector>

class ImportSettingsBox;
class QComboBox;
class QScrollArea;
class Settings;

// Asks which import is to be read again, and with what settings. They begin as it was read before.
class ImportAgainDialog : public QDialog
{
    Q_OBJECT

public:
    // The settings outlive the dialog.
    ImportAgainDialog(const QVector<SongImported> &imports, const Settings &settings, QWidget *parent = nullptr);

    int chosen() const;           // which of the imports
    QJsonObject settings() const; // as in SongImported

private:
    void showSettings();

    QVector<SongImported> imports_;
    const Settings &settings_;
    QComboBox *files_;
    QScrollArea *area_;
    ImportSettingsBox *box_ = nullptr;
};
