#include "app/commands/ImportCommands.h"

#include "app/commands/ImportQueue.h"
#include "app/commands/SongCommands.h"
#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/report/ImportAgainDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QMap>
#include <QMenu>
#include <QMimeData>

#include <algorithm>

namespace {

constexpr int longestList = 20; // lines of a message

// What is chosen to be opened is ABC unless its name says something else.
SongSource chosenSource(const QString &file)
{
    auto source = sourceOf(file);
    const auto suffix = QFileInfo(file).suffix().toLower();
    if (source.kind == SongSource::Kind::TextFile && suffix != u"mml")
        source.kind = SongSource::Kind::AbcFile;
    return source;
}

QString nameOf(const QStringList &files)
{
    const auto first = QFileInfo(files.first()).fileName();
    return files.size() == 1 ? first : ImportCommands::tr("%1 and %n more", nullptr, int(files.size()) - 1).arg(first);
}

} // namespace

QVector<ActionRow> ImportCommands::actions()
{
    return {
        {"actionOpen", tr("Open"), "Ctrl+O", tr("Open ABC files or a song"), "open", "onLoadABC()"},
        {"actionImport_MIDI", tr("Import MIDI"), "Ctrl+Shift+M", tr("Import MIDI file into the editor"), "midiimport",
         "onImportMidi()"},
        {"actionImport_from_Clipboard", tr("Import from Clipboard"), "Ctrl+V",
         tr("Import an ABC track from the clipboard"), "clipboard", "onImportClipboard()"},
        {"actionImport_Again", tr("Import Again..."), "",
         tr("Read a file that parts came from again, with other settings"), "", "onImportAgain()",
         Available::WithImports},
    };
}

void ImportCommands::openAbc()
{
    const auto start = context_.settings.value(Settings::AbcOpenDir).toString();
    const auto files = context_.dialogs.openFiles(&context_.window, tr("Choose ABC file(s) to open"), start,
                                                  tr("ABC files (*.abc)") + tr(";;Songs (*.kvsong)") +
                                                      tr(";;All music (*.abc *.kvsong *.mid *.midi *.kar *.mml)"));
    if (files.isEmpty())
        return;
    context_.settings.setValue(Settings::AbcOpenDir, QFileInfo(files.first()).absolutePath());
    QVector<SongSource> sources;
    for (const auto &file : files)
        sources.append(chosenSource(file));
    if (openSong(sources))
        return;
    ImportRequest request{tr("Open Tracks"), tr("Loading ABC files..."), sources};
    request.tunes = ImportRequest::Tunes::Chosen;
    request.preview = ImportRequest::Preview::IfPreferred;
    queue_.load(request);
}

void ImportCommands::importMidi()
{
    const auto start = context_.settings.value(Settings::MidiOpenDir).toString();
    const auto file =
        context_.dialogs.openFile(&context_.window, tr("Choose MIDI file to import..."), start,
                                  tr("MIDI files (*.mid)") + tr(";;Other endings of MIDI files (*.midi *.kar)"));
    if (file.isEmpty())
        return;
    context_.settings.setValue(Settings::MidiOpenDir, QFileInfo(file).absolutePath());
    ImportRequest request{tr("Import MIDI"), tr("Loading MIDI file..."), {{SongSource::Kind::MidiFile, file}}};
    request.preview = ImportRequest::Preview::IfPreferred;
    queue_.askAndLoad(tr("Import MIDI"), request);
}

void ImportCommands::importClipboard()
{
    const auto title = tr("Import from clipboard");
    const auto *const content = QApplication::clipboard()->mimeData();
    if (!content || !(content->hasText() || content->hasUrls())) {
        context_.dialogs.message(&context_.window, Dialogs::Severity::Information, title,
                                 tr("The clipboard does not contain anything to import."));
        return;
    }
    const auto step = tr("Paste Tracks");
    if (!content->hasUrls()) {
        ImportRequest request{step, tr("Reading the clipboard..."), sourcesOf(content->text())};
        request.preview = ImportRequest::Preview::IfPreferred;
        queue_.load(request);
    } else if (const auto sources = sourcesOf(*content, FileOrigin::Pasted); !openSong(sources)) {
        queue_.askAndLoad(title, {step, tr("Loading files..."), sources});
    }
}

