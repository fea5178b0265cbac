#include "streams/PipedOutput.h"

#include "streams/Messages.h"

#include <QFileInfo>

namespace {

void copy(const QString &path, QIODevice &to)
{
    constexpr qint64 blockSize = 1 << 16;
    QFile from(path);
    if (!from.open(QIODevice::ReadOnly))
        throw from.errorString();
    while (!from.atEnd()) {
        const auto block = from.read(blockSize);
        if (block.isEmpty())
            throw from.errorString();
        if (to.write(block) != block.size())
            throw to.errorString();
    }
}

} // namespace

bool PipedOutput::isNeeded(const QString &output)
{
    const QFileInfo file(output);
    return output == u"-" || (file.exists() && !file.isFile() && !file.isDir());
}

PipedOutput::PipedOutput(const QString &output, const QString &ending) : output_(output), ending_(ending)
{
    if (!folder_.isValid())
        throw folder_.errorString();
}

QString PipedOutput::path() const
{
    return folder_.filePath(QStringLiteral("song.") + ending_);
}

void PipedOutput::send() const
{
    if (output_ == u"-") {
        StandardOutput out;
        copy(path(), out.device());
        out.finish();
        return;
    }
    QFile out(output_);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw out.errorString();
    copy(path(), out);
}
