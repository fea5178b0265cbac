#include "Convert.h"

#include "ConvertedFiles.h"
#include "base/ErrorText.h"
#include "base/FileBatch.h"
#include "input/FileNames.h"
#include "input/Input.h"
#include "streams/Messages.h"
#include "summary/SongSummary.h"

#include <QDir>

#include <deque>
#include <optional>
#include <utility>

namespace {

// Everything that is read, written and printed on the way from the inputs to the files. Inputs are read and made into
// bytes on all cores, and their files named in the order of the inputs, so that names do not depend on chance.
class Conversion
{
public:
    explicit Conversion(const Arguments &arguments)
        : arguments_(arguments), report_(arguments),
          saving_(arguments.force ? SafeFile::Existing::Replaced : SafeFile::Existing::Kept)
    {
    }

    int run()
    {
        if (arguments_.merges)
            convertMerged();
        else
            convertEach();
        failed_ |= !runOrPrint(arguments_.output, [this] { saving_.finish(); });
        reportInputs();
        printInputs();
        if (!report_.finish(arguments_.output))
            failed_ = true;
        return failed_ ? 1 : 0;
    }

private:
    void convertEach();
    void convertMerged();
    void summariseMerged(const QVector<Track> &tracks);
    ConvertedInput converted(const QString &path) const;
    void take(ConvertedInput input);
    SongSummary finished(const ConvertedInput &input) const;
    void saveFiles(ConvertedInput &input);
    void saveFile(ConvertedInput &input, const ConvertedInput::File &file);
    bool hasFolder();
    void reportInputs();
    void printInputs() const;
    void fail(const QString &file, const QString &message)
    {
        printFailure(file, message);
        failed_ = true;
    }

    const Arguments &arguments_;
    SongReport report_;
    std::deque<ConvertedInput> inputs_;
    FileNames names_;
    std::optional<bool> hasFolder_; // once it was made
    FileBatch saving_;
    bool failed_ = false;
};

void Conversion::convertEach()
{
    forEachInput<ConvertedInput>(
        arguments_, [this](const QString &path) { return converted(path); },
        [this](ConvertedInput input) { take(std::move(input)); });
}

// On any thread.
ConvertedInput Conversion::converted(const QString &path) const
{
    const auto reading = readOne(path, arguments_);
    ConvertedInput input{path, reading.song, reading.failures};
    input.trackCount = int(input.song.tracks.size());
    if (report_.isWanted())
        input.summary.emplace();
    try {
        applyTransforms(input.song, arguments_);
        makeFiles(input, input.song.tracks, Merged::No, arguments_);
        if (report_.isWanted())
            *input.summary = summaryOf(path, input.song, checkReadSong(input.song, arguments_, {}));
    } catch (...) {
        input.failures.append(currentErrorText());
        input.files.clear();
    }
    input.forgetMusic();
    return input;
}

void Conversion::take(ConvertedInput input)
{
    for (const auto &failure : qAsConst(input.failures))
        fail(input.path, failure);
    inputs_.push_back(std::move(input));
    saveFiles(inputs_.back());
}

// The summary, now that it is known where everything went.
SongSummary Conversion::finished(const ConvertedInput &input) const
{
    auto summary = *input.summary;
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
        inputs_.push_back({path, song});
        inputs_.back().trackCount = int(song.tracks.size());
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
    if (inputs_.empty() || tracks.isEmpty())
        return;
    makeFiles(inputs_.front(), tracks, Merged::Yes, arguments_);
    if (report_.isWanted())
        summariseMerged(tracks);
    saveFiles(inputs_.front());
}

void Conversion::summariseMerged(const QVector<Track> &tracks)
{
    ReadSong song;
    song.tracks = tracks;
    song.parts = QVector<PartReport>(tracks.size());
    auto &input = inputs_.front();
    input.summary = summaryOf(input.path, song, checkReadSong(song, arguments_, {}));
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

void Conversion::saveFiles(ConvertedInput &input)
{
    const auto files = std::exchange(input.files, {});
    if (files.isEmpty() || !hasFolder())
        return;
    for (const auto &file : files)
        saveFile(input, file);
}

void Conversion::saveFile(ConvertedInput &input, const ConvertedInput::File &file)
{
    if (!file.failure.isEmpty())
        return fail(input.path, file.failure);
    const auto nextPath = [this, name = file.name, ending = file.ending] {
        return QDir(arguments_.output).filePath(names_.nextFor(name, ending));
    };
    saving_.add(nextPath, file.bytes, [this, &input](const QString &path, const QString &failure) {
        if (failure.isEmpty())
            input.written.append(path);
        else
            fail(path, failure);
    });
}

void Conversion::reportInputs()
{
    for (const auto &input : inputs_) {
        if (input.summary)
            report_.add(finished(input));
    }
}

void Conversion::printInputs() const
{
    if (report_.isInsteadOfLines())
        return;
    const bool isMerged = arguments_.merges && !inputs_.empty() && !inputs_.front().written.isEmpty();
    for (const auto &input : inputs_) {
        if (input.isReadable())
            printLine(lineOf(input, isMerged ? inputs_.front().written.first() : QString()));
    }
}

} // namespace

int convert(const Arguments &arguments)
{
    return Conversion(arguments).run();
}
