#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Writes a tuning file, with comments for those who open it.
class TuningText
{
public:
    TuningText(const QString &instrument, double fadeout);

    // Without files the note borrows the sample of a neighbour, at a speed that follows from both frequencies.
    void add(int note, double hertz, const QStringList &files);
    QByteArray bytes() const;

private:
    QString head_;
    QStringList mapping_;
};
