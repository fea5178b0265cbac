#include "app/exporting/UnfinishedExports.h"

#include "base/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QUuid>

namespace {

const auto recordEnding = QStringLiteral(".export");

std::unique_ptr<QLockFile> lockOf(const QString &record)
{
    auto lock = std::make_unique<QLockFile>(record + QStringLiteral(".lock"));
    lock->setStaleLockTime(0); // a long export is no dead one
    return lock;
}

QStringList filesIn(const QString &record)
{
    constexpr qint64 longest = 1 << 20;
    QFile file(record);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.read(longest)).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

void UnfinishedExports::begin(const QStringList &files)
{
    end();
    if (folder_.isEmpty() || !QDir().mkpath(folder_))
        return;
    record_ = folder_ + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + recordEnding;
    lock_ = lockOf(record_);
    QFile file(record_);
    if (lock_->tryLock(0) && file.open(QIODevice::WriteOnly))
        file.write(files.join(u'\n').toUtf8());
}

void UnfinishedExports::end()
{
    if (!lock_)
        return;
    QFile::remove(record_);
    lock_.reset();
}

void UnfinishedExports::removeLeft(const QString &folder)
{
    QStringList left;
    QStringList underWay;
    for (const auto &name : QDir(folder).entryList({u'*' + recordEnding}, QDir::Files)) {
        const auto record = folder + u'/' + name;
        const auto lock = lockOf(record);
        const bool isLeft = lock->tryLock(0);
        (isLeft ? left : underWay) += filesIn(record);
        if (isLeft)
            QFile::remove(record);
    }
    for (const auto &file : std::as_const(left)) {
        if (!underWay.contains(file))
            SafeFile::removeLeftovers(file);
    }
}
