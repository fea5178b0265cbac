#include "ui/transform/DialogFrame.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QIcon>
#include <QVBoxLayout>

void frameDialog(QDialog &dialog, const QString &title, const QList<QWidget *> &parts)
{
    dialog.setWindowTitle(title);
    dialog.setWindowIcon(QIcon(QStringLiteral(":/icons/appicon.png")));
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *const layout = new QVBoxLayout(&dialog);
    layout->setSpacing(12);
    for (auto *const part : parts)
        layout->addWidget(part);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
