#include "ui/WrappedCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int leastCharacters = 24; // of a line

} // namespace

WrappedCheckBox::WrappedCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum, QSizePolicy::CheckBox);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WrappedCheckBox::heightForWidth(int width) const
{
    const auto lines = int(textIn(width).count(u'\n'));
    return sizeHint().height() + lines * fontMetrics().lineSpacing();
}

QSize WrappedCheckBox::minimumSizeHint() const
{
    const int width = widthOfBox() + leastCharacters * fontMetrics().averageCharWidth();
    return sizeHint().boundedTo({width, sizeHint().height()});
}

int WrappedCheckBox::widthOfBox() const
{
    return sizeHint().width() - fontMetrics().horizontalAdvance(text());
}

QString WrappedCheckBox::textIn(int width) const
{
    QTextLayout layout(text(), font());
    layout.beginLayout();
    QStringList lines;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(1, width - widthOfBox() + 1)); // which may be a fraction more
        lines.append(text().mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return lines.join(u'\n');
}

void WrappedCheckBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = textIn(width());
    painter.drawControl(QStyle::CE_CheckBox, option);
}
