#pragma once

#include "core/Measures.h"

#include <QStatusBar>

class EditorDocument;
class QLabel;

// Says where the caret is in the text and in the music, which note it is on, how many problems there are, and whether
// the changes are applied. Where the window is narrow it says less of it, and the least while it shows a message.
class EditorStatus : public QStatusBar
{
    Q_OBJECT

public:
    // The document must outlive the bar.
    explicit EditorStatus(EditorDocument &document, QWidget *parent = nullptr);

    // A few seconds; an empty text takes the last one away.
    void say(const QString &message);
    // The same about the text and the caret as they are: what changes one of them takes it away.
    void sayForNow(const QString &message);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    enum class Detail { All, WithoutNote, MeasureAlone, NoPlace };

    QLabel *addLabel(const char *objectName, const QString &widest, const QString &tip);
    int widthOf(Detail detail) const;
    void fitLabels(const QString &message);
    void forget();
    void elide(const QString &message);
    void readTrack();
    void showProblems();
    void showCaret();
    void showState();

    EditorDocument &document_;
    Measures measures_;
    Detail detail_ = Detail::All;
    QString forNow_; // as it is shown
    QLabel *place_;
    QLabel *time_;
    QLabel *note_;
    QLabel *problems_;
    QLabel *state_;
};
