#pragma once

#include "core/Track.h"

#include <QObject>
#include <QSet>
#include <QVector>

#include <memory>

class PianoRoll;
class QMenu;

// Another part of the song that is edited.
struct OtherPart
{
    QString id;
    std::shared_ptr<const Track> track;
};

// The parts whose notes lie behind those of a piano roll, and the menu that chooses them. [ui]
class GhostParts : public QObject
{
    Q_OBJECT

public:
    // The roll outlives it.
    explicit GhostParts(PianoRoll &roll, QObject *parent = nullptr) : QObject(parent), roll_(roll) {}

    // What there is to choose from, in its order; what was chosen stays chosen.
    void setParts(const QVector<OtherPart> &parts);
    // Filled when it is about to show.
    void fill(QMenu &menu);

private:
    void choose(const QSet<QString> &ids);
    void show();

    PianoRoll &roll_;
    QVector<OtherPart> parts_;
    QSet<QString> chosen_;
};
