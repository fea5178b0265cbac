#pragma once

#include <QDialog>
#include <QStringList>
#include <QVector>

class QListWidget;
class QPushButton;

// Asks which tunes of a book are to be opened; all are ticked to begin with. It cannot be accepted without any.
class TuneChooser : public QDialog
{
    Q_OBJECT

public:
    TuneChooser(const QString &book, const QStringList &tunes, QWidget *parent = nullptr);

    QVector<int> chosen() const; // numbers, ascending

private:
    void tickAll(Qt::CheckState state);
    void showOnly(const QString &words); // tunes with them in their names

    QListWidget *list_;
    QPushButton *open_;
};
