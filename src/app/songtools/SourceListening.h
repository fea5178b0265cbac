#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/songtools/SourceTracks.h"
#include "base/Task.h"

#include <QObject>
#include <QVector>

// The switch between the song as the game will play it and the sources that it came from, also while it sounds. The
// sources are read beside the interface thread, and again when parts come or go meanwhile. [ui]
class SourceListening : public QObject
{
    Q_OBJECT

public:
    explicit SourceListening(const CommandContext &context);

    static QVector<ActionRow> actions();

    void listenToSource(bool isOn);

signals:
    void switchedOff(); // by itself: there is another song, or nothing to hear

private:
    void take(const SourceTracks &sources);
    void tell(const QString &text);

    CommandContext context_;
    bool isOn_ = false;
    Task reading_;
};
