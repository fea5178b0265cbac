#include "MelodicInstruments.h"

#include "Voices.h"

#include <algorithm>
#include <array>

namespace {

constexpr auto wav = SampleFormat::Wav;
constexpr auto vorbis = SampleFormat::Vorbis;

constexpr std::array<MelodicInstrument, 13> instruments{{
    {"Accordion", "accordion", "Three reeds to a key, two of them a shade apart.", accordion, 45, 93, 4, 5, 0.24, 0.08},
    {"Bass", "bass", "Four long strings, plucked with two fingers.", bass, 28, 60, 4, 3.5, 0.31, 0.1, wav, 22050},
    {"Bells", "bells", "Hand bells of polished brass.", bells, 60, 96, 3, 3, 0.24, 0.8},
    {"Choir", "choir", "Four singers and one vowel.", choir, 43, 84, 3, 5, 0.125, 0.35},
    {"Fiddle", "fiddle", "Plays at weddings and wherever else it hears a foot tap.", fiddle, 55, 97, 3, 5, 0.18, 0.12},
    {"Flute", "flute", "Turned from pear wood, with one key.", flute, 60, 96, 3, 5, 0.22, 0.1},
    {"Harp", "harp", "Thirty-six strings of gut.", harp, 36, 96, 4, 4, 0.21, 0.7},
    {"Lute", "lute", "Double courses over a belly of spruce.", lute, 40, 85, 3, 2.5, 0.25, 0.15, vorbis, 48000, 2},
    {"Marimba", "marimba", "Bars of rosewood and soft mallets.", marimba, 45, 96, 3, 1.4, 0.3, 0.25, wav},
    {"Music Box", "musicbox", "Wind it up and it forgets its troubles.", musicBox, 60, 100, 4, 2.5, 0.23, 0.6},
    {"Oboe", "oboe", "A double reed that gives the others their A.", oboe, 58, 91, 3, 5, 0.18, 0.1},
    {"Organ", "organ", "Five ranks of pipes and a boy at the bellows.", organ, 36, 96, 4, 5, 0.1, 0.2},
    {"Panpipes", "panpipes", "Cut from one stand of reeds.", panpipes, 55, 91, 3, 4, 0.2, 0.12},
}};

} // namespace

const MelodicInstrument &melodicInstrument(const QString &kind)
{
    const auto isWanted = [&kind](const MelodicInstrument &instrument) {
        return QLatin1String(instrument.kind) == kind;
    };
    const auto found = std::find_if(instruments.begin(), instruments.end(), isWanted);
    if (found == instruments.end())
        throw QStringLiteral("There is no instrument of the kind %1.").arg(kind);
    return *found;
}
