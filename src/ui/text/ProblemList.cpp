#include "ui/text/ProblemList.h"

#include "check/findings/FindingKinds.h"
#include "ui/document/EditorDocument.h"
#include "ui/text/EditorColours.h"
#include "ui/text/ProblemFixes.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QTextBlock>

#include <array>

namespace {

constexpr int mostShown = 500;

QIcon dot(const QColor &colour)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(9, 9, 14, 14));
    return pixmap;
}

} // namespace

ProblemList::ProblemList(EditorDocument &document, QWidget *parent) : QListWidget(parent), document_(document)
{
    setObjectName(QStringLiteral("problemList"));
    setAccessibleName(tr("Problems"));
    setToolTip(tr("Click a problem to go to it (F8 goes to the next)"));
    setUniformItemSizes(true);
    setFrameShape(NoFrame);
    connect(this, &QListWidget::itemClicked, this, &ProblemList::choose);
    connect(this, &QListWidget::itemActivated, this, &ProblemList::choose);
    connect(&document_, &EditorDocument::findingsChanged, this, &ProblemList::refresh);
    refresh();
}

QSize ProblemList::sizeHint() const
{
    return {200, 5 * fontMetrics().lineSpacing()};
}

void ProblemList::refresh()
{
    const auto &findings = document_.findings();
    QStringList texts;
    for (int i = 0; i < std::min(mostShown, int(findings.size())); ++i)
        texts += textOf(findings[i]);
    if (texts == shown_ && !texts.isEmpty())
        return;
    shown_ = texts;
    clear();
    const auto &colours = EditorColours::of(palette());
    const std::array icons{dot(colours.warning), dot(colours.warning), dot(colours.problem)};
    for (int i = 0; i < texts.size(); ++i)
        new QListWidgetItem(icons[size_t(FindingKinds::severity(findings[i].kind))], texts[i], this);
    if (texts.isEmpty())
        addRemark(tr("No problems"));
    else if (findings.size() > mostShown)
        addRemark(tr("… and %1 more").arg(findings.size() - mostShown));
}

void ProblemList::addRemark(const QString &text)
{
    auto *const remark = new QListWidgetItem(text, this);
    remark->setFlags(Qt::NoItemFlags);
}

QString ProblemList::textOf(const Finding &finding) const
{
    if (finding.range.isEmpty())
        return sentenceOf(finding);
    const auto block = document_.text()->findBlock(finding.range.offset);
    return tr("Line %1, column %2: %3")
        .arg(block.blockNumber() + 1)
        .arg(finding.range.offset - block.position() + 1)
        .arg(sentenceOf(finding));
}

void ProblemList::contextMenuEvent(QContextMenuEvent *event)
{
    const auto problem = indexAt(event->pos()).row();
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ProblemFixes::addTo(*menu, document_, document_.findings().mid(problem, problem < 0 ? 0 : 1));
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(event->globalPos());
}

void ProblemList::choose(const QListWidgetItem *item)
{
    goTo(row(item));
}

void ProblemList::goTo(int problem)
{
    const auto &findings = document_.findings();
    if (problem < 0 || problem >= findings.size())
        return;
    setCurrentRow(problem);
    emit chosen(findings[problem].range);
}

void ProblemList::goToNext()
{
    document_.update();
    const auto &problems = document_.findings();
    int next = 0;
    while (next < problems.size() && problems[next].range.end() <= document_.caret().offset)
        ++next;
    goTo(next < problems.size() ? next : 0);
}

void ProblemList::goToPrevious()
{
    document_.update();
    const auto &problems = document_.findings();
    int previous = int(problems.size()) - 1;
    while (previous >= 0 && problems[previous].range.end() >= document_.caret().offset)
        --previous;
    goTo(previous >= 0 ? previous : int(problems.size()) - 1);
}
