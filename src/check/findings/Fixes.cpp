#include "check/findings/Fixes.h"

#include <algorithm>

namespace {

bool begins(const Finding *a, const Finding *b)
{
    return a->fix.first().range.offset < b->fix.first().range.offset;
}

} // namespace

QVector<TextChange> combinedFixes(const QVector<Finding> &findings, std::optional<FindingKind> kind)
{
    QVector<const Finding *> fixable;
    for (const auto &finding : findings) {
        if (!finding.fix.isEmpty() && finding.kind == kind.value_or(finding.kind))
            fixable.append(&finding);
    }
    std::stable_sort(fixable.begin(), fixable.end(), begins);
    QVector<TextChange> changes;
    for (const auto *finding : fixable) {
        const bool isFree = changes.isEmpty() || changes.last().range.end() <= finding->fix.first().range.offset;
        if (isFree)
            changes += finding->fix;
    }
    return changes;
}
