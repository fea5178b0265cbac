#include "app/services/SongImport.h"

#include "settings/Settings.h"

namespace {

ReadingOptions optionsOf(const Settings &settings)
{
    auto options = readingOptions([&](Settings::Setting setting) { return settings.value(setting); });
    options.tracks = ReadingOptions::Tracks::ToBeShown;
    return options;
}

} // namespace

SongImport::SongImport(const Settings &settings, QObject *parent) : QObject(parent), settings_(settings) {}

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
    const QPointer<SongImport> self(this);
    const auto work = [self, request, options = optionsOf(settings_)](const std::stop_token &stop) {
        return readSong(request.sources, options, stop, [&](int number) {
            QMetaObject::invokeMethod(
                qApp,
                [self, request, number] {
                    if (self && self->isRunning() && number > 0)
                        emit self->progress(request.status, number, int(request.sources.size()));
                },
                Qt::QueuedConnection);
        });
    };
    task_.start(this, work, [this, request](const ReadSong &song) {
        requests_.dequeue();
        if (requests_.isEmpty())
            emit idle();
        else
            readNext();
        emit imported(request, song); // last: whoever shows an error now may wait long
    });
}
