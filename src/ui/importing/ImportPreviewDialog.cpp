#include "ui/importing/ImportPreviewDialog.h"

#include "song/preview/OctaveShift.h"
#include "ui/Icons.h"
#include "ui/ImportSettingsBox.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"
#include "ui/importing/ChoiceDelegate.h"
#include "ui/importing/PartsTable.h"
#include "ui/importing/PreviewPlayer.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QPushButton *namedButton(const char *name, const QString &text, const QString &tip)
{
    auto *const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false); // Enter imports
    return button;
}

QComboBox *octavesBox(QWidget *parent)
{
    auto *const box = new QComboBox(parent);
    for (int octaves = mostOctaves; octaves >= -mostOctaves; --octaves)
        box->addItem(PartsTable::octavesText(octaves));
    return box;
}

bool isMidi(const SongSource &source)
{
    return source.kind == SongSource::Kind::MidiFile || source.bytes.startsWith("MThd");
}

QVector<ImportKind> kindsOf(const QVector<SongSource> &sources, const ReadSong &song)
{
    QVector<ImportKind> kinds;
    if (std::any_of(sources.begin(), sources.end(), isMidi))
        kinds.append(ImportKind::Midi);
    if (!song.converted.isEmpty())
        kinds.append(ImportKind::StandardAbc);
    return kinds;
}

QString titleOf(const QVector<SongSource> &sources)
{
    const auto name =
        sources.isEmpty() ? QString() : QFileInfo(sources.first().content.section(u'\n', 0, 0)).fileName();
    return name.isEmpty() ? ImportPreviewDialog::tr("Choose Parts")
                          : ImportPreviewDialog::tr("Choose Parts - %1").arg(name);
}

ProposalBasis basisOf(const PreviewServices &services)
{
    const auto remembered = services.settings.value(Settings::ProgramInstrument).toString();
    return {services.instruments, ProgramInstruments(remembered), services.fallback};
}

} // namespace

ImportPreviewDialog::ImportPreviewDialog(const QVector<SongSource> &sources, const ReadSong &song,
                                         const ReadingOptions &options, const PreviewServices &services,
                                         QWidget *parent)
    : QDialog(parent), settings_(services.settings), instruments_(services.instruments),
      preview_(sources, basisOf(services)),
      player_(new PreviewPlayer(preview_, services.instruments, services.makeEngine, this)),
      parts_(new PartsTable(preview_, services.instruments, this)), summary_(new QLabel(this)), loss_(new QLabel(this))
{
    setObjectName(QStringLiteral("importPreview"));
    loss_->setObjectName(QStringLiteral("lblLoss"));
    loss_->setTextFormat(Qt::PlainText);
    loss_->setWordWrap(true);
    loss_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    loss_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    summary_->setObjectName(QStringLiteral("lblSummary"));
    summary_->setTextFormat(Qt::PlainText);
    summary_->setWordWrap(true);
    setManualPage(*this, "import.md");
    setWindowTitle(titleOf(sources));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *const middle = new QHBoxLayout;
    middle->addWidget(makeTable(), 1);
    middle->addWidget(makeSettings(kindsOf(sources, song)));
    auto *const column = new QVBoxLayout(this);
    column->addLayout(middle, 1);
    column->addWidget(loss_);
    column->addWidget(makeListening());
    column->addWidget(makeButtons());
    resize(1440, 700);
    fitToScreen(*this);

    connect(&preview_, &ImportPreview::partsChanged, this, &ImportPreviewDialog::showState);
    connect(&preview_, &ImportPreview::partChanged, this, &ImportPreviewDialog::showState);
    connect(&preview_, &ImportPreview::takenChanged, this, &ImportPreviewDialog::showState);
    connect(&preview_, &ImportPreview::settled, this, &ImportPreviewDialog::showState);
    connect(player_, &PreviewPlayer::playingChanged, this, &ImportPreviewDialog::showState);
    preview_.show(song, options);
    showState();
    table_->setFocus();
}

ImportPreviewDialog::~ImportPreviewDialog() = default;

QWidget *ImportPreviewDialog::makeTable()
{
    table_ = new QTableView;
    table_->setObjectName(QStringLiteral("previewParts"));
    table_->setAccessibleName(tr("What becomes parts of the song"));
    table_->setModel(parts_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::EditKeyPressed);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setTabKeyNavigation(false);
    table_->setMinimumWidth(45 * fontMetrics().averageCharWidth()); // it goes before the settings
    table_->setItemDelegateForColumn(
        PartsTable::Instrument,
        new ChoiceDelegate([this](QWidget *parent) { return new InstrumentComboBox(instruments_, parent); }, table_));
    table_->setItemDelegateForColumn(PartsTable::Octaves, new ChoiceDelegate(octavesBox, table_));
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex &cell) {
        if (cell.flags().testFlag(Qt::ItemIsEditable))
            table_->edit(cell);
    });
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 10);
    auto *const header = table_->horizontalHeader();
    header->setResizeContentsPrecision(0); // long lists would take long
    header->setHighlightSections(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(PartsTable::Name, QHeaderView::Interactive);
    connect(&preview_, &ImportPreview::partsChanged, this, &ImportPreviewDialog::fitNames, Qt::QueuedConnection);
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, &ImportPreviewDialog::showState);
    return table_;
}

// What the other columns leave is for long names.
void ImportPreviewDialog::fitNames()
{
    const QAbstractItemView &table = *table_;
    auto *const header = table_->horizontalHeader();
    const int others = header->length() - header->sectionSize(PartsTable::Name);
    const int least = table.fontMetrics().averageCharWidth() * 24;
    const int most = std::max(least, table.viewport()->width() - others);
    header->resizeSection(PartsTable::Name, std::clamp(table.sizeHintForColumn(PartsTable::Name), least, most));
}

