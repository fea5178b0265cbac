#include "ui/arranging/ArrangeDialog.h"

#include "ui/Icons.h"
#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QString numberText(int number)
{
    return QLocale().toString(number);
}

QHBoxLayout *lineIn(QWidget *line)
{
    auto *const widgets = new QHBoxLayout(line);
    widgets->setContentsMargins(0, 0, 0, 0);
    return widgets;
}

void add(QHBoxLayout *line, const QString &text, QWidget *field)
{
    auto *const label = new QLabel(text);
    label->setBuddy(field);
    line->addWidget(label);
    line->addWidget(field);
}

int soundingParts(const QVector<ArrangedSource> &sources)
{
    return int(std::count_if(sources.begin(), sources.end(),
                             [](const auto &source) { return source.part.track.noteCount() > 0; }));
}

// What nobody lost takes no room from the names.
void hideEmptyColumns(QTableView &table)
{
    const auto &model = *table.model();
    for (int column = 0; column < model.columnCount(); ++column) {
        bool isEmpty = true;
        for (int row = 0; row < model.rowCount() && isEmpty; ++row)
            isEmpty = model.index(row, column).data().toString().isEmpty();
        table.setColumnHidden(column, isEmpty);
    }
}

} // namespace

ArrangeDialog::ArrangeDialog(const QVector<ArrangedSource> &sources, const InstrumentSet &instruments,
                             EngineFactory makeEngine, QWidget *parent)
    : QDialog(parent), sources_(sources), instruments_(instruments), player_(std::move(makeEngine), this),
      summary_(new QLabel)
{
    setObjectName(QStringLiteral("arrangeDialog"));
    setWindowTitle(tr("Arrange for Players"));
    setManualPage(*this, "arranging.md");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    summary_->setObjectName(QStringLiteral("lblSummary"));
    summary_->setTextFormat(Qt::PlainText);
    summary_->setWordWrap(true);
    auto *const column = new QVBoxLayout(this);
    column->addWidget(makeQuestions());
    auto *const beforeLabel = new QLabel(tr("The song as it is"));
    auto *const afterLabel = new QLabel(tr("As it would be"));
    beforeView_ = makeTable("arrangeBefore", beforeLabel->text(), before_);
    afterView_ = makeTable("arrangeAfter", afterLabel->text(), after_);
    column->addWidget(beforeLabel);
    column->addWidget(beforeView_, 1);
    column->addWidget(afterLabel);
    column->addWidget(afterView_, 1);
    column->addWidget(makeListening());
    column->addWidget(makeButtons());
    resize(1100, 760);
    fitToScreen(*this);
    connect(afterView_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ArrangeDialog::showState);
    connect(&player_, &GroupPlayer::playingChanged, this, [this](bool isPlaying) {
        if (!isPlaying)
            heard_ = Heard::Nothing;
        showState();
    });
    arrangeAgain();
}

QSpinBox *ArrangeDialog::makeCount(const char *name, int most, int value, const QString &tip)
{
    auto *const box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(1, most);
    box->setValue(value);
    box->setToolTip(tip);
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, &ArrangeDialog::arrangeAgain);
    return box;
}

QComboBox *ArrangeDialog::makeLine(const char *name, const QString &tip)
{
    auto *const box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->setToolTip(tip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(6);
    box->setMaximumWidth(40 * box->fontMetrics().averageCharWidth());
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->addItem(QString(), -1);
    for (int i = 0; i < sources_.size(); ++i) {
        if (!sources_[i].part.isPercussion && sources_[i].part.track.noteCount() > 0)
            box->addItem(sources_[i].part.name, i);
    }
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ArrangeDialog::arrangeAgain);
    return box;
}

