#include "ui/text/TextCompleter.h"

#include "edit/AbcCompletion.h"
#include "edit/AbcLineState.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

TextCompleter::TextCompleter(QPlainTextEdit &text) : QCompleter(&text), text_(text)
{
    setModel(&choices_);
    setWidget(&text);
    setCompletionMode(QCompleter::PopupCompletion);
    connect(this, qOverload<const QString &>(&QCompleter::activated), this, &TextCompleter::insert);
}

// A line ends with Return as ever while none of the list is chosen; Tab takes the first one.
bool TextCompleter::takes(QKeyEvent &event)
{
    if (!popup()->isVisible())
        return false;
    const bool isChosen = popup()->currentIndex().isValid();
    switch (event.key()) {
    case Qt::Key_Tab:
        if (!isChosen) {
            popup()->hide();
            insert(choices_.stringList().first());
            return true;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!isChosen) {
            popup()->hide();
            return false;
        }
        break;
    case Qt::Key_Escape:
        break;
    default:
        return false;
    }
    event.ignore(); // the completer does it
    return true;
}

void TextCompleter::follow(const QKeyEvent &event)
{
    if (!event.text().isEmpty() && event.text()[0].isPrint())
        offer();
    else
        popup()->hide();
}

void TextCompleter::offer()
{
    const auto caret = text_.textCursor();
    const auto state = AbcLineState::of(caret.block().previous().userState());
    const auto place = state.inMusic ? AbcCompletion::Place::Music : AbcCompletion::Place::Header;
    const auto completion = AbcCompletion::of(caret.block().text().left(caret.positionInBlock()), place, instruments_);
    if (completion.choices.isEmpty()) {
        popup()->hide();
        return;
    }
    typed_ = completion.typed;
    choices_.setStringList(completion.choices);
    auto word = caret;
    word.movePosition(QTextCursor::Left, QTextCursor::MoveAnchor, typed_);
    auto below = text_.cursorRect(word);
    below.setWidth(popup()->sizeHintForColumn(0) + popup()->verticalScrollBar()->sizeHint().width() + 12);
    below.translate(text_.viewport()->pos());
    complete(below);
    popup()->setCurrentIndex({});
}

void TextCompleter::insert(const QString &choice)
{
    auto caret = text_.textCursor();
    caret.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, typed_);
    caret.insertText(choice);
    text_.setTextCursor(caret);
    if (choice.endsWith(QStringLiteral(": ")))
        offer();
}
