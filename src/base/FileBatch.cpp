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
bool FileBatch::wasThere(const QString &path)
{
    const QFileInfo info(path);
    const auto folder = info.path();
    auto names = names_.find(folder);
    if (names == names_.end()) {
        const auto all =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort);
        names = names_.insert(folder, QSet<QString>(all.begin(), all.end()));
    }
    return names->contains(info.fileName());
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
        written_.append(file.written);
    file.take(file.path, file.failure);
    files_.pop_front();
}

void FileBatch::finish()
{
    beginRest();
    pool_.wait();
    while (!files_.empty())
        tellOfFirst();
    SafeFile::finishFolders(std::exchange(written_, {}));
}
