#pragma once

#include <QDialog>

class Dialogs;
class QCheckBox;
class QComboBox;
class QLabel;

// Asks for a key. Modes that the game does not know must be confirmed.
class KeyDialog : public QDialog
{
    Q_OBJECT

public:
    explicit KeyDialog(Dialogs &dialogs, QWidget *parent = nullptr);

    // Begins with the value of a K field. One that holds no key changes nothing.
    void preset(const QString &key);

    // The value of a K field, such as "Am".
    QString key() const;

public slots:
    void accept() override;
    void updateKey();

private:
    Dialogs &dialogs_;
    QComboBox *mode_;
    QComboBox *accidentals_;
    QCheckBox *includeMajor_;
    QLabel *newKey_;
};
