#include "check/findings/LiveFindings.h"

#include <algorithm>
#include <utility>

namespace {

// Whether it is about the part as a whole, which stands nowhere.
bool isOfPart(const Finding &finding)
{
    return finding.range.isEmpty();
}

} // namespace

void LiveFindings::take(QVector<Finding> findings)
{
    findings_ = std::move(findings);
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const Finding &a, const Finding &b) { return a.range.offset < b.range.offset; });
}

void LiveFindings::takeRefusals(const QVector<AbcProblem> &problems)
{
    QVector<Finding> findings;
    for (const auto &problem : problems)
        findings.append({FindingKind::RefusedText, problem.range, -1, {problem.message}});
    std::copy_if(findings_.begin(), findings_.end(), std::back_inserter(findings),
                 [](const Finding &finding) { return finding.kind != FindingKind::RefusedText; });
    take(findings);
}

void LiveFindings::addTyping(int position, int removed, int added)
{
    const auto isGone = [=](const Finding &finding) {
        return !isOfPart(finding) && finding.range.offset < position + removed && position < finding.range.end();
    };
    findings_.erase(std::remove_if(findings_.begin(), findings_.end(), isGone), findings_.end());
    for (auto &finding : findings_) {
        finding.fix.clear();
        if (!isOfPart(finding) && finding.range.offset >= position + removed)
            finding.range.offset += added - removed;
    }
}

QVector<Finding> LiveFindings::at(TextRange range) const
{
    QVector<Finding> found;
    std::copy_if(findings_.begin(), findings_.end(), std::back_inserter(found), [range](const Finding &finding) {
        return !isOfPart(finding) && finding.range.offset <= range.end() && range.offset <= finding.range.end();
    });
    return found;
}
