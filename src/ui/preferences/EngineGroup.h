#pragma once

#include "base/Task.h"
#include "settings/Settings.h"

#include <QGroupBox>

class Dialogs;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct EngineWish;

// Which engine plays: our own, or an FMOD library of the user's, which can be chosen and tried.
class EngineGroup : public QGroupBox
{
    Q_OBJECT

public:
    // Shows what is in the settings; the dialogs outlive it.
    EngineGroup(const Settings &settings, Dialogs &dialogs, QWidget *parent = nullptr);

signals:
    void changed(Settings::Setting setting, const QVariant &value);

private:
    EngineWish wish() const;
    void chooseFile();
    void browse();
    void showLibrary();
    void showFailure(const QString &reason);
    void test();

    Dialogs &dialogs_;
    const QString gameFolder_;
    QString chosenFile_;
    QComboBox *kind_;
    QLineEdit *file_;
    QPushButton *browse_;
    QPushButton *test_;
    QLabel *library_;
    Task describing_;
    Task testing_;
};
