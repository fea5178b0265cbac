#include "Convert.h"

#include "ConvertedFiles.h"
#include "FileNames.h"
#include "Input.h"
#include "Messages.h"
#include "SongSummary.h"
#include "base/ErrorText.h"
#include "base/SafeFile.h"

#include <QDir>

#include <optional>

namespace {

// Everything that is read, written and printed on the way from the inputs to the files. Inputs are read and made into
// bytes on all cores, and written in their order, so that names do not depend on chance.
class Conversion
{
public:
    explicit Conversion(const Arguments &arguments) : arguments_(arguments), report_(arguments) {}

    int run()
    {
        if (arguments_.merges)
            convertMerged();
        else
            convertEach();
        synchroniseFiles();
        printInputs();
        if (!report_.finish(arguments_.output))
            failed_ = true;
        return failed_ ? 1 : 0;
    }

private:
    void convertEach();
    void convertMerged();
    void addMergedSong(const QVector<Track> &tracks);
    ConvertedInput converted(const QString &path) const;
    void take(ConvertedInput input);
    SongSummary finished(const ConvertedInput &input) const;
    void writeFiles(ConvertedInput &input);
    void writeFile(ConvertedInput &input, const ConvertedInput::File &file);
    void write(const ConvertedInput::File &file, QString &path);
    bool hasFolder();
    void synchroniseFiles();
    void printInputs() const;
    void fail(const QString &file, const QString &message)
    {
        printFailure(file, message);
        failed_ = true;
    }

    const Arguments &arguments_;
    SongReport report_;
    QVector<ConvertedInput> inputs_; // those that could be read
    FileNames names_;
    std::optional<bool> hasFolder_; // once it was made
    QStringList unsynchronised_;    // files that may not be on the disk yet
    bool failed_ = false;
};

void Conversion::convertEach()
{
    forEachInput<ConvertedInput>(
        arguments_, [this](const QString &path) { return converted(path); },
        [this](const ConvertedInput &input) { take(input); });
}

// On any thread.
ConvertedInput Conversion::converted(const QString &path) const
{
    const auto reading = readOne(path, arguments_);
    ConvertedInput input{path, reading.song, reading.failures};
    input.trackCount = int(input.song.tracks.size());
    try {
        applyTransforms(input.song, arguments_);
        makeFiles(input, input.song.tracks, Merged::No, arguments_);
        if (report_.isWanted())
            input.summary = summaryOf(path, input.song, checkReadSong(input.song, arguments_, {}));
    } catch (...) {
        input.failures.append(currentErrorText());
        input.files.clear();
    }
    return input;
}

void Conversion::take(ConvertedInput input)
{
    for (const auto &failure : input.failures)
        fail(input.path, failure);
    writeFiles(input);
    if (report_.isWanted())
        report_.add(finished(input));
    input.files.clear();
    input.song.tracks.clear(); // of thousands of inputs no more is kept than there is to say
    if (input.isReadable())
        inputs_.append(input);
}

// The summary, now that it is known where everything went.
SongSummary Conversion::finished(const ConvertedInput &input) const
{
    auto summary = input.summary;
    summary.path = input.path;
    summary.files = input.written;
    summary.failures = input.failures;
    const bool hasFileEach = arguments_.to == ConvertTo::Abc && summary.parts.size() == input.written.size();
    for (int i = 0; hasFileEach && i < summary.parts.size(); ++i)
        summary.parts[i].file = input.written[i];
    return summary;
}

void Conversion::convertMerged()
{
    QVector<Track> tracks;
    for (const auto &[path, song] : readInputs(arguments_, failed_)) {
        inputs_.append({path, song});
        inputs_.last().trackCount = int(song.tracks.size());
        tracks += song.tracks;
    }
    const auto merge = [&] {
        for (const auto &transform : arguments_.transforms)
            tracks = transform(tracks);
    };
    if (!runOrPrint(arguments_.inputs.join(QStringLiteral(", ")), merge)) {
        failed_ = true;
        return;
    }
    if (inputs_.isEmpty() || tracks.isEmpty())
        return;
    makeFiles(inputs_.first(), tracks, Merged::Yes, arguments_);
    writeFiles(inputs_.first());
    if (report_.isWanted())
        addMergedSong(tracks);
}

void Conversion::addMergedSong(const QVector<Track> &tracks)
{
    ReadSong song;
    song.tracks = tracks;
    song.parts = QVector<PartReport>(tracks.size());
    auto &input = inputs_.first();
    input.summary = summaryOf(input.path, song, checkReadSong(song, arguments_, {}));
    report_.add(finished(input));
}

bool Conversion::hasFolder()
{
    if (!hasFolder_) {
        hasFolder_ = QDir(arguments_.output).mkpath(QStringLiteral("."));
        if (!*hasFolder_)
            fail(arguments_.output, QStringLiteral("Could not create the directory."));
    }
    return *hasFolder_;
}

void Conversion::writeFiles(ConvertedInput &input)
{
    if (input.files.isEmpty() || !hasFolder())
        return;
    for (const auto &file : qAsConst(input.files))
        writeFile(input, file);
}

void Conversion::writeFile(ConvertedInput &input, const ConvertedInput::File &file)
{
    if (!file.failure.isEmpty())
        return fail(input.path, file.failure);
    QString path = input.path;
    const bool isWritten = runOrPrint(path, [&] { write(file, path); });
    if (isWritten)
        input.written.append(path);
    failed_ |= !isWritten;
}

// path: becomes the last that was tried. The disk is waited for once, at the end.
void Conversion::write(const ConvertedInput::File &file, QString &path)
{
    const QDir folder(arguments_.output);
    const auto nextPath = [&] { return path = folder.filePath(names_.nextFor(file.name, file.ending)); };
    if (arguments_.force)
        return SafeFile::write(nextPath(), file.bytes);
    while (!SafeFile::writeNewUnsynchronised(nextPath(), file.bytes)) { // one of that name is there
    }
    unsynchronised_.append(path);
}

void Conversion::synchroniseFiles()
{
    if (unsynchronised_.isEmpty())
        return;
    failed_ |= !runOrPrint(arguments_.output, [this] { SafeFile::synchroniseNew(unsynchronised_); });
}

void Conversion::printInputs() const
{
    if (report_.isInsteadOfLines())
        return;
    const bool isMerged = arguments_.merges && !inputs_.isEmpty() && !inputs_.first().written.isEmpty();
    for (const auto &input : inputs_)
        printLine(lineOf(input, isMerged ? inputs_.first().written.first() : QString()));
}

} // namespace

int convert(const Arguments &arguments)
{
    return Conversion(arguments).run();
}
