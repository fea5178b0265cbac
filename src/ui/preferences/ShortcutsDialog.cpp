#include "ui/preferences/ShortcutsDialog.h"

#include "settings/Settings.h"
#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <map>

namespace {

enum Column { Command, Key, State, columnCount };

QString nameOf(KeyScope scope)
{
    switch (scope) {
    case KeyScope::Window:
        return ShortcutsDialog::tr("Main window");
    case KeyScope::Controls:
        return ShortcutsDialog::tr("Controls that have the keys");
    case KeyScope::Editor:
        return ShortcutsDialog::tr("Editor");
    case KeyScope::Text:
        return ShortcutsDialog::tr("Editor, in the text");
    case KeyScope::Roll:
        break;
    }
    return ShortcutsDialog::tr("Editor, in the piano roll");
}

QString shown(const QKeySequence &key)
{
    return key.toString(QKeySequence::NativeText);
}

bool isFixed(const KeyRow &row)
{
    return row.kind == KeyRow::Kind::Fixed;
}

} // namespace

ShortcutsDialog::ShortcutsDialog(Settings &settings, const QVector<KeyRow> &rows, QWidget *parent)
    : QDialog(parent), settings_(settings), rows_(rows), shortcuts_(settings.value(Settings::Shortcuts).toString()),
      search_(new QLineEdit), list_(new QTreeWidget), key_(new QKeySequenceEdit), notice_(new QLabel)
{
    setManualPage(*this, "keys.md");
    setWindowTitle(tr("Keyboard Shortcuts"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    search_->setObjectName(QStringLiteral("searchKeys"));
    search_->setPlaceholderText(tr("Find a command or a key"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, this, &ShortcutsDialog::filter);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto *const all = makeButton("btnResetAllKeys", tr("Reset &All"), tr("Every command gets its usual key again"),
                                 &ShortcutsDialog::resetAll);
    buttons->addButton(all, QDialogButtonBox::ResetRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &ShortcutsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ShortcutsDialog::reject);

    auto *const column = new QVBoxLayout(this);
    column->addWidget(search_);
    column->addWidget(makeList(), 1);
    column->addWidget(makeEditor());
    column->addWidget(notice_);
    column->addWidget(buttons);
    notice_->setObjectName(QStringLiteral("lblKeyNotice"));
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    resize(760, 640);
    fitToScreen(*this);
    showRows();
    showChosen();
}

QWidget *ShortcutsDialog::makeList()
{
    list_->setObjectName(QStringLiteral("keys"));
    list_->setAccessibleName(tr("Commands and their keys"));
    list_->setColumnCount(columnCount);
    list_->setHeaderLabels({tr("Command"), tr("Key"), tr("State")});
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->header()->setSectionResizeMode(Command, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(Key, QHeaderView::ResizeToContents);
    list_->header()->setStretchLastSection(false);
    std::map<KeyScope, QTreeWidgetItem *> groups;
    for (const auto &row : rows_) {
        auto *&group = groups[row.scope];
        if (!group)
            group = new QTreeWidgetItem(list_, {nameOf(row.scope)});
        items_.append(new QTreeWidgetItem(group, {row.text}));
    }
    list_->expandAll();
    connect(list_, &QTreeWidget::currentItemChanged, this, &ShortcutsDialog::showChosen);
    return list_;
}

QWidget *ShortcutsDialog::makeEditor()
{
    auto *const editor = new QWidget;
    auto *const line = new QHBoxLayout(editor);
    line->setContentsMargins(0, 0, 0, 0);
    auto *const label = new QLabel(tr("&Key:"));
    label->setBuddy(key_);
    key_->setObjectName(QStringLiteral("keyWished"));
    key_->setToolTip(tr("Press the keys that the chosen command is to have"));
    for (auto *const control : {static_cast<QWidget *>(key_), static_cast<QWidget *>(key_->findChild<QLineEdit *>())})
        control->setAccessibleName(key_->toolTip());
    connect(key_, &QKeySequenceEdit::keySequenceChanged, this, &ShortcutsDialog::wish);
    assign_ =
        makeButton("btnAssignKey", tr("A&ssign"), tr("The chosen command gets this key"), &ShortcutsDialog::assign);
    take_ = makeButton("btnTakeKey", tr("&Take It from There"), tr("The command that has this key loses it"),
                       &ShortcutsDialog::takeFromRival);
    remove_ = makeButton("btnRemoveKey", tr("&No Key"), tr("The chosen command has no key any more"),
                         &ShortcutsDialog::removeKey);
    reset_ = makeButton("btnResetKey", tr("&Reset"), tr("The chosen command gets its usual key again"),
                        &ShortcutsDialog::reset);
    line->addWidget(label);
    line->addWidget(key_, 1);
    for (auto *const button : {assign_, take_, remove_, reset_})
        line->addWidget(button);
    return editor;
}

QPushButton *ShortcutsDialog::makeButton(const char *name, const QString &text, const QString &tip,
                                         void (ShortcutsDialog::*slot)())
{
    auto *const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void ShortcutsDialog::filter()
{
    const auto words = search_->text();
    for (auto *const item : std::as_const(items_))
        item->setHidden(!item->text(Command).contains(words, Qt::CaseInsensitive) &&
                        !item->text(Key).contains(words, Qt::CaseInsensitive));
    for (int group = 0; group < list_->topLevelItemCount(); ++group) {
        auto *const item = list_->topLevelItem(group);
        bool isEmpty = true;
        for (int child = 0; child < item->childCount(); ++child)
            isEmpty = isEmpty && item->child(child)->isHidden();
        item->setHidden(isEmpty);
    }
}

void ShortcutsDialog::showRows()
{
    for (int i = 0; i < rows_.size(); ++i) {
        const auto &row = rows_[i];
        items_[i]->setText(Key, shown(shortcuts_.key(row)));
        items_[i]->setText(State, isFixed(row) ? tr("fixed") : shortcuts_.isChanged(row) ? tr("changed") : QString());
    }
    filter();
}

const KeyRow *ShortcutsDialog::chosen() const
{
    const auto index = items_.indexOf(list_->currentItem());
    return index >= 0 ? &rows_[index] : nullptr;
}

const KeyRow *ShortcutsDialog::rival() const
{
    return chosen() ? shortcuts_.rivalOf(*chosen(), wished_, rows_) : nullptr;
}

QString ShortcutsDialog::objection() const
{
    const auto *const row = chosen();
    if (!row)
        return tr("Choose a command.");
    if (isFixed(*row))
        return tr("This key is fixed.");
    if (isTyped(*row, wished_))
        return tr("%1 is typed into the text.").arg(shown(wished_));
    const auto *const other = rival();
    if (!other)
        return {};
    const auto text = tr("%1 is the key of \"%2\" (%3).", "key, command, where it works")
                          .arg(shown(wished_), other->text, nameOf(other->scope));
    return isFixed(*other) ? text + u' ' + tr("It is fixed.") : text;
}

void ShortcutsDialog::showChosen()
{
    const auto *const row = chosen();
    const QSignalBlocker silent(key_);
    wished_ = row ? shortcuts_.key(*row) : QKeySequence();
    key_->setKeySequence(wished_);
    showKey();
}

void ShortcutsDialog::showKey()
{
    const auto *const row = chosen();
    const auto *const other = rival();
    const bool isChangeable = row && !isFixed(*row);
    key_->setEnabled(isChangeable);
    assign_->setEnabled(objection().isEmpty() && shortcuts_.key(*row) != wished_);
    take_->setEnabled(isChangeable && other && !isFixed(*other) && !isTyped(*row, wished_));
    remove_->setEnabled(isChangeable && !shortcuts_.key(*row).isEmpty());
    reset_->setEnabled(isChangeable && shortcuts_.isChanged(*row));
    notice_->setText(objection());
}

// One key with its modifiers; what follows it begins again.
void ShortcutsDialog::wish(const QKeySequence &key)
{
    wished_ = key.isEmpty() ? key : QKeySequence(key[uint(key.count() - 1)]);
    if (wished_ != key) {
        const QSignalBlocker silent(key_);
        key_->setKeySequence(wished_);
    }
    showKey();
}

void ShortcutsDialog::assign()
{
    if (!objection().isEmpty())
        return;
    shortcuts_.set(*chosen(), wished_);
    showRows();
    showChosen();
}

void ShortcutsDialog::takeFromRival()
{
    while (const auto *const other = rival()) {
        if (isFixed(*other))
            return;
        shortcuts_.set(*other, {});
    }
    assign();
}

void ShortcutsDialog::removeKey()
{
    wished_ = {};
    assign();
}

// Somebody else may have the usual key by now.
void ShortcutsDialog::reset()
{
    key_->setKeySequence(chosen()->usual);
    wish(chosen()->usual);
    assign();
}

void ShortcutsDialog::resetAll()
{
    shortcuts_ = Shortcuts();
    showRows();
    showChosen();
}

void ShortcutsDialog::accept()
{
    settings_.setValue(Settings::Shortcuts, shortcuts_.text());
    QDialog::accept();
}
