#include "app/exporting/PartFiles.h"

#include "app/services/SongSession.h"
#include "base/ErrorText.h"
#include "base/SafeFile.h"
#include "song/SongParts.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>

namespace {

const auto fileList = QStringLiteral("text/uri-list");
const auto plainText = QStringLiteral("text/plain");
const auto copiedFiles = QStringLiteral("x-special/gnome-copied-files"); // which some file managers paste alone

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using WantedType = QVariant::Type;
#else
using WantedType = QMetaType;
#endif

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PartFiles)
};

} // namespace

struct PartFiles::Folder
{
    std::unique_ptr<QTemporaryDir> folder;
    int count = 0;

    // A new one each time, since another program may still read what has the same name. Throws a QString.
    QString next()
    {
        if (!folder)
            folder = std::make_unique<QTemporaryDir>();
        const auto path = folder->filePath(QString::number(++count));
        if (!folder->isValid() || !QDir().mkpath(path))
            throw folder->errorString();
        return path;
    }
};

// Makes each format when it is asked for, by a drop or a program that pastes.
class PartFiles::Data : public QMimeData
{
public:
    struct Part
    {
        std::shared_ptr<const Track> track;
        QString file;

        QString text() const { return Track(*track).toAbc(); }
    };

    // The dialogs outlive the window.
    Data(const QVector<Part> &parts, const std::shared_ptr<Folder> &folder, const CommandContext &context)
        : parts_(parts), folder_(folder), dialogs_(context.dialogs), window_(&context.window)
    {
    }

    QStringList formats() const override { return {fileList, copiedFiles, plainText}; }

protected:
    QVariant retrieveData(const QString &format, WantedType) const override
    {
        if (format == plainText)
            return text();
        if (format != fileList && format != copiedFiles)
            return {};
        QVariantList urls;
        QByteArray copied = "copy";
        for (const auto &url : files()) {
            urls.append(url);
            copied += '\n' + url.toEncoded();
        }
        return format == copiedFiles ? QVariant(copied) : QVariant(urls);
    }

private:
    QString text() const
    {
        QStringList texts;
        for (const auto &part : parts_)
            texts.append(part.text());
        return texts.join(u'\n'); // an empty line between tunes
    }

    QList<QUrl> files() const
    {
        if (!files_.isEmpty())
            return files_;
        try {
            const auto folder = folder_->next();
            QList<QUrl> files;
            for (const auto &part : parts_) {
                const auto path = folder + u'/' + part.file;
                SafeFile::write(path, part.text().toUtf8());
                files.append(QUrl::fromLocalFile(path));
            }
            files_ = files;
        } catch (...) {
            tellFailure(currentErrorText());
        }
        return files_;
    }

    // When whoever asks has had an answer.
    void tellFailure(const QString &error) const
    {
        if (!window_)
            return;
        const auto tell = [&dialogs = dialogs_, window = window_, error] {
            dialogs.message(window, Dialogs::Severity::Critical, Texts::tr("Copy as File"), error);
        };
        QMetaObject::invokeMethod(window_, tell, Qt::QueuedConnection);
    }

    QVector<Part> parts_;
    std::shared_ptr<Folder> folder_;
    Dialogs &dialogs_;
    QPointer<QWidget> window_;
    mutable QList<QUrl> files_; // once they are written
};

PartFiles::PartFiles(const CommandContext &context) : context_(context), folder_(std::make_shared<Folder>()) {}

QVector<ActionRow> PartFiles::actions()
{
    return {{"actionCopy_as_File", Texts::tr("Copy as File"), "Ctrl+C",
             Texts::tr("Copy the track that has the keys, or all that are selected with it, as ABC files"), "",
             "onCopyAsFile()", Available::WithTracks}};
}

std::unique_ptr<QMimeData> PartFiles::dataOf(const QStringList &ids)
{
    const auto names = SongParts::fileNames(context_.session.songToSave(), context_.session.name());
    const auto &song = context_.tracks.song();
    QVector<Data::Part> parts;
    for (int i = 0; i < song.size(); ++i) {
        if (ids.contains(song[i]->id))
            parts.append({song[i]->track, names[i]});
    }
    return std::make_unique<Data>(parts, folder_, context_);
}

void PartFiles::copy(const QStringList &ids)
{
    QGuiApplication::clipboard()->setMimeData(dataOf(ids).release());
}
