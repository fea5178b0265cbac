#pragma once

#include <QMap>
#include <QString>

// The instruments that a person chose for programs of MIDI, and the text that keeps them: "PROGRAM=NAME", one a line. A
// value.
class ProgramInstruments
{
public:
    static constexpr int percussion = 128; // beside the programs 0..127: the channel of the drums

    ProgramInstruments() = default;
    explicit ProgramInstruments(const QString &text); // lines that are none are skipped

    QString text() const;
    const QMap<int, QString> &all() const { return names_; }
    QString instrument(int program) const { return names_.value(program); } // empty when none was chosen
    void set(int program, const QString &instrument);                       // an empty one is forgotten

private:
    QMap<int, QString> names_;
};
