#include "ui/editor/EditorStatus.h"

#include "core/HeaderFields.h"
#include "edit/NoteText.h"
#include "ui/document/EditorDocument.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTextBlock>

#include <algorithm>

namespace {

constexpr int labelMargin = 6;   // px on both sides
constexpr int usualMessage = 36; // characters

QString widestPosition()
{
    return QCoreApplication::translate("NoteText", "Measure %1, beat %2").arg(88).arg(8);
}

} // namespace

EditorStatus::EditorStatus(EditorDocument &document, QWidget *parent)
    : QStatusBar(parent), document_(document), measures_(document.track()),
      place_(addLabel("lblPlace", tr("Line %1, column %2").arg(888).arg(88), tr("The caret in the text"))),
      time_(addLabel("lblTime", widestPosition(), tr("The caret in the music; a whole note has 40320 ticks"))),
      note_(addLabel("lblNote", QStringLiteral("C♯8, 8/8"), tr("Pitch and length of the note at the caret"))),
      problems_(addLabel("lblProblems", QString(), tr("What is wrong with the text"))),
      state_(addLabel("lblState", tr("Unapplied changes"), tr("Whether the song has what the text says")))
{
    setSizeGripEnabled(false);
    connect(this, &QStatusBar::messageChanged, this, &EditorStatus::elide);
    setMinimumHeight(sizeHint().height());
    connect(&document_, &EditorDocument::readingChanged, this, &EditorStatus::readTrack);
    connect(&document_, &EditorDocument::findingsChanged, this, &EditorStatus::showProblems);
    connect(&document_, &EditorDocument::caretChanged, this, &EditorStatus::showCaret);
    using Document = EditorDocument;
    for (const auto change : {&Document::readingChanged, &Document::charactersChanged, &Document::selectionChanged,
                              &Document::caretChanged})
        connect(&document_, change, this, &EditorStatus::forget);
    connect(&document_, &EditorDocument::isAppliedChanged, this, &EditorStatus::showState);
    readTrack();
    showProblems();
    showState();
}

QLabel *EditorStatus::addLabel(const char *objectName, const QString &widest, const QString &tip)
{
    auto *const label = new QLabel;
    label->setObjectName(QLatin1String(objectName));
    label->setToolTip(tip);
    label->setContentsMargins(labelMargin, 0, labelMargin, 0);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 2 * labelMargin);
    addPermanentWidget(label);
    return label;
}

void EditorStatus::resizeEvent(QResizeEvent *event)
{
    fitLabels(currentMessage());
    QStatusBar::resizeEvent(event);
}

int EditorStatus::widthOf(Detail detail) const
{
    const auto &metrics = fontMetrics();
    auto width = state_->minimumWidth() + 4 * labelMargin + metrics.horizontalAdvance(tr("%1 problems").arg(88));
    if (detail <= Detail::MeasureAlone)
        width += time_->minimumWidth();
    if (detail <= Detail::WithoutNote)
        width += place_->minimumWidth();
    if (detail == Detail::All)
        width += note_->minimumWidth() + metrics.horizontalAdvance(tr("%1, tick %2").arg(QString()).arg(888888));
    return width;
}

// As much as leaves the message its room, or a usual one.
void EditorStatus::fitLabels(const QString &message)
{
    const auto room = std::max(fontMetrics().averageCharWidth() * usualMessage,
                               fontMetrics().horizontalAdvance(message) + labelMargin);
    detail_ = message.isEmpty() ? Detail::MeasureAlone : Detail::NoPlace;
    for (const auto detail : {Detail::MeasureAlone, Detail::WithoutNote, Detail::All}) {
        if (widthOf(detail) + room <= width())
            detail_ = detail;
    }
    note_->setVisible(detail_ == Detail::All);
    place_->setVisible(detail_ <= Detail::WithoutNote);
    time_->setVisible(detail_ <= Detail::MeasureAlone);
    showCaret();
}

// It would be cut where the labels begin.
void EditorStatus::elide(const QString &message)
{
    if (!isVisible())
        return;
    fitLabels(message);
    const auto room = std::max(0, width() - widthOf(detail_));
    const auto shown = fontMetrics().elidedText(message, Qt::ElideRight, room);
    if (shown != message)
        showMessage(shown);
}

void EditorStatus::say(const QString &message)
{
    constexpr int shownFor = 6000; // ms
    showMessage(message);
    if (!message.isEmpty())
        showMessage(currentMessage(), shownFor);
}

void EditorStatus::sayForNow(const QString &message)
{
    say(message);
    forNow_ = currentMessage();
}

void EditorStatus::forget()
{
    if (!forNow_.isEmpty() && currentMessage() == forNow_)
        clearMessage();
    forNow_.clear();
}

void EditorStatus::readTrack()
{
    measures_ = Measures(document_.track());
    showCaret();
}

void EditorStatus::showProblems()
{
    const auto count = int(document_.findings().size());
    problems_->setText(count == 0 ? QString() : count == 1 ? tr("1 problem") : tr("%1 problems").arg(count));
    auto font = problems_->font();
    font.setBold(count > 0);
    problems_->setFont(font);
}

void EditorStatus::showCaret()
{
    const auto block = document_.text()->findBlock(document_.caret().offset);
    place_->setText(
        tr("Line %1, column %2").arg(block.blockNumber() + 1).arg(document_.caret().offset - block.position() + 1));
    const auto position = NoteText::position(document_.caret().tick, measures_);
    time_->setText(detail_ == Detail::All ? tr("%1, tick %2").arg(position).arg(document_.caret().tick) : position);
    const auto note = document_.caret().note;
    if (note < 0) {
        note_->clear();
        return;
    }
    const auto &event = document_.track().events()[note];
    const auto key = HeaderFields::parseKey(document_.track().headerField(QStringLiteral("K")));
    note_->setText(tr("%1, %2").arg(NoteText::pitch(int(event.pitch()), key.row), NoteText::length(event.length())));
}

void EditorStatus::showState()
{
    const bool isApplied = document_.isApplied();
    state_->setText(isApplied ? tr("Applied") : tr("Unapplied changes"));
    state_->setStyleSheet(isApplied ? QString()
                                    : QStringLiteral("QLabel { background: #E8A317; color: black; border-radius: 3px; "
                                                     "padding: 1px 6px; }"));
}
