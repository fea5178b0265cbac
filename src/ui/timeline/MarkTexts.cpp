#include "ui/timeline/MarkTexts.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

constexpr int margin = 4; // beside what a text belongs to
constexpr int gap = 10;

class MarkRow
{
public:
    explicit MarkRow(const QFontMetrics &metrics) : metrics_(metrics) {}

    double free() const { return free_; }
    const QVector<MarkPlace> &places() const { return places_; }

    void add(const TrackEvent &mark, double x)
    {
        places_.append({x, markText(mark)});
        free_ = x + metrics_.horizontalAdvance(places_.last().text) + gap;
    }

private:
    const QFontMetrics &metrics_;
    double free_ = margin;
    QVector<MarkPlace> places_;
};

} // namespace

QString markText(const TrackEvent &mark)
{
    if (mark.kind() == TrackEvent::Metre && mark.denominator() == 0)
        return QCoreApplication::translate("MarkTexts", "free");
    const auto fraction = QStringLiteral("%1/%2").arg(mark.numerator()).arg(mark.denominator());
    if (mark.kind() == TrackEvent::Metre)
        return fraction;
    const bool isQuarter = mark.numerator() == 1 && mark.denominator() == 4;
    return (isQuarter ? QStringLiteral("♩") : fraction) + QStringLiteral(" = %1").arg(mark.bpm());
}

QVector<MarkPlace> placeMarks(const std::vector<TrackEvent> &marks, Ticks first, double width,
                              const QFontMetrics &metrics, const std::function<double(Ticks)> &x)
{
    const auto startsBefore = [](const TrackEvent &mark, Ticks tick) { return mark.start() < tick; };
    const auto firstVisible = std::lower_bound(marks.begin(), marks.end(), first + 1, startsBefore);
    MarkRow row(metrics);
    for (const auto kind : {TrackEvent::Metre, TrackEvent::Tempo}) {
        const auto isOfKind = [kind](const TrackEvent &mark) { return mark.kind() == kind; };
        const auto holding = std::find_if(std::make_reverse_iterator(firstVisible), marks.rend(), isOfKind);
        if (holding != marks.rend())
            row.add(*holding, row.free());
    }
    Ticks shownAt = -1;
    for (auto mark = firstVisible; mark != marks.end() && x(mark->start()) <= width; ++mark) {
        const auto at = x(mark->start()) + margin;
        if (at < row.free() && mark->start() != shownAt)
            continue;
        shownAt = mark->start();
        row.add(*mark, std::max(at, row.free()));
    }
    return row.places();
}
