#include "check/text/NoteFixes.h"

#include <algorithm>

void addFixes(const NoteFixes &fixes, QVector<Finding> &findings)
{
    if (fixes.empty())
        return;
    for (auto &finding : findings) {
        if (finding.kind != FindingKind::OutOfRange && finding.kind != FindingKind::NoSample)
            continue;
        const auto fix = std::lower_bound(fixes.begin(), fixes.end(), finding.range.offset,
                                          [](const NoteFix &each, int offset) { return each.offset < offset; });
        if (fix != fixes.end() && fix->offset == finding.range.offset)
            finding.fix = fix->changes;
    }
}
