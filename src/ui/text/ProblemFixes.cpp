#include "ui/text/ProblemFixes.h"

#include "check/findings/FindingKinds.h"
#include "ui/document/EditorDocument.h"

#include <QMenu>

#include <algorithm>
#include <iterator>

namespace {

QVector<Finding> withFix(QVector<Finding> findings)
{
    findings.erase(
        std::remove_if(findings.begin(), findings.end(), [](const Finding &finding) { return finding.fix.isEmpty(); }),
        findings.end());
    return findings;
}

QVector<Finding> ofKind(FindingKind kind, const QVector<Finding> &findings)
{
    QVector<Finding> found;
    std::copy_if(findings.begin(), findings.end(), std::back_inserter(found),
                 [kind](const Finding &finding) { return finding.kind == kind; });
    return found;
}

} // namespace

namespace ProblemFixes {

bool areThere(const QVector<Finding> &findings)
{
    return !withFix(findings).isEmpty();
}

void addTo(QMenu &menu, EditorDocument &document, const QVector<Finding> &findings)
{
    auto *const rest = menu.actions().value(0);
    const auto add = [&](const QString &text, const QVector<Finding> &fixed) {
        auto *const action = new QAction(text, &menu);
        QObject::connect(action, &QAction::triggered, &document, [&document, fixed] { document.fix(fixed); });
        menu.insertAction(rest, action);
    };
    for (const auto &finding : withFix(findings)) {
        const auto fix = FindingKinds::fixText(finding.kind);
        add(fix, {finding});
        const auto same = withFix(ofKind(finding.kind, document.findings()));
        if (same.size() > 1)
            add(QMenu::tr("%1, everywhere (%2)").arg(fix).arg(same.size()), same);
    }
    if (rest != nullptr && areThere(findings))
        menu.insertSeparator(rest);
}

bool fixOrAsk(EditorDocument &document, const QVector<Finding> &findings, const QPoint &place)
{
    const auto fixable = withFix(findings);
    if (fixable.size() == 1) {
        document.fix(fixable);
    } else if (!fixable.isEmpty()) {
        auto *const menu = new QMenu;
        menu->setAttribute(Qt::WA_DeleteOnClose);
        addTo(*menu, document, fixable);
        menu->popup(place);
    }
    return !fixable.isEmpty();
}

} // namespace ProblemFixes
