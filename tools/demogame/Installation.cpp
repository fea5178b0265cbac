#include "Installation.h"

#include "InstrumentFiles.h"
#include "packages/CurrentPackage.h"
#include "packages/LegacyPackage.h"

#include <QFileInfo>
#include <QSaveFile>

#include <future>
#include <map>
#include <string>
#include <vector>

namespace {

const QByteArray readme =
    "A demo installation of Kelvarion: its instruments, and nothing else of the game. Kelvarion Composer plays with\n"
    "them where the game itself is not installed. Samples and pictures are made by a program and are free to use.\n";

// The program that every installation is known by. It is written last, so that a half-written one is none.
const QByteArray program =
    "#!/bin/sh\necho \"This is a demo installation; it has the instruments of the game only.\"\n";

void writeFile(const QDir &root, const QString &path, const QByteArray &bytes)
{
    const QFileInfo target(root.absoluteFilePath(path));
    if (!root.mkpath(target.path()))
        throw QStringLiteral("Could not make the directory %1.").arg(target.path());
    QSaveFile file(target.filePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw QStringLiteral("%1: %2").arg(target.filePath(), file.errorString());
}

void writeLoose(const QDir &root, const QString &directory, const Files &files)
{
    for (const auto &[path, bytes] : files)
        writeFile(root, directory + path, bytes);
}

// Renders all instruments side by side.
class Instruments
{
public:
    explicit Instruments(const std::vector<const char *> &kinds)
    {
        for (const auto *kind : kinds)
            rendering_.emplace(kind, std::async(std::launch::async, instrumentFiles, QString::fromUtf8(kind)));
    }

    // Each kind once.
    Files take(const std::vector<const char *> &kinds)
    {
        Files files;
        for (const auto *kind : kinds)
            files.merge(rendering_.at(kind).get());
        return files;
    }

private:
    std::map<std::string, std::future<Files>> rendering_;
};

Files below(const QString &prefix, const Files &files)
{
    Files moved;
    for (const auto &[path, bytes] : files)
        moved.emplace(prefix + path, bytes);
    return moved;
}

QVariantMap metadata()
{
    return {{QStringLiteral("name"), QStringLiteral("demo")},
            {QStringLiteral("priority"), QVariant::fromValue<quint64>(300)},
            {QStringLiteral("version"), 0.25},
            {QStringLiteral("demo"), true},
            {QStringLiteral("tags"), QVariantList{QStringLiteral("music"), QStringLiteral("instruments")}},
            {QStringLiteral("author"), QVariantMap{{QStringLiteral("name"), QStringLiteral("Kelvarion Composer")}}}};
}

void writeGame(const QDir &root, Instruments &instruments)
{
    const auto packed = instruments.take({"bass", "bells", "choir", "drums", "flute", "lute", "organ"});
    writeFile(root, QStringLiteral("assets/packed.pak"), currentPackage(packed, metadata()));
    const auto legacy = instruments.take({"accordion", "fiddle", "marimba"});
    writeFile(root, QStringLiteral("assets/legacy.pak"), legacyPackage(legacy));
    writeLoose(root, QStringLiteral("assets"), instruments.take({"harp"}));
    writeLoose(root, QStringLiteral("assets/user"), instruments.take({"oboe"}));
}

void writeMods(const QDir &root, Instruments &instruments)
{
    writeFile(root, QStringLiteral("mods/reedcutter/reedcutter.modinfo"),
              "{\n    \"name\": \"reedcutter\",\n    \"path\": \"content\" // where its assets are\n}\n");
    writeLoose(root, QStringLiteral("mods/reedcutter/content"), instruments.take({"panpipes"}));

    auto clockwork = below(QStringLiteral("/clockwork"), instruments.take({"musicbox"}));
    clockwork.emplace(QStringLiteral("pak.modinfo"),
                      "// A packed mod\n{\n    \"name\": \"clockwork\",\n    \"path\": \"clockwork\"\n}\n");
    writeFile(root, QStringLiteral("mods/clockwork.modpak"), currentPackage(clockwork, {}));
}

} // namespace

void writeInstallation(const QDir &root)
{
    Instruments instruments({"accordion", "bass", "bells", "choir", "drums", "fiddle", "flute", "harp", "lute",
                             "marimba", "musicbox", "oboe", "organ", "panpipes"});
    writeGame(root, instruments);
    writeMods(root, instruments);
    writeFile(root, QStringLiteral("README.txt"), readme);
    writeFile(root, QStringLiteral("linux64/kelvarion"), program);
}
