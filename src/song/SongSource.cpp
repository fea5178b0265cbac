#include "song/SongSource.h"

#include "import/MmlImport.h"
#include "song/Song.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace {

using Kind = SongSource::Kind;

struct Place
{
    qsizetype begin = 0;
    int line = 1;
};

QVector<Place> tuneBegins(const QString &text)
{
    QVector<Place> begins{{}};
    bool hasNumber = false; // the tune so far
    bool isParted = false;  // an empty line has been met since
    Place at;
    for (qsizetype end = 0; at.begin < text.size(); at = {end + 1, at.line + 1}) {
        end = text.indexOf(u'\n', int(at.begin));
        end = end < 0 ? text.size() : end;
        const auto line = QStringView(text).mid(at.begin, end - at.begin);
        if (line.startsWith(u"X:")) {
            if (hasNumber && isParted)
                begins.append(at);
            hasNumber = true;
            isParted = false;
        } else if (line.trimmed().isEmpty()) {
            isParted = true;
        }
    }
    return begins;
}

QString withoutEmptyLines(QStringView tune)
{
    auto end = tune.size();
    while (end > 0 && tune[end - 1].isSpace())
        --end;
    while (tune[end] != u'\n') // blanks at the end of the last line belong to it
        ++end;
    return tune.left(end).toString();
}

} // namespace

SongSource sourceOf(const QString &path)
{
    const auto suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"mid" || suffix == u"midi" || suffix == u"kar") // the last with lyrics
        return {Kind::MidiFile, path};
    if (suffix == u"kvsong")
        return {Kind::SongFile, path};
    return {suffix == u"abc" ? Kind::AbcFile : Kind::TextFile, path};
}

SongSource sourceOf(const SongImported &imported)
{
    return imported.path.isEmpty() ? sourcesOf(imported.text).value(0) : sourceOf(imported.path);
}

QVector<SongSource> sourcesOf(const QMimeData &data, FileOrigin origin)
{
    QVector<SongSource> sources;
    for (const auto &url : data.urls()) {
        const auto name = url.toLocalFile();
        const auto endsWith = [&](const char *suffix) {
            return name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
        };
        if (endsWith(".abc"))
            sources.append({Kind::AbcFile, name});
        else if (endsWith(".mid") || endsWith(".kar") || (origin == FileOrigin::Pasted && endsWith(".midi")))
            sources.append({Kind::MidiFile, name});
        else if (endsWith(".kvsong"))
            sources.append({Kind::SongFile, name});
    }
    return sources;
}

QVector<SongSource> sourcesOf(const QString &text)
{
    if (text.startsWith(QLatin1String("X:")))
        return {{Kind::AbcText, text}};
    if (text.startsWith(QLatin1String("MML@")) || looksLikeMml(text))
        return {{Kind::MmlText, text}};
    return {};
}

QVector<Tune> tunesOf(const QString &text)
{
    const auto begins = tuneBegins(text);
    if (begins.size() == 1)
        return {{text}};
    QVector<Tune> tunes;
    for (int i = 0; i + 1 < begins.size(); ++i) {
        const auto [begin, line] = begins[i];
        tunes.append({withoutEmptyLines(QStringView(text).mid(begin, begins[i + 1].begin - begin)), line});
    }
    tunes.append({text.mid(int(begins.last().begin)), begins.last().line});
    return tunes;
}
