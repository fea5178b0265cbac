#include "base/FileBatch.h"

#include "base/ErrorText.h"

#include <QDir>
#include <QFileInfo>

#include <memory>
#include <utility>

void FileBatch::add(NextPath nextPath, const QByteArray &bytes, const Take &take)
{
    const auto path = freePath(nextPath);
    limitBytes(bytes.size());
    while (!files_.empty() && files_.front().isDone)
        tellOfFirst();
    auto &file = files_.emplace_back();
    file.nextPath = std::move(nextPath);
    file.bytes = bytes;
    file.take = take;
    file.path = path;
    next_.push_back(&file);
    if (next_.size() == mostInGroup)
        begin(std::exchange(next_, {}));
}

void FileBatch::begin(const Group &group)
{
    pool_.start([this, group] { write(group); });
}

// Few files, which need not wait for each other.
void FileBatch::beginRest()
{
    for (auto *file : std::exchange(next_, {}))
        begin({file});
}

// Folders are read once, since asking for each name keeps others from giving names. What comes into them later is seen
// when a name is taken.
const FileBatch::Folder &FileBatch::folderOf(const QFileInfo &file)
{
    const auto path = file.path();
    auto folder = folders_.find(path);
    if (folder == folders_.end()) {
        folder = folders_.insert(path, {});
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const auto &name : QDir(path).entryList(all, QDir::NoSort)) {
            folder->names.insert(name);
            folder->hasLeftovers |= SafeFile::isLeftBeside(name);
        }
    }
    return *folder;
}

bool FileBatch::wasThere(const QString &path)
{
    const QFileInfo info(path);
    return folderOf(info).names.contains(info.fileName());
}

QString FileBatch::freePath(const NextPath &nextPath)
{
    auto path = nextPath();
    while (existing_ == SafeFile::Existing::Kept && wasThere(path))
        path = nextPath();
    return path;
}

// They must not wait in memory for a disk that is slower.
void FileBatch::limitBytes(qint64 more)
{
    constexpr qint64 most = 64 << 20;
    if (bytes_ + more > most) {
        beginRest();
        pool_.wait();
        bytes_ = 0;
    }
    bytes_ += more;
}

namespace {

template<typename Work>
void runOrTell(QString &failure, Work work)
{
    if (!failure.isEmpty())
        return;
    try {
        work();
    } catch (...) {
        failure = currentErrorText();
    }
}

} // namespace

// First all, so that the disk has them by the time that the first is waited for.
void FileBatch::write(const Group &group) const
{
    std::vector<std::unique_ptr<SafeFile::Replacement>> replacements;
    for (auto *file : group) {
        auto &replacement = replacements.emplace_back();
        runOrTell(file->failure, [&] {
            replacement = std::make_unique<SafeFile::Replacement>(file->path, existing_);
            replacement->write(file->bytes);
        });
    }
    for (std::size_t i = 0; i < group.size(); ++i)
        runOrTell(group[i]->failure, [&] { replacements[i]->synchronise(); });
    const std::scoped_lock lock(naming_);
    for (std::size_t i = 0; i < group.size(); ++i) {
        auto &file = *group[i];
        runOrTell(file.failure, [&] {
            if (!replacements[i]->takePlace())
                return;
            file.written = replacements[i]->target();
            file.bytes.clear();
        });
        file.isDone = true;
    }
}

void FileBatch::writeElsewhere(File &file)
{
    while (file.written.isEmpty() && file.failure.isEmpty()) {
        runOrTell(file.failure, [&] {
            file.path = freePath(file.nextPath);
            write({&file});
        });
    }
}

void FileBatch::tellOfFirst()
{
    auto &file = files_.front();
    writeElsewhere(file);
    if (file.failure.isEmpty())
        finishLater(file.written);
    file.take(file.path, file.failure);
    files_.pop_front();
}

// Folders that were looked through, and had no leftovers, need not be again.
void FileBatch::finishLater(const QString &path)
{
    const QFileInfo info(path);
    auto &targets = written_[info.path()];
    if (existing_ == SafeFile::Existing::Replaced || folderOf(info).hasLeftovers)
        targets.append(path);
}

void FileBatch::finish()
{
    beginRest();
    pool_.wait();
    while (!files_.empty())
        tellOfFirst();
    const auto written = std::exchange(written_, {});
    for (auto targets = written.begin(); targets != written.end(); ++targets)
        SafeFile::finishFolder(targets.key(), *targets);
}
