// What a row says of itself on request.
#include "ui/InstrumentComboBox.h"
#include "ui/ValueDial.h"
#include "ui/song/TitleLabel.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

#include <QLabel>
#include <QToolButton>

QString TrackWidget::spokenDescription() const
{
    QStringList said{cboInstrument_->shownText().isEmpty() ? tr("no instrument") : cboInstrument_->shownText(),
                     tr("volume %1").arg(dlVolume_->valueText()), tr("pan %1").arg(dlPan_->valueText()),
                     isMuted() ? tr("muted") : tr("not muted")};
    const auto sayWhen = [&](bool isSo, const QString &text) {
        if (isSo)
            said.append(text);
    };
    sayWhen(btnSolo_->isChecked(), tr("solo"));
    sayWhen(isSelected(), tr("selected"));
    said.append(tr("level %1").arg(vuMeter_->spokenValue()));
    sayWhen(!lblOffset_->isHidden(), tr("start offset %1").arg(lblOffset_->text()));
    sayWhen(!lblDraft_->isHidden(), lblDraft_->text());
    sayWhen(!btnFindings_->isHidden(), btnFindings_->toolTip());
    sayWhen(lblTitle_->isMarked(), tr("differs from its file"));
    return said.join(QStringLiteral(", "));
}
