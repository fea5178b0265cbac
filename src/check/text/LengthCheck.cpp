#include "check/text/LengthCheck.h"

#include "check/text/UnitLengthChange.h"
#include "import/UnitLength.h"

#include <QCoreApplication>

QVector<Finding> checkLength(const TextCheck &part, const CheckOptions &options)
{
    const auto size = int(part.text.size());
    if (options.mostCharacters == 0 || size <= options.mostCharacters)
        return {};
    Finding finding{
        FindingKind::LongText, {}, -1, {QString::number(size), QString::number(options.mostCharacters), {}}};
    const auto shortest = shortestUnitLength(part.text);
    const auto changes = withUnitLength(part.text, shortest);
    const auto newSize = int(applyChanges(part.text, changes).size());
    if (newSize < size) {
        finding.values[2] = u' ' + QCoreApplication::translate("Finding", "With L:%1 it would have %2.")
                                       .arg(unitLengthText(shortest))
                                       .arg(newSize);
        finding.fix = changes;
    }
    return {finding};
}
