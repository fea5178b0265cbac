#include "Convert.h"

#include "Input.h"
#include "Messages.h"
#include "base/SafeFile.h"

#include <QDir>
#include <QHash>
#include <QSet>

namespace {

// Gives every title file names of its own, one after another; names that differ only in case are one on some file
// systems.
class FileNames
{
public:
    QString nextFor(const QString &title)
    {
        const auto clean = SafeFile::cleanName(title);
        auto &number = numbers_[clean.toLower()];
        QString name;
        do {
            ++number;
            name = number == 1 ? clean : QStringLiteral("%1 (%2)").arg(clean).arg(number);
        } while (taken_.contains(name.toLower()));
        taken_.insert(name.toLower());
        return name + QStringLiteral(".abc");
    }

private:
    QSet<QString> taken_;
    QHash<QString, int> numbers_; // the last that each title was given
};

QString describe(const ImportReport &report)
{
    QStringList parts;
    const auto add = [&parts](int count, const QString &text) {
        if (count > 0)
            parts.append(QStringLiteral("%1 %2").arg(count).arg(text));
    };
    add(report.belowVelocityGate, QStringLiteral("too soft"));
    add(report.restruck, QStringLiteral("struck again while sounding"));
    add(report.outOfRange, QStringLiteral("out of range"));
    add(report.folded, QStringLiteral("moved by octaves into the range"));
    add(report.unterminated, QStringLiteral("never ended"));
    add(report.undecodedTexts, QStringLiteral("names not in UTF-8"));
    if (report.shifts.shiftedNotes > 0) {
        parts.append(QStringLiteral("%1 shifted by up to %2 ms, %3 ms on average")
                         .arg(report.shifts.shiftedNotes)
                         .arg(report.shifts.largestMs, 0, 'f', 1)
                         .arg(report.shifts.meanMs(), 0, 'f', 1));
    }
    return parts.isEmpty() ? QString() : QStringLiteral("; notes: ") + parts.join(u", ");
}

struct Source
{
    QString path;
    std::optional<ImportReport> report;
    QString remark;
    qsizetype trackCount = 0;
};

QString causeOfNothing(const Source &source)
{
    if (source.trackCount > 0)
        return QStringLiteral("that failed"); // which was printed
    const auto report = source.report.value_or(ImportReport());
    const int leftOut = report.belowVelocityGate + report.restruck + report.outOfRange + report.unterminated;
    return leftOut > 0 ? QStringLiteral("all notes were left out") : QStringLiteral("there are no notes in it");
}

// Everything that is read, written and printed on the way from the inputs to the files.
class Conversion
{
public:
    explicit Conversion(const Arguments &arguments) : arguments_(arguments) {}

    int run()
    {
        collectTracks();
        if (transformTracks() && !tracks_.isEmpty())
            writeTracks();
        printSources();
        return failed_ ? 1 : 0;
    }

private:
    void collectTracks();
    bool transformTracks();
    void writeTracks();
    QString write(const QDir &directory, Track &track);
    void printSources() const;
    void fail(const QString &file, const QString &message)
    {
        printFailure(file, message);
        failed_ = true;
    }

    const Arguments &arguments_;
    QVector<Source> sources_; // those that could be read
    QVector<Track> tracks_;
    FileNames names_;
    QStringList written_; // file names, one for each track; empty where writing failed
    bool failed_ = false;
};

void Conversion::collectTracks()
{
    for (const auto &[path, song] : readInputs(arguments_, failed_)) {
        sources_.append({path, song.report, song.remark, song.tracks.size()});
        tracks_ += song.tracks;
    }
}

bool Conversion::transformTracks()
{
    const bool isDone = runOrPrint(arguments_.inputs.join(QStringLiteral(", ")), [this] {
        for (const auto &transform : arguments_.transforms)
            tracks_ = transform(tracks_);
    });
    failed_ |= !isDone;
    return isDone;
}

void Conversion::writeTracks()
{
    const QDir directory(arguments_.output);
    if (!directory.mkpath(QStringLiteral("."))) {
        fail(arguments_.output, QStringLiteral("Could not create the directory."));
        return;
    }
    for (auto &track : tracks_)
        written_.append(write(directory, track));
}

// The path, or nothing when it cannot be written.
QString Conversion::write(const QDir &directory, Track &track)
{
    QString path;
    const auto nextPath = [&] { return path = directory.filePath(names_.nextFor(track.title())); };
    const auto writeTrack = [&] {
        const auto bytes = track.toAbc().toUtf8();
        if (arguments_.force)
            return SafeFile::write(nextPath(), bytes);
        while (!SafeFile::writeNew(nextPath(), bytes)) { // one of that name is there
        }
    };
    const bool isWritten = runOrPrint(path, writeTrack);
    failed_ |= !isWritten;
    return isWritten ? path : QString();
}

// A merge leaves one file for all inputs; otherwise the files stand in the order of their inputs.
void Conversion::printSources() const
{
    qsizetype trackSum = 0;
    for (const auto &source : sources_)
        trackSum += source.trackCount;
    const bool isMerged = tracks_.size() != trackSum;

    auto files = written_;
    for (const auto &source : sources_) {
        auto own = isMerged ? files : files.mid(0, int(source.trackCount));
        if (!isMerged)
            files = files.mid(int(source.trackCount));
        own.removeAll(QString());
        const auto what = own.isEmpty() ? QStringLiteral("wrote nothing, since ") + causeOfNothing(source)
                          : isMerged    ? QStringLiteral("merged into ") + own.first()
                                        : QStringLiteral("wrote ") + own.join(QStringLiteral(", "));
        const auto remark = source.remark.isEmpty() ? QString() : QStringLiteral("; ") + source.remark;
        const auto leftOut = source.report ? describe(*source.report) : QString();
        printLine(source.path + QStringLiteral(": ") + what + remark + leftOut);
    }
}

} // namespace

int convert(const Arguments &arguments)
{
    return Conversion(arguments).run();
}
