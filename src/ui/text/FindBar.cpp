#include "ui/text/FindBar.h"

#include "settings/Settings.h"
#include "ui/Icons.h"
#include "ui/text/AbcTextEdit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTextBlock>
#include <QToolButton>

namespace {

constexpr int mostCounted = 9999;

QLineEdit *field(const char *objectName, const QString &placeholder, const QString &tip)
{
    auto *const edit = new QLineEdit;
    edit->setObjectName(QLatin1String(objectName));
    edit->setPlaceholderText(placeholder);
    edit->setAccessibleName(placeholder);
    edit->setToolTip(tip);
    edit->setClearButtonEnabled(true);
    edit->setMinimumWidth(180);
    return edit;
}

template<typename Box>
Box *named(Box *box, const char *objectName, const QString &tip)
{
    box->setObjectName(QLatin1String(objectName));
    box->setToolTip(tip);
    return box;
}

} // namespace

FindBar::FindBar(AbcTextEdit &text, Settings &settings, QWidget *parent)
    : QWidget(parent), text_(text), settings_(settings),
      find_(field("txtFind", tr("Find"), tr("What to look for (F3 finds the next, Shift+F3 the previous)"))),
      replace_(field("txtReplace", tr("Replace with"), tr("What takes its place"))), count_(new QLabel)
{
    setObjectName(QStringLiteral("findBar"));
    createOptions();
    layOut();
    readSettings();
    textRest_.setSingleShot(true);
    textRest_.setInterval(100);
    connect(&textRest_, &QTimer::timeout, this, &FindBar::refresh);
    connect(text_.document(), &QTextDocument::contentsChanged, this, [this] {
        if (isVisible())
            textRest_.start();
    });
    connect(find_, &QLineEdit::textChanged, this, &FindBar::writeSettings);
    connect(replace_, &QLineEdit::textChanged, this, &FindBar::writeSettings);
    for (auto *const box : {wholeWords_, matchCase_, wrapAround_})
        connect(box, &QCheckBox::toggled, this, &FindBar::writeSettings);
    for (auto *const box : {mode_, direction_})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &FindBar::writeSettings);
    hide();
}

void FindBar::createOptions()
{
    wholeWords_ = named(new QCheckBox(tr("Whole &words")), "chkWholeWords", tr("Not within longer words"));
    matchCase_ = named(new QCheckBox(tr("Match &case")), "chkMatchCase", tr("C and c are different"));
    wrapAround_ = named(new QCheckBox(tr("Wrap &around")), "chkWrapAround", tr("Go on from the other end of the text"));
    mode_ = named(new QComboBox, "cboSearchMode", tr("How the text is meant"));
    mode_->addItems({tr("Plain"), tr("Extended (\\n, \\t, \\x41)"), tr("Regular expression")});
    mode_->setAccessibleName(tr("Search mode"));
    direction_ = named(new QComboBox, "cboDirection", tr("Where Return looks from the caret"));
    direction_->addItems({tr("Up"), tr("Down")});
    direction_->setAccessibleName(tr("Direction"));
}

QToolButton *FindBar::addButton(const char *drawing, const QString &text, const QString &tip, void (FindBar::*slot)())
{
    auto *const button = new QToolButton;
    if (drawing != nullptr)
        button->setIcon(icon(drawing));
    else
        button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, this, slot);
    return button;
}

void FindBar::layOut()
{
    replaceLine_ = new QWidget;
    auto *const replaceLayout = new QHBoxLayout(replaceLine_);
    replaceLayout->setContentsMargins({});
    replaceLayout->addWidget(replace_, 1);
    replaceLayout->addWidget(
        addButton(nullptr, tr("Replace"), tr("Replace the selected match and find the next"), &FindBar::replace));
    replaceLayout->addWidget(
        addButton(nullptr, tr("Replace All"), tr("Replace every match, as one step to undo"), &FindBar::replaceAll));
    auto *const findLayout = new QHBoxLayout;
    findLayout->addWidget(find_, 1);
    findLayout->addWidget(count_);
    findLayout->addWidget(
        addButton("moveup", tr("Find previous"), tr("Find previous (Shift+F3)"), &FindBar::findPrevious));
    findLayout->addWidget(addButton("movedown", tr("Find next"), tr("Find next (F3)"), &FindBar::findNext));
    findLayout->addWidget(direction_);
    findLayout->addWidget(addButton(nullptr, tr("Close"), tr("Close (Esc)"), &FindBar::dismiss));
    auto *const optionLayout = new QHBoxLayout;
    for (auto *const option : std::initializer_list<QWidget *>{mode_, matchCase_, wholeWords_, wrapAround_})
        optionLayout->addWidget(option);
    optionLayout->addStretch();
    auto *const lines = new QVBoxLayout(this);
    lines->setContentsMargins(8, 4, 8, 4);
    lines->setSpacing(4);
    lines->addLayout(findLayout);
    lines->addWidget(replaceLine_);
    lines->addLayout(optionLayout);
    count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance(tr("%1 of %2").arg(999).arg(9999)));
}

