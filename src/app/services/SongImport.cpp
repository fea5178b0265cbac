#include "app/services/SongImport.h"

#include "settings/Settings.h"

#include <algorithm>

SongImport::SongImport(const Settings &settings, QObject *parent) : QObject(parent), settings_(settings) {}

ReadingOptions SongImport::optionsOf(const ImportRequest &request) const
{
    auto options = request.options
                       ? *request.options
                       : readingOptions([this](Settings::Setting setting) { return settings_.value(setting); });
    if (!request.options && foreignAbc() != ForeignAbc::OpenAsItIs)
        options.abc = AbcDialect::Auto;
    options.tracks = ReadingOptions::Tracks::ToBeShown;
    return options;
}

ForeignAbc SongImport::foreignAbc() const
{
    return ForeignAbc(std::clamp(settings_.value(Settings::AbcForeign).toInt(), 0, int(ForeignAbc::OpenAsItIs)));
}

void SongImport::start(const ImportRequest &request)
{
    requests_.enqueue(request);
    if (requests_.size() == 1)
        readNext();
}

void SongImport::cancel()
{
    task_.cancel();
    if (!requests_.isEmpty()) {
        requests_.clear();
        emit idle();
    }
}

void SongImport::readNext()
{
    const auto request = requests_.head();
    emit progress(request.status, 0, int(request.sources.size()));
    const auto work = [request, options = optionsOf(request)](const TaskControl &control) {
        return readSong(request.sources, options, control.stop(),
                        [&](int number) { control.report(number, int(request.sources.size())); });
    };
    const auto take = [this, request, number = ++reading_](const ReadSong &song) {
        leave(number);
        emit imported(request, song); // last: whoever shows an error now may wait long
    };
    task_.onProgress([this, request](TaskProgress reached) {
        if (reached.done > 0)
            emit progress(request.status, reached.done, reached.total);
    });
    task_.start(work, take, [take, request](const QString &error) { take({{}, {{request.step, error}}, {}}); });
}

void SongImport::leave(int number)
{
    if (number != reading_ || requests_.isEmpty())
        return;
    requests_.dequeue();
    if (requests_.isEmpty())
        emit idle();
    else
        readNext();
}
