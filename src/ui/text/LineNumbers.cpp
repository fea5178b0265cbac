#include "ui/text/LineNumbers.h"

#include "ui/text/AbcTextEdit.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int markWidth = 16;

} // namespace

LineNumbers::LineNumbers(AbcTextEdit &text) : QWidget(&text), text_(text)
{
    setAccessibleName(tr("Line numbers"));
}

QSize LineNumbers::sizeHint() const
{
    return {text_.lineNumberWidth(), 0};
}

void LineNumbers::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    text_.paintLineNumbers(painter, event->rect());
}

void LineNumbers::mousePressEvent(QMouseEvent *event)
{
    text_.setTextCursor(text_.cursorForPosition({0, event->pos().y()}));
    text_.setFocus();
    if (event->pos().x() < markWidth)
        text_.askForFixesAtLine(event->pos().y());
}

bool LineNumbers::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), text_.problemAtLine(help->pos().y()), this);
    return true;
}
