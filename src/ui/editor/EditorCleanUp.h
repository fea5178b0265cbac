#pragma once

#include "edit/NoteEdit.h"
#include "edit/plan/MeasureChange.h"

#include <QObject>
#include <QVector>

#include <functional>

class EditorDocument;
class Track;
struct RollState;

// The commands that clean up notes, on those that are selected and otherwise on all: each is one step to undo that
// changes only the characters that it must. The piano roll says where the caret is, and its grid.
class EditorCleanUp : public QObject
{
    Q_OBJECT

public:
    // All must outlive this object.
    EditorCleanUp(EditorDocument &document, const RollState &roll, QObject *parent);

    void split();
    void join();
    void legato();
    void doubleLengths();
    void halveLengths();
    void quantise();
    void quantiseHalf();

    void invertSelection();
    void selectSamePitch();
    void selectPitchRange();

    void insertMeasure();
    void deleteMeasures();

signals:
    void said(const QString &message);

private:
    using EditMaker = std::function<NoteEdit(const Track &, const QVector<int> &)>;
    void change(const QString &name, const EditMaker &makeEdit);
    void quantiseBy(int strength);
    QVector<int> meantNotes() const;
    static QString sentenceAbout(MeasureChange::Obstacle obstacle);
    void exchange(const MeasureChange::Result &result, const QString &name);

    EditorDocument &document_;
    const RollState &roll_;
};
