#include "ui/preferences/ProgramsPage.h"

#include "import/ProgramNames.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int programRole = Qt::UserRole;

QTreeWidgetItem *itemOf(int program, const QString &instrument)
{
    const bool isPercussion = program == ProgramInstruments::percussion;
    const auto name = isPercussion ? ProgramsPage::tr("Percussion") : translatedProgramName(programName(program));
    auto *const item = new QTreeWidgetItem(QStringList{name, instrument});
    item->setData(0, programRole, program);
    return item;
}

QTreeWidget *makeList()
{
    auto *const list = new QTreeWidget;
    list->setObjectName(QStringLiteral("rememberedPrograms"));
    list->setAccessibleName(ProgramsPage::tr("Programs with a chosen instrument"));
    list->setHeaderLabels({ProgramsPage::tr("MIDI program"), ProgramsPage::tr("Instrument")});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
    return list;
}

} // namespace

ProgramsPage::ProgramsPage(const ProgramInstruments &programs, const InstrumentSet &instruments, QWidget *parent)
    : QWidget(parent), programs_(programs), list_(makeList()), instrument_(new QComboBox),
      forget_(new QPushButton(tr("Forget")))
{
    instrument_->setObjectName(QStringLiteral("cboProgramInstrument"));
    instrument_->addItems(instruments.names());
    instrument_->setToolTip(tr("The instrument that is proposed for the chosen programs"));
    instrument_->setAccessibleName(instrument_->toolTip());
    forget_->setObjectName(QStringLiteral("btnForgetProgram"));
    forget_->setToolTip(tr("Propose an instrument by its name and kind again"));

    auto *const note = new QLabel(tr("What you chose for a program when importing is proposed the next time."));
    note->setWordWrap(true);
    auto *const controls = new QHBoxLayout;
    controls->addWidget(instrument_, 1);
    controls->addWidget(forget_);
    auto *const group = new QGroupBox(tr("Chosen Instruments"));
    auto *const rows = new QVBoxLayout(group);
    rows->addWidget(note);
    rows->addWidget(list_, 1);
    rows->addLayout(controls);
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(group);

    connect(list_, &QTreeWidget::itemSelectionChanged, this, &ProgramsPage::showChoice);
    connect(instrument_, qOverload<int>(&QComboBox::activated), this, [this] { change(instrument_->currentText()); });
    connect(forget_, &QPushButton::clicked, this, [this] { change({}); });
    fill();
    list_->setCurrentItem(list_->topLevelItem(0));
}

void ProgramsPage::fill()
{
    list_->clear();
    for (auto each = programs_.all().begin(); each != programs_.all().end(); ++each)
        list_->addTopLevelItem(itemOf(each.key(), each.value()));
    showChoice();
}

QVector<int> ProgramsPage::chosen() const
{
    QVector<int> programs;
    for (const auto *const item : list_->selectedItems())
        programs.append(item->data(0, programRole).toInt());
    return programs;
}

void ProgramsPage::showChoice()
{
    const auto programs = chosen();
    instrument_->setEnabled(!programs.isEmpty());
    forget_->setEnabled(!programs.isEmpty());
    instrument_->setCurrentIndex(programs.isEmpty() ? -1
                                                    : instrument_->findText(programs_.instrument(programs.first())));
}

void ProgramsPage::change(const QString &instrument)
{
    const auto programs = chosen();
    for (const int program : programs)
        programs_.set(program, instrument);
    fill();
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        auto *const item = list_->topLevelItem(row);
        item->setSelected(programs.contains(item->data(0, programRole).toInt()));
    }
    emit changed(programs_.text());
}
