#include "ui/transform/DialogFrame.h"

#include "ui/ManualPage.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QIcon>
#include <QVBoxLayout>

namespace {

const QString keepsTextName = QStringLiteral("chkKeepText");

QWidget *makeTextChoice()
{
    auto *const keeps = new QCheckBox(QCoreApplication::translate("DialogFrame", "Keep bar lines and comments"));
    keeps->setObjectName(keepsTextName);
    keeps->setChecked(true);
    keeps->setToolTip(QCoreApplication::translate(
        "DialogFrame", "Change only the notes in the text; otherwise it is written anew, without all that is no note"));
    return keeps;
}

} // namespace

void frameDialog(QDialog &dialog, const QString &title, const QList<QWidget *> &parts, TextChoice choice)
{
    dialog.setWindowTitle(title);
    setManualPage(dialog, "editor.md"); // where most of them belong
    dialog.setWindowIcon(QIcon(QStringLiteral(":/icons/appicon.png")));
    dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *const layout = new QVBoxLayout(&dialog);
    layout->setSpacing(12);
    for (auto *const part : parts)
        layout->addWidget(part);
    if (choice == TextChoice::Asked)
        layout->addWidget(makeTextChoice());
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

bool keepsText(const QDialog &dialog)
{
    return dialog.findChild<QCheckBox *>(keepsTextName)->isChecked();
}