void FindBar::readSettings()
{
    find_->setText(settings_.value(Settings::FindString).toString());
    replace_->setText(settings_.value(Settings::ReplaceString).toString());
    wholeWords_->setChecked(settings_.value(Settings::MatchWholeWords).toBool());
    matchCase_->setChecked(settings_.value(Settings::MatchCase).toBool());
    wrapAround_->setChecked(settings_.value(Settings::WrapAround).toBool());
    mode_->setCurrentIndex(std::clamp(settings_.value(Settings::SearchMode).toInt(), 0, 2));
    direction_->setCurrentIndex(std::clamp(settings_.value(Settings::SearchDirection).toInt(), 0, 1));
}

void FindBar::writeSettings()
{
    const auto write = [this](Settings::Setting setting, const QVariant &value) {
        if (settings_.value(setting) != value)
            settings_.setValue(setting, value);
    };
    write(Settings::FindString, find_->text());
    write(Settings::ReplaceString, replace_->text());
    write(Settings::MatchWholeWords, wholeWords_->isChecked());
    write(Settings::MatchCase, matchCase_->isChecked());
    write(Settings::WrapAround, wrapAround_->isChecked());
    write(Settings::SearchMode, mode_->currentIndex());
    write(Settings::SearchDirection, direction_->currentIndex());
    refresh();
}

SearchOptions FindBar::options() const
{
    return {find_->text(),
            replace_->text(),
            wholeWords_->isChecked(),
            matchCase_->isChecked(),
            wrapAround_->isChecked(),
            SearchOptions::Mode(mode_->currentIndex()),
            SearchOptions::Direction(direction_->currentIndex())};
}

TextRange FindBar::selection() const
{
    const auto cursor = text_.textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

QString FindBar::countText() const
{
    return count_->text();
}

void FindBar::refresh()
{
    const auto pattern = TextSearch::pattern(options());
    text_.setFound(pattern);
    if (find_->text().isEmpty()) {
        count_->clear();
        return;
    }
    if (!pattern.isValid()) {
        count_->setText(tr("Not an expression"));
        count_->setToolTip(pattern.errorString());
        return;
    }
    const auto matches = TextSearch::findAll(pattern, text_.toPlainText(), mostCounted);
    const auto selected = selection();
    int place = 0;
    for (int i = 0; i < matches.size() && place == 0; ++i) {
        if (matches[i].offset == selected.offset && matches[i].length == selected.length)
            place = i + 1;
    }
    count_->setToolTip({});
    count_->setText(matches.isEmpty()                   ? tr("No matches")
                    : place == 0 && matches.size() == 1 ? tr("1 match")
                    : place == 0                        ? tr("%1 matches").arg(matches.size())
                                                        : tr("%1 of %2").arg(place).arg(matches.size()));
}

void FindBar::open(Purpose purpose)
{
    const auto selected = text_.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator) && mode_->currentIndex() == 0)
        find_->setText(selected);
    replaceLine_->setVisible(purpose == Purpose::Replace);
    show();
    find_->setFocus();
    find_->selectAll();
    refresh();
}

void FindBar::findTowards(const SearchOptions &options)
{
    const auto matches = TextSearch::findAll(TextSearch::pattern(options), text_.toPlainText());
    const auto before = selection();
    const auto index = TextSearch::next(matches, before, options);
    if (index < 0) {
        emit said(options.find.isEmpty() ? tr("There is nothing to look for.")
                                         : tr("“%1” was not found.").arg(options.find));
    } else {
        text_.goTo(matches[index]);
        const bool isDown = options.direction == SearchOptions::Down;
        const bool wrapped = isDown ? matches[index].offset < before.offset : matches[index].offset > before.offset;
        emit said(wrapped ? tr("The search went on from the other end of the text.") : QString());
    }
    refresh();
}

void FindBar::findNext()
{
    auto towards = options();
    towards.direction = SearchOptions::Down;
    findTowards(towards);
}

void FindBar::findPrevious()
{
    auto towards = options();
    towards.direction = SearchOptions::Up;
    findTowards(towards);
}

void FindBar::replace()
{
    const auto wanted = options();
    const auto pattern = TextSearch::pattern(wanted);
    const auto text = text_.toPlainText();
    const auto selected = selection();
    for (const auto &match : TextSearch::findAll(pattern, text)) {
        if (match.offset != selected.offset || match.length != selected.length)
            continue;
        text_.textCursor().insertText(TextSearch::replacement(wanted, pattern, text, match));
        break;
    }
    findTowards(wanted);
}

void FindBar::replaceAll()
{
    const auto wanted = options();
    const auto pattern = TextSearch::pattern(wanted);
    const auto text = text_.toPlainText();
    const auto matches = TextSearch::findAll(pattern, text);
    QTextCursor cursor(text_.document());
    cursor.beginEditBlock();
    for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
        cursor.setPosition(match->offset);
        cursor.setPosition(match->end(), QTextCursor::KeepAnchor);
        cursor.insertText(TextSearch::replacement(wanted, pattern, text, *match));
    }
    cursor.endEditBlock();
    emit said(matches.size() == 1 ? tr("1 match was replaced.") : tr("%1 matches were replaced.").arg(matches.size()));
    refresh();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else if (isReturn && replace_->hasFocus())
        replace();
    else if (isReturn && event->modifiers().testFlag(Qt::ShiftModifier))
        findPrevious();
    else if (isReturn)
        find();
    else
        QWidget::keyPressEvent(event);
}

void FindBar::dismiss()
{
    hide();
    text_.setFocus();
}

void FindBar::hideEvent(QHideEvent *event)
{
    text_.setFound({});
    QWidget::hideEvent(event);
}