QWidget *ArrangeDialog::makeQuestions()
{
    players_ = makeCount("spPlayers", ArrangeOptions::mostPlayers, std::clamp(soundingParts(sources_), 1, 4),
                         tr("How many people play"));
    voices_ = makeCount("spVoices", ArrangeOptions::mostVoices, ArrangeOptions().voices,
                        tr("The most notes that one of them plays at the same time"));
    melody_ = makeLine("cbMelody", tr("The part whose highest notes are all kept"));
    bass_ = makeLine("cbBass", tr("The part whose lowest notes come next"));
    auto *const questions = new QWidget;
    auto *const line = lineIn(questions);
    add(line, tr("&Players:"), players_);
    add(line, tr("&Notes at once:"), voices_);
    add(line, tr("&Melody:"), melody_);
    add(line, tr("&Bass:"), bass_);
    line->setStretchFactor(melody_, 1); // names of parts are long
    line->setStretchFactor(bass_, 1);
    line->addStretch();
    return questions;
}

QTableView *ArrangeDialog::makeTable(const char *name, const QString &title, ArrangeTable &model)
{
    auto *const table = new QTableView;
    table->setObjectName(QLatin1String(name));
    table->setAccessibleName(title);
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    auto *const header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch); // names are cut rather than figures out of sight
    return table;
}

QWidget *ArrangeDialog::makeListening()
{
    auto *const buttons = new QWidget;
    auto *const line = lineIn(buttons);
    const auto makeButton = [&](const char *name, const QString &text, const QString &tip, Heard what) {
        auto *const button = new QPushButton(text);
        button->setObjectName(QLatin1String(name));
        button->setToolTip(tip);
        button->setAutoDefault(false); // Enter arranges
        connect(button, &QPushButton::clicked, this, [=, this] { listen(what); });
        line->addWidget(button);
        return button;
    };
    listenSource_ =
        makeButton("btnListenSource", tr("Listen to the &Song"), tr("Play the song as it is, or stop"), Heard::Source);
    listenArrangement_ = makeButton("btnListenArrangement", tr("&Listen to the Arrangement"),
                                    tr("Play all parts as they would be, or stop"), Heard::Arrangement);
    listenPart_ = makeButton("btnListenPart", tr("Listen to O&ne of Its Parts"),
                             tr("Play the chosen part of the arrangement alone, or stop"), Heard::Part);
    line->addStretch();
    return buttons;
}

QWidget *ArrangeDialog::makeButtons()
{
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    arrange_ = buttons->addButton(tr("&Arrange"), QDialogButtonBox::AcceptRole);
    arrange_->setObjectName(QStringLiteral("btnArrange"));
    arrange_->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &ArrangeDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ArrangeDialog::reject);
    auto *const row = new QWidget;
    auto *const line = lineIn(row);
    line->addWidget(summary_, 1);
    line->addWidget(buttons);
    return row;
}

ArrangeOptions ArrangeDialog::options() const
{
    const auto chosen = [](const QComboBox *box) {
        const int part = box->currentData().toInt();
        return part >= 0 ? std::optional(part) : std::nullopt;
    };
    return {players_->value(), voices_->value(), chosen(melody_), chosen(bass_)};
}

// A spin box tells its value again when Enter is pressed in it, which is to arrange.
void ArrangeDialog::arrangeAgain()
{
    if (wanted_ == options())
        return;
    wanted_ = options();
    QVector<SourcePart> parts;
    for (const auto &source : qAsConst(sources_))
        parts.append(source.part);
    const auto work = [parts, wanted = *wanted_](const TaskControl &control) {
        auto arrangement = arrange(parts, wanted, control.stop());
        for (auto &part : arrangement.parts)
            part.track.toAbc();
        return arrangement;
    };
    failure_.clear();
    work_.start(
        work, [this](const Arrangement &arrangement) { showArrangement(arrangement); },
        [this](const QString &error) {
            failure_ = error;
            showState();
        });
    showState();
}

// What sounds of it goes on as it is now.
void ArrangeDialog::showArrangement(const Arrangement &arrangement)
{
    arrangement_ = arrangement;
    showRows();
    showFound(melody_, arrangement.melody);
    showFound(bass_, arrangement.bass);
    if (heard_ == Heard::Arrangement)
        listenTo(heard_);
    else if (heard_ == Heard::Part)
        player_.stop();
    showState();
}

