#include "ui/report/ImportAgainDialog.h"

#include "song/SongReader.h"
#include "ui/ImportSettingsBox.h"
#include "ui/ManualPage.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QHash<Settings::Setting, QVariant> valuesOf(const QJsonObject &settings)
{
    QHash<Settings::Setting, QVariant> values;
    for (const auto &row : SettingsTable::rows()) {
        const auto value = settings[QLatin1String(row.key)];
        if (!value.isUndefined())
            values.insert(row.setting, value.toVariant());
    }
    return values;
}

// A text file may hold ABC or MML.
QVector<ImportKind> kindsOf(const SongSource &source)
{
    using Kind = SongSource::Kind;
    if (source.kind == Kind::AbcFile || source.kind == Kind::AbcText)
        return {ImportKind::StandardAbc};
    if (source.kind == Kind::TextFile)
        return {ImportKind::Midi, ImportKind::StandardAbc};
    return {ImportKind::Midi};
}

} // namespace

ImportAgainDialog::ImportAgainDialog(const QVector<SongImported> &imports, const Settings &settings, QWidget *parent)
    : QDialog(parent), imports_(imports), settings_(settings), files_(new QComboBox), area_(new QScrollArea)
{
    setWindowTitle(tr("Import Again"));
    setManualPage(*this, "import.md");
    files_->setObjectName(QStringLiteral("cboFile"));
    files_->setToolTip(tr("What is read again; its parts are replaced"));
    for (const auto &imported : imports_) {
        files_->addItem(imported.path.isEmpty() ? tr("Clipboard") : QFileInfo(imported.path).fileName());
        files_->setItemData(files_->count() - 1, imported.path, Qt::ToolTipRole);
    }
    auto *const file = new QFormLayout;
    file->addRow(tr("File:"), files_);
    auto *const column = new QVBoxLayout(this);
    column->addLayout(file);
    column->addWidget(area_, 1);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus); // what is in it takes the keys
    area_->setWidgetResizable(true);

    auto *const remark =
        new QLabel(tr("The parts of this import are replaced, in one step that can be undone. Parts of "
                      "the same name keep their instrument, volume and pan."));
    remark->setWordWrap(true);
    column->addWidget(remark);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    showSettings();
    remark->setMinimumHeight(remark->heightForWidth(area_->minimumWidth())); // which no layout asks for
    connect(files_, qOverload<int>(&QComboBox::currentIndexChanged), this, &ImportAgainDialog::showSettings);
}

int ImportAgainDialog::chosen() const
{
    return files_->currentIndex();
}

// On a small screen they are scrolled.
void ImportAgainDialog::showSettings()
{
    const auto imported = imports_.value(chosen());
    box_ = new ImportSettingsBox(kindsOf(sourceOf(imported)), settings_, valuesOf(imported.settings));
    area_->setWidget(box_);
    const auto wanted = box_->sizeHint();
    const int others = 20 * fontMetrics().lineSpacing(); // the rest of the dialog, and frames of windows
    area_->setMinimumSize(wanted.width() + area_->verticalScrollBar()->sizeHint().width(),
                          std::min(wanted.height(), screen()->availableSize().height() - others));
}

QJsonObject ImportAgainDialog::settings() const
{
    return importSettings([this](Settings::Setting setting) { return box_->value(setting); });
}
