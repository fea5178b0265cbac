#include "ui/timeline/SpokenPosition.h"

#include <QCoreApplication>

#include <algorithm>

namespace SpokenPosition {

QString text(const Measures &measures, Ticks position)
{
    const auto measure = measures.at(position);
    return QCoreApplication::translate("SpokenPosition", "Measure %1, beat %2")
        .arg(measure.number)
        .arg((position - measure.start) / measure.beat + 1);
}

SpokenWidget::Range range(const Measures &measures, Ticks position, Ticks length)
{
    const auto last = measures.at(std::max(length - 1, Ticks(0))).number;
    return {double(measures.at(position).number), 1, double(last), 1};
}

Ticks tick(const Measures &measures, double number)
{
    const auto wanted = std::max(qint64(1), qint64(number));
    const auto &sections = measures.sections();
    const auto behind = std::find_if(sections.begin() + 1, sections.end(),
                                     [&](const Measures::Section &section) { return section.firstNumber > wanted; });
    const auto &section = *(behind - 1);
    return section.start + (wanted - section.firstNumber) * section.measure;
}

} // namespace SpokenPosition
