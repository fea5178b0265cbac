#include "ui/text/ProblemList.h"

#include "ui/document/EditorDocument.h"
#include "ui/text/EditorColours.h"

#include <QPainter>

namespace {

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
    connect(&document_, &EditorDocument::readingChanged, this, &ProblemList::refresh);
    refresh();
}

QSize ProblemList::sizeHint() const
{
    return {200, 5 * fontMetrics().lineSpacing()};
}

void ProblemList::refresh()
{
    const auto &problems = document_.reading().problems;
    QStringList texts;
    for (const auto &problem : problems)
        texts += tr("Line %1, column %2: %3").arg(problem.line + 1).arg(problem.column + 1).arg(problem.message);
    QStringList shown;
    for (int i = 0; i < count(); ++i)
        shown += item(i)->text();
    if (texts == shown && !texts.isEmpty())
        return;
    clear();
    if (texts.isEmpty()) {
        auto *const none = new QListWidgetItem(tr("No problems"), this);
        none->setFlags(Qt::NoItemFlags);
        return;
    }
    const auto icon = dot(EditorColours::of(palette()).problem);
    for (const auto &text : texts)
        new QListWidgetItem(icon, text, this);
}

void ProblemList::choose(const QListWidgetItem *item)
{
    goTo(row(item));
}

void ProblemList::goTo(int problem)
{
    const auto &problems = document_.reading().problems;
    if (problem < 0 || problem >= problems.size())
        return;
    setCurrentRow(problem);
    emit chosen(document_.sinceReading(problems[problem].range));
}

void ProblemList::goToNext()
{
    document_.update();
    const auto &problems = document_.reading().problems;
    int next = 0;
    while (next < problems.size() && problems[next].range.end() <= document_.caret().offset)
        ++next;
    goTo(next < problems.size() ? next : 0);
}

void ProblemList::goToPrevious()
{
    document_.update();
    const auto &problems = document_.reading().problems;
    int previous = int(problems.size()) - 1;
    while (previous >= 0 && problems[previous].range.end() >= document_.caret().offset)
        --previous;
    goTo(previous >= 0 ? previous : int(problems.size()) - 1);
}
