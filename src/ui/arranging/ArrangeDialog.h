#pragma once

#include "arrange/Arrangement.h"
#include "assets/InstrumentSet.h"
#include "base/Task.h"
#include "ui/arranging/ArrangeTable.h"
#include "ui/listening/GroupPlayer.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableView;

// A part of the song as it is arranged and heard.
struct ArrangedSource
{
    SourcePart part;
    GroupLevel level = {};
};

// Asks for how many players a song is to be, and shows and sounds what becomes of it; arranged anew beside the
// interface thread whenever something is changed. On the interface thread.
class ArrangeDialog : public QDialog
{
    Q_OBJECT

public:
    ArrangeDialog(const QVector<ArrangedSource> &sources, const InstrumentSet &instruments, EngineFactory makeEngine,
                  QWidget *parent = nullptr);

    bool isBusy() const { return work_.isRunning(); }
    // What is shown; the tracks have their texts.
    const Arrangement &arrangement() const { return arrangement_; }

    void done(int result) override;

signals:
    void aboutToListen();

private:
    enum class Heard { Nothing, Source, Arrangement, Part };

    QWidget *makeQuestions();
    QSpinBox *makeCount(const char *name, int most, int value, const QString &tip);
    QComboBox *makeLine(const char *name, const QString &tip);
    QTableView *makeTable(const char *name, const QString &title, ArrangeTable &model);
    QWidget *makeListening();
    QWidget *makeButtons();
    ArrangeOptions options() const;
    void arrangeAgain();
    void showArrangement(const Arrangement &arrangement);
    void showRows();
    void showFound(QComboBox *line, std::optional<int> part) const;
    void showState();
    QString summary() const;
    HeardPart heard(const Track &track, int source) const;
    void listen(Heard what);
    void listenTo(Heard what);

    QVector<ArrangedSource> sources_;
    InstrumentSet instruments_;
    ArrangeTable before_{ArrangeTable::Side::Before};
    ArrangeTable after_{ArrangeTable::Side::After};
    GroupPlayer player_;
    Heard heard_ = Heard::Nothing;
    std::optional<ArrangeOptions> wanted_; // at last
    Arrangement arrangement_;
    QString failure_;
    QSpinBox *players_;
    QSpinBox *voices_;
    QComboBox *melody_;
    QComboBox *bass_;
    QTableView *beforeView_;
    QTableView *afterView_;
    QPushButton *listenSource_;
    QPushButton *listenArrangement_;
    QPushButton *listenPart_;
    QPushButton *arrange_;
    QLabel *summary_;
    Task work_;
};
