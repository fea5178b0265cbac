#pragma once

#include "song/journal/JournalFolder.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

// The songs that journals kept, of which one can be recovered. It only says what is wanted. On the interface thread.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    // Whether it comes by itself after a crash or the user asked for it.
    enum class Occasion { Start, Command };
    explicit RecoveryDialog(Occasion occasion, QWidget *parent = nullptr);

    void setSongs(const QVector<RecoverableSong> &songs);

signals:
    void recoverRequested(const QString &journal);
    void removeRequested(const QStringList &journals);

private:
    QStringList chosen() const;
    void showChoice();
    void recover();

    QVector<RecoverableSong> songs_;
    QTreeWidget *list_;
    QLabel *note_; // on the chosen song
    QPushButton *recover_;
    QPushButton *remove_;
};