QVector<SongImported> ImportCommands::importsToReadAgain() const
{
    auto imports = context_.session.imports();
    const auto isUseless = [this](const SongImported &imported) {
        return (imported.path.isEmpty() && imported.text.isEmpty()) || context_.session.partsOf(imported.id).isEmpty();
    };
    imports.erase(std::remove_if(imports.begin(), imports.end(), isUseless), imports.end());
    return imports;
}

void ImportCommands::importAgain()
{
    const auto imports = importsToReadAgain();
    ImportAgainDialog dialog(imports, context_.settings, &context_.window);
    if (imports.isEmpty() || !context_.dialogs.run(dialog))
        return;
    const auto &imported = imports[dialog.chosen()];
    ImportRequest request{tr("Import Again"), tr("Loading files..."), {sourceOf(imported)}};
    request.readAgain = imported.id;
    request.options = readingOptions(dialog.settings());
    const auto kind = request.sources.first().kind;
    const bool isAbc = kind == SongSource::Kind::AbcFile || kind == SongSource::Kind::AbcText;
    request.options->abc = isAbc ? AbcDialect::Standard : AbcDialect::Auto;
    request.tunes = ImportRequest::Tunes::Chosen;
    queue_.load(request);
}

void ImportCommands::openFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    QMimeData files;
    QList<QUrl> urls;
    for (const auto &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    files.setUrls(urls);
    const auto sources = sourcesOf(files, FileOrigin::Pasted);
    if (sources.isEmpty())
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, tr("Open Files"),
                                 tr("These are no ABC or MIDI files, and no songs."));
    else if (!openSong(sources))
        queue_.askAndLoad(tr("Import Files"), {tr("Open Files"), tr("Loading files..."), sources});
}

bool ImportCommands::acceptsDrop(const QMimeData &data)
{
    return !sourcesOf(data, FileOrigin::Dropped).isEmpty();
}

// Where the files come from waits for the end of the drop, not for an answer.
void ImportCommands::takeDrop(const QMimeData &data)
{
    const auto loadDropped = [this, sources = sourcesOf(data, FileOrigin::Dropped)] {
        if (!openSong(sources))
            queue_.askAndLoad(tr("Import Files"), {tr("Drop Files"), tr("Loading files..."), sources});
    };
    QMetaObject::invokeMethod(&queue_, loadDropped, Qt::QueuedConnection);
}

void ImportCommands::fillRecentMenu(QMenu &menu)
{
    menu.clear();
    for (const auto &recent : RecentFiles::list(context_.settings)) {
        const auto files = RecentFiles::filesOf(recent);
        auto *const entry = menu.addAction(nameOf(files).replace(u'&', QStringLiteral("&&")));
        entry->setToolTip(files.mid(0, longestList).join(u'\n'));
        entry->setStatusTip(files.join(QStringLiteral(", ")));
        QObject::connect(entry, &QAction::triggered, &context_.window, [=, this] { openRecent(recent); });
    }
}

// An entry whose files are gone goes when it is asked for.
void ImportCommands::openRecent(const QString &entry)
{
    const auto files = RecentFiles::filesOf(entry);
    if (std::none_of(files.begin(), files.end(), [](const auto &file) { return QFileInfo::exists(file); }))
        RecentFiles::forget(context_.settings, entry);
    openFiles(files);
}

bool ImportCommands::openSong(const QVector<SongSource> &sources)
{
    const bool isSong = sources.size() == 1 && sources.first().kind == SongSource::Kind::SongFile;
    if (isSong)
        songs_.open(sources.first().content);
    return isSong;
}

void ImportCommands::offerToReadAgain(const QStringList &ids)
{
    QMap<QString, QStringList> idsByPath;
    for (const auto &id : ids) {
        if (context_.tracks.isFiled(id))
            idsByPath[context_.tracks.filePath(id)].append(id);
    }
    const QStringList paths = idsByPath.keys();
    const auto question = tr("%n file(s) were changed by another program:\n%1\nWould you like to read them again?",
                             nullptr, int(paths.size()))
                              .arg(paths.mid(0, longestList).join(u'\n'));
    if (paths.isEmpty() || context_.dialogs.ask(&context_.window, tr("Changed Files"), question) == Dialogs::Answer::No)
        return;
    for (const auto &path : paths) {
        ImportRequest request{tr("Read Again"), tr("Loading files..."), {{SongSource::Kind::AbcFile, path}}};
        request.replaced = idsByPath[path];
        request.options = ReadingOptions(); // as it was opened: what was converted has no file
        queue_.load(request);
    }
}
