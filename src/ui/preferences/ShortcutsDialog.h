#pragma once

#include "ui/Shortcuts.h"

#include <QDialog>
#include <QVector>

class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The keys of all commands, to be found, changed and reset. A key that belongs to another command is not given without
// a word: the dialog names that command, and takes the key from it only when told to. The settings get the keys when
// the dialog is accepted. [ui]
class ShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    // The settings outlive the dialog.
    ShortcutsDialog(Settings &settings, const QVector<KeyRow> &rows, QWidget *parent = nullptr);

    void accept() override;

private:
    QWidget *makeList();
    QWidget *makeEditor();
    QPushButton *makeButton(const char *name, const QString &text, const QString &tip, void (ShortcutsDialog::*slot)());
    void filter();
    void showRows();
    void showChosen();
    void showKey();
    void wish(const QKeySequence &key);
    void assign();
    void takeFromRival();
    void removeKey();
    void reset();
    void resetAll();
    const KeyRow *chosen() const;
    const KeyRow *rival() const;
    QString objection() const; // to the key that is wished for; empty: none

    Settings &settings_;
    const QVector<KeyRow> rows_;
    Shortcuts shortcuts_;
    QKeySequence wished_;
    QLineEdit *search_;
    QTreeWidget *list_;
    QKeySequenceEdit *key_;
    QLabel *notice_;
    QPushButton *assign_;
    QPushButton *take_;
    QPushButton *remove_;
    QPushButton *reset_;
    QVector<QTreeWidgetItem *> items_; // one a row
};
