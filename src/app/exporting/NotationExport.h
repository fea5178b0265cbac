#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/exporting/ExportEnd.h"
#include "base/Task.h"
#include "export/MidiExport.h"

#include <QObject>
#include <QStringList>
#include <QVector>

// The song as one file for other programs: MIDI, or ABC with a tune for each part. All parts are written, muted ones
// too, beside the interface thread, one file at a time. [ui]
class NotationExport : public QObject
{
    Q_OBJECT

public:
    explicit NotationExport(const CommandContext &context) : context_(context), end_(context) {}

    static QVector<ActionRow> actions();

    // Each asks for the file; nothing while one is written.
    void exportMidi();
    void exportTunebook();

signals:
    void written(const QStringList &paths, const QString &remark);

private:
    struct Format;
    struct Made;

    void write(const Format &format);
    QString chosenFile(const Format &format);
    QVector<ExportedPart> parts() const;
    void showFailure(const QString &path, const QString &reason);

    CommandContext context_;
    ExportEnd end_;
    Task task_;
};
