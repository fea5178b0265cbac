#include "ui/report/ImportAgainDialog.h"

#include "song/SongReader.h"
#include "ui/MidiSettingsBox.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

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

} // namespace

ImportAgainDialog::ImportAgainDialog(const QVector<SongImported> &imports, const Settings &settings, QWidget *parent)
    : QDialog(parent), imports_(imports), settings_(settings), files_(new QComboBox), column_(new QVBoxLayout(this))
{
    setWindowTitle(tr("Import Again"));
    files_->setObjectName(QStringLiteral("cboFile"));
    files_->setToolTip(tr("The file that is read again; its parts are replaced"));
    for (const auto &imported : imports_) {
        files_->addItem(QFileInfo(imported.path).fileName());
        files_->setItemData(files_->count() - 1, imported.path, Qt::ToolTipRole);
    }
    auto *const file = new QFormLayout;
    file->addRow(tr("File:"), files_);
    column_->addLayout(file);

    auto *const remark = new QLabel(tr("The parts of this file are replaced, in one step that can be undone. Parts of "
                                       "the same name keep their instrument, volume and pan."));
    remark->setWordWrap(true);
    column_->addWidget(remark);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column_->addWidget(buttons);
    showSettings();
    connect(files_, qOverload<int>(&QComboBox::currentIndexChanged), this, &ImportAgainDialog::showSettings);
}

int ImportAgainDialog::chosen() const
{
    return files_->currentIndex();
}

// Those of ABC say nothing of how it is read.
void ImportAgainDialog::showSettings()
{
    delete std::exchange(box_, nullptr);
    const auto imported = imports_.value(chosen());
    if (sourceOf(imported.path).kind == SongSource::Kind::AbcFile)
        return;
    box_ = new MidiSettingsBox(settings_, valuesOf(imported.settings));
    column_->insertWidget(1, box_);
}

QJsonObject ImportAgainDialog::settings() const
{
    return box_ ? importSettings([this](Settings::Setting setting) { return box_->value(setting); })
                : imports_.value(chosen()).settings;
}