QWidget *ImportPreviewDialog::makeListening()
{
    listenPart_ = namedButton("btnListenPart", tr("Listen to &Part"), tr("Play the chosen part, or stop"));
    listenAll_ = namedButton("btnListenAll", tr("&Listen to All"), tr("Play all parts that are ticked, or stop"));
    auto *const all = namedButton("btnTakeAll", tr("Tick &All"), tr("Every part is imported"));
    auto *const none = namedButton("btnTakeNone", tr("Tick &None"), tr("No part is imported"));
    auto *const line = new QWidget;
    auto *const widgets = new QHBoxLayout(line);
    widgets->setContentsMargins(0, 0, 0, 0);
    for (auto *const button : {listenPart_, listenAll_, all, none})
        widgets->addWidget(button);
    widgets->addStretch();
    connect(listenPart_, &QPushButton::clicked, this, [this] {
        if (const int row = table_->currentIndex().row(); row >= 0)
            listen({row});
    });
    connect(listenAll_, &QPushButton::clicked, this, [this] { listen(preview_.takenParts()); });
    connect(all, &QPushButton::clicked, this, [this] { preview_.takeAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { preview_.takeAll(false); });
    return line;
}

QWidget *ImportPreviewDialog::makeSettings(const QVector<ImportKind> &kinds)
{
    box_ = new ImportSettingsBox(kinds, settings_);
    connect(box_, &ImportSettingsBox::changed, this, &ImportPreviewDialog::readAgain);
    auto *const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // what is in it takes the keys, and comes into sight
    area->setWidgetResizable(true);
    area->setWidget(box_);
    area->setMaximumWidth(box_->sizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    return area;
}

QWidget *ImportPreviewDialog::makeButtons()
{
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    import_ = buttons->addButton(tr("&Import"), QDialogButtonBox::AcceptRole);
    import_->setObjectName(QStringLiteral("btnImport"));
    import_->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &ImportPreviewDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ImportPreviewDialog::reject);
    auto *const line = new QWidget;
    auto *const widgets = new QHBoxLayout(line);
    widgets->setContentsMargins(0, 0, 0, 0);
    widgets->addWidget(summary_, 1);
    widgets->addWidget(buttons);
    return line;
}

void ImportPreviewDialog::readAgain()
{
    auto options = preview_.options();
    const auto chosen = readingOptions([this](Settings::Setting setting) { return box_->value(setting); });
    options.midi = chosen.midi;
    options.cleanQuantise = chosen.cleanQuantise;
    options.mml = chosen.mml;
    options.standardAbc = chosen.standardAbc;
    preview_.read(options);
    showState();
}

void ImportPreviewDialog::listen(const QVector<int> &parts)
{
    if (player_->isPlaying()) {
        player_->stop();
        return;
    }
    emit aboutToListen();
    player_->play(parts);
}

QString ImportPreviewDialog::summary() const
{
    if (preview_.isBusy())
        return tr("Reading…");
    if (preview_.parts().isEmpty())
        return preview_.problem().section(u'\n', 0, 0);
    qint64 notes = 0;
    qint64 lost = 0;
    qint64 characters = 0;
    const auto taken = preview_.takenParts();
    for (const int part : taken) {
        notes += preview_.parts()[part].notes();
        lost += preview_.parts()[part].lostNotes();
        characters += preview_.parts()[part].characters();
    }
    const auto text = tr("%1 of %2 parts, %3 notes, %4 characters")
                          .arg(taken.size())
                          .arg(preview_.parts().size())
                          .arg(QLocale().toString(notes), QLocale().toString(characters));
    return lost > 0 ? text + tr("; %1 notes would be lost or silent").arg(QLocale().toString(lost)) : text;
}

void ImportPreviewDialog::showState()
{
    if (!table_->currentIndex().isValid())
        table_->selectRow(0);
    const bool isPlaying = player_->isPlaying();
    const auto playIcon = icon(isPlaying ? "stop" : "play");
    listenPart_->setIcon(playIcon);
    listenAll_->setIcon(playIcon);
    const bool isAnyTaken = !preview_.takenParts().isEmpty();
    listenPart_->setEnabled(isPlaying || !preview_.parts().isEmpty());
    listenAll_->setEnabled(isPlaying || isAnyTaken);
    import_->setEnabled(isAnyTaken || preview_.isBusy());
    summary_->setText(summary());
    const int current = table_->currentIndex().row();
    loss_->setText(current >= 0 && current < preview_.parts().size() ? parts_->lossText(current) : QString());
    const bool hasChannels = std::any_of(preview_.parts().begin(), preview_.parts().end(),
                                         [](const PartPreview &part) { return part.channel().has_value(); });
    table_->setColumnHidden(PartsTable::Program, !hasChannels && !preview_.parts().isEmpty());
    if (isAccepted_ && !preview_.isBusy())
        accept();
}

void ImportPreviewDialog::accept()
{
    isAccepted_ = preview_.isBusy();
    if (isAccepted_ || preview_.takenParts().isEmpty())
        return;
    box_->store(settings_);
    const auto remembered = preview_.remembered().text();
    if (remembered != settings_.value(Settings::ProgramInstrument).toString())
        settings_.setValue(Settings::ProgramInstrument, remembered);
    QDialog::accept();
}

void ImportPreviewDialog::done(int result)
{
    player_->stop();
    QDialog::done(result);
}
