#include "import/GameAbc.h"

#include "core/AbcListener.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

class GameListener : public AbcListener
{
public:
    explicit GameListener(PartReport &report) : report_(report) {}

    void bodyBegins(int, quint32) override {}
    void token(const AbcToken &token) override;
    void elementBegins(const AbcToken &, bool, bool) override;
    void note(const AbcToken &, const AbcPitch &) override {}
    void elementEnds(const AbcToken &) override {}
    void elementSounds(Ticks end) override { position_ = end; }
    void barLine(const AbcToken &token, quint32 keyRow, Ticks position) override;
    void keyChange(const AbcToken &, quint32) override {}
    void tieLost(const TrackEvent &note) override { lostTies_.push_back(note.end()); }
    void takeTies(); // once all are known

private:
    PartReport &report_;
    Ticks position_ = 0;
    Ticks musicEnd_ = 0; // where the bar lines since the last element found the music
    bool isBehindBarLine_ = false;
    std::vector<Ticks> lostTies_;
};

void GameListener::token(const AbcToken &token)
{
    if (token.type == AbcTokenType::Tie)
        lostTies_.push_back(position_);
}

void GameListener::takeTies()
{
    std::sort(lostTies_.begin(), lostTies_.end());
    for (const auto place : lostTies_)
        report_.add(ImportFinding::TieLost, place);
}

void GameListener::barLine(const AbcToken &token, quint32, Ticks position)
{
    if (token.text.startsWith(u':'))
        report_.add(ImportFinding::RepeatNotPlayed, position_);
    if (!isBehindBarLine_)
        musicEnd_ = position_;
    isBehindBarLine_ = true;
    position_ = position;
}

// What bar lines do behind the last element is not heard.
void GameListener::elementBegins(const AbcToken &, bool, bool)
{
    if (!std::exchange(isBehindBarLine_, false))
        return;
    if (position_ > musicEnd_) {
        report_.add(ImportFinding::BarLineSilence, musicEnd_);
        report_.barLineSilence += position_ - musicEnd_;
    } else if (position_ < musicEnd_) {
        report_.add(ImportFinding::BarLineOverlap, position_);
    }
}

} // namespace

Track parseAbcWithReport(const QString &text, PartReport &report, const std::stop_token &stop)
{
    GameListener listener(report);
    auto track = parseAbc(text, stop, &listener);
    listener.takeTies();
    report.notes = track.noteCount();
    if (report.notes > 0 && !track.hasHeaderField(QStringLiteral("Q")))
        report.add(ImportFinding::DefaultTempo, 0);
    return track;
}
