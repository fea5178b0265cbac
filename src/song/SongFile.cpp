#include "song/SongFile.h"

#include "song/JsonWriter.h"
#include "song/SongMembers.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>

#include <functional>

namespace {

const auto formatKey = QStringLiteral("format");
const auto formatName = QStringLiteral("kelvarion-song");
const auto versionKey = QStringLiteral("version");

void changePaths(Song &song, const std::function<QString(const QString &path)> &change)
{
    const auto changeOne = [&](QString &path) {
        if (!path.isEmpty())
            path = change(path);
    };
    for (auto &part : song.parts)
        changeOne(part.path);
    for (auto &imported : song.imports)
        changeOne(imported.path);
}

QString relativePath(const QString &path, const QString &folder)
{
    auto beginning = QDir::cleanPath(folder);
    if (!beginning.endsWith(u'/'))
        beginning += u'/';
    const auto relative = path.mid(beginning.size());
    return path.startsWith(beginning) && QDir::isRelativePath(relative) ? relative : path;
}

QString absolutePath(const QString &path, const QString &folder)
{
    return QDir::cleanPath(QDir::isRelativePath(path) ? folder + u'/' + path : path);
}

[[noreturn]] void failAt(const QByteArray &bytes, const QJsonParseError &error)
{
    const auto before = bytes.left(error.offset);
    throw QCoreApplication::translate("SongFile", "The song file is damaged at line %1, column %2 (%3).")
        .arg(before.count('\n') + 1)
        .arg(before.size() - before.lastIndexOf('\n'))
        .arg(error.errorString());
}

QJsonObject parse(const QByteArray &bytes)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        failAt(bytes, error);
    return document.object();
}

void checkFormat(const QJsonObject &object)
{
    if (object[formatKey].toString() != formatName)
        throw QCoreApplication::translate("SongFile", "This is not a song file.");
    const auto found = object[versionKey].toDouble();
    if (found > SongFile::version)
        throw QCoreApplication::translate("SongFile", "The song was saved by a newer version of this program (song "
                                                      "format %1; this version reads up to %2).")
            .arg(found)
            .arg(SongFile::version);
    if (found < 1)
        throw QCoreApplication::translate("SongFile", "The song file is damaged: \"version\" is missing.");
}

} // namespace

namespace SongFile {

QByteArray toBytes(const Song &song, const QString &folder)
{
    SongJson::check(song);
    SongJson::checkSize(song); // before it is tried
    auto written = song;
    if (!folder.isEmpty())
        changePaths(written, [&](const QString &path) { return relativePath(path, folder); });
    auto object = SongJson::fromSong(written);
    object[formatKey] = formatName;
    object[versionKey] = version;
    const auto bytes = writeJson(object, JsonLayout::Lines, SongJson::memberOrder()) + '\n';
    SongJson::checkSize(bytes.size());
    return bytes;
}

Song fromBytes(const QByteArray &bytes, const QString &folder)
{
    SongJson::checkSize(bytes.size());
    const auto object = parse(bytes);
    checkFormat(object);
    Song song;
    try {
        song = SongJson::toSong(object);
    } catch (const QString &where) {
        throw QCoreApplication::translate("SongFile", "The song file is damaged. %1").arg(where);
    }
    changePaths(song, [&](const QString &path) { return absolutePath(path, folder); });
    return song;
}

} // namespace SongFile