void ArrangeDialog::showRows()
{
    QVector<ArrangeTable::Row> before;
    for (int i = 0; i < sources_.size(); ++i)
        before.append({sources_[i].part.name, sources_[i].part.instrument, arrangement_.before[i]});
    before_.show(before);
    QVector<ArrangeTable::Row> after;
    for (const auto &part : qAsConst(arrangement_.parts))
        after.append({part.name, sources_[part.sources.first()].part.instrument, part.figures});
    after_.show(after);
    afterView_->selectRow(0);
    for (auto *const table : {beforeView_, afterView_})
        hideEmptyColumns(*table);
}

void ArrangeDialog::showFound(QComboBox *line, std::optional<int> part) const
{
    if (line->currentData().toInt() < 0)
        line->setItemText(0, part ? tr("Found: %1").arg(sources_[*part].part.name) : tr("None"));
}

QString ArrangeDialog::summary() const
{
    if (isBusy())
        return tr("Arranging…");
    if (!failure_.isEmpty())
        return failure_.section(u'\n', 0, 0);
    const auto sum = arrangement_.sumBefore();
    auto text = tr("%1 of %2 notes are kept, by %n player(s)", nullptr, int(arrangement_.parts.size()))
                    .arg(numberText(sum.notes - sum.droppedInAll()), numberText(sum.notes));
    const auto addLoss = [&text](int count, const QString &words) {
        if (count > 0)
            text += QStringLiteral("; ") + words.arg(numberText(count));
    };
    addLoss(sum.count(DropReason::Doubled), tr("%1 were doubled"));
    addLoss(sum.count(DropReason::NoVoice), tr("for %1 no voice was free"));
    addLoss(sum.count(DropReason::OutOfRange), tr("for %1 no instrument has a sample"));
    addLoss(sum.count(DropReason::NoLength), tr("%1 have no length"));
    addLoss(sum.count(DropReason::NoDrummer), tr("%1 of drums need a third player"));
    return text;
}

void ArrangeDialog::showState()
{
    const bool isReady = !isBusy() && failure_.isEmpty() && !arrangement_.parts.isEmpty();
    const std::pair<QPushButton *, Heard> buttons[] = {
        {listenSource_, Heard::Source}, {listenArrangement_, Heard::Arrangement}, {listenPart_, Heard::Part}};
    for (const auto &[button, what] : buttons) {
        button->setIcon(icon(heard_ == what ? "stop" : "play"));
        button->setEnabled(what == Heard::Source || heard_ == what || isReady);
    }
    arrange_->setEnabled(isReady);
    summary_->setText(summary());
}

HeardPart ArrangeDialog::heard(const Track &track, int source) const
{
    const auto &name = sources_[source].part.instrument;
    return {track, instruments_.contains(name) ? instruments_.instrument(name) : Instrument(), sources_[source].level};
}

void ArrangeDialog::listen(Heard what)
{
    if (heard_ == what)
        return player_.stop();
    emit aboutToListen();
    listenTo(what);
}

void ArrangeDialog::listenTo(Heard what)
{
    QMap<int, HeardPart> parts;
    const int current = afterView_->currentIndex().row();
    for (int i = 0; what == Heard::Source && i < sources_.size(); ++i)
        parts.insert(i, heard(sources_[i].part.track, i));
    for (int i = 0; what != Heard::Source && i < arrangement_.parts.size(); ++i) {
        if (what == Heard::Arrangement || i == std::min(current, int(arrangement_.parts.size()) - 1))
            parts.insert(i, heard(arrangement_.parts[i].track, arrangement_.parts[i].sources.first()));
    }
    player_.play(parts); // which ends what was heard before
    heard_ = player_.isPlaying() ? what : Heard::Nothing;
    showState();
}

void ArrangeDialog::done(int result)
{
    player_.stop();
    work_.cancel();
    QDialog::done(result);
}
