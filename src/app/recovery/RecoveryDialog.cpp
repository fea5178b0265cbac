#include "app/recovery/RecoveryDialog.h"

#include "ui/ManualPage.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum Column { Title, Parts, Changed, State, columnCount };

QString titleOf(const RecoverableSong &song)
{
    return song.title.isEmpty() ? RecoveryDialog::tr("Untitled") : song.title;
}

QString stateOf(const RecoverableSong &song)
{
    if (!song.problem.isEmpty())
        return RecoveryDialog::tr("Cannot be read");
    return song.isDiscarded ? RecoveryDialog::tr("Discarded") : RecoveryDialog::tr("Not saved");
}

QTreeWidgetItem *itemOf(const RecoverableSong &song)
{
    auto *const item = new QTreeWidgetItem;
    item->setText(Title, titleOf(song));
    item->setText(Parts, song.problem.isEmpty() ? QLocale().toString(song.partCount) : QString());
    item->setData(Parts, Qt::TextAlignmentRole, int(Qt::AlignRight | Qt::AlignVCenter));
    item->setText(Changed, QLocale().toString(song.time.toLocalTime(), QLocale::ShortFormat));
    item->setText(State, stateOf(song));
    item->setToolTip(Title, item->text(Title));
    return item;
}

// What the columns have no room for.
QString noteOn(const RecoverableSong &song)
{
    if (!song.problem.isEmpty())
        return song.problem;
    return song.file.isEmpty() ? RecoveryDialog::tr("It was never saved as a song.")
                               : RecoveryDialog::tr("Its song file: %1").arg(song.file);
}

QTreeWidget *makeList(QWidget *parent)
{
    auto *const list = new QTreeWidget(parent);
    list->setObjectName(QStringLiteral("recoverableSongs"));
    list->setAccessibleName(RecoveryDialog::tr("Songs that can be recovered"));
    list->setHeaderLabels({RecoveryDialog::tr("Song"), RecoveryDialog::tr("Parts"), RecoveryDialog::tr("Last change"),
                           RecoveryDialog::tr("State")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    return list;
}

} // namespace

RecoveryDialog::RecoveryDialog(Occasion occasion, QWidget *parent)
    : QDialog(parent), list_(makeList(this)), note_(new QLabel(this))
{
    const bool isStart = occasion == Occasion::Start;
    setObjectName(QStringLiteral("recoveryDialog"));
    setWindowTitle(tr("Recover Songs"));
    setManualPage(*this, "questions.md");
    auto *const text = new QLabel(
        isStart ? tr("The program ended before these songs were saved. They are as they were at the last moment.")
                : tr("Songs that were not saved, and songs that were discarded in the last 7 days."));
    text->setWordWrap(true);

    auto *const buttons = new QDialogButtonBox;
    recover_ = buttons->addButton(tr("&Recover"), QDialogButtonBox::AcceptRole);
    remove_ = buttons->addButton(tr("&Delete…"), QDialogButtonBox::DestructiveRole);
    auto *const later = buttons->addButton(isStart ? tr("&Later") : tr("&Close"), QDialogButtonBox::RejectRole);
    recover_->setObjectName(QStringLiteral("btnRecover"));
    remove_->setObjectName(QStringLiteral("btnDelete"));
    later->setObjectName(QStringLiteral("btnLater"));
    recover_->setToolTip(tr("Open the chosen song as it was"));
    remove_->setToolTip(tr("Delete the chosen songs for good"));
    later->setToolTip(tr("Keep the songs; File > Recover… shows them again"));
    recover_->setDefault(true);
    connect(recover_, &QPushButton::clicked, this, &RecoveryDialog::recover);
    connect(remove_, &QPushButton::clicked, this, [this] { emit removeRequested(chosen()); });
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QTreeWidget::itemSelectionChanged, this, &RecoveryDialog::showChoice);
    connect(list_, &QTreeWidget::itemActivated, this, &RecoveryDialog::recover);

    auto *const column = new QVBoxLayout(this);
    column->addWidget(text);
    column->addWidget(list_, 1);
    column->addWidget(note_);
    column->addWidget(buttons);
    note_->setObjectName(QStringLiteral("lblNote"));
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    resize(720, 340);
    showChoice();
}

void RecoveryDialog::setSongs(const QVector<RecoverableSong> &songs)
{
    songs_ = songs;
    list_->clear();
    for (const auto &song : songs_)
        list_->addTopLevelItem(itemOf(song));
    list_->header()->setStretchLastSection(false);
    for (int i = 0; i < columnCount; ++i)
        list_->header()->setSectionResizeMode(i, i == Title ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    list_->setCurrentItem(list_->topLevelItem(0));
}

QStringList RecoveryDialog::chosen() const
{
    QStringList journals;
    for (int row = 0; row < songs_.size(); ++row) {
        if (list_->topLevelItem(row)->isSelected())
            journals.append(songs_[row].journal);
    }
    return journals;
}

void RecoveryDialog::showChoice()
{
    const auto journals = chosen();
    const auto isChosen = [&](const RecoverableSong &song) { return journals.contains(song.journal); };
    const auto song = std::find_if(songs_.cbegin(), songs_.cend(), isChosen);
    const bool isOne = journals.size() == 1 && song != songs_.cend();
    remove_->setEnabled(!journals.isEmpty());
    recover_->setEnabled(isOne && song->problem.isEmpty());
    note_->setText(isOne ? noteOn(*song) : QString());
}

void RecoveryDialog::recover()
{
    if (recover_->isEnabled())
        emit recoverRequested(chosen().first());
}
