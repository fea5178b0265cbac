#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/services/InstrumentScanTask.h"

#include <QVector>

class InstrumentComboBox;
class InstrumentSetModel;

// The catalogue of the game's instruments, and which of them tracks get. On the interface thread.
class InstrumentCommands : public QObject
{
    Q_OBJECT

public:
    // selector: where the user chooses the default instrument.
    InstrumentCommands(const CommandContext &context, InstrumentSetModel &instruments, InstrumentComboBox &selector);

    static QVector<ActionRow> actions();

    InstrumentScanTask &scanning() { return scan_; }
    void scan(); // once

    void setDefault(const QString &name);
    void apply(); // to the selected tracks, or to all

signals:
    void scanned();

private:
    void takeScanned(const InstrumentSet &instruments);

    CommandContext context_;
    InstrumentSetModel &instruments_;
    InstrumentComboBox &selector_;
    InstrumentScanTask scan_;
    bool isScanned_ = false;
};
