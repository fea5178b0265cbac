#include "ui/Dialogs.h"

#include "ui/notices/DesktopNotice.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

// Texts from files and servers are shown as they are, not as HTML.
QMessageBox::StandardButton show(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
                                 QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                 QMessageBox::StandardButton preset = QMessageBox::NoButton)
{
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(preset);
    return QMessageBox::StandardButton(box.exec());
}

} // namespace

QStringList DesktopDialogs::openFiles(QWidget *parent, const QString &caption, const QString &start,
                                      const QString &filter)
{
    return QFileDialog::getOpenFileNames(parent, caption, start, filter);
}

QString DesktopDialogs::openFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter)
{
    return QFileDialog::getOpenFileName(parent, caption, start, filter);
}

QString DesktopDialogs::saveFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter)
{
    QFileDialog dialog(parent, caption, QFileInfo(start).path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(filter.section(QStringLiteral("*."), 1).section(u')', 0, 0));
    if (!QFileInfo(start).isDir())
        dialog.selectFile(QFileInfo(start).fileName());
    else
        dialog.setDirectory(start);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString DesktopDialogs::directory(QWidget *parent, const QString &caption, const QString &start)
{
    return QFileDialog::getExistingDirectory(parent, caption, start);
}

std::optional<QString> DesktopDialogs::text(QWidget *parent, const QString &title, const QString &label,
                                            const QString &value)
{
    bool isAccepted = false;
    const auto text = QInputDialog::getText(parent, title, label, QLineEdit::Normal, value, &isAccepted);
    return isAccepted ? std::optional(text) : std::nullopt;
}

QColor DesktopDialogs::colour(QWidget *parent, const QString &title, const QColor &value)
{
    return QColorDialog::getColor(value, parent, title);
}

void DesktopDialogs::message(QWidget *parent, Severity severity, const QString &title, const QString &text)
{
    switch (severity) {
    case Severity::Information:
        show(parent, QMessageBox::Information, title, text);
        break;
    case Severity::Warning:
        show(parent, QMessageBox::Warning, title, text);
        break;
    case Severity::Critical:
        show(parent, QMessageBox::Critical, title, text);
        break;
    }
}

void DesktopDialogs::about(QWidget *parent, const QString &title, const QString &html)
{
    QMessageBox::about(parent, title, html);
}

Dialogs::Answer DesktopDialogs::ask(QWidget *parent, const QString &title, const QString &text)
{
    const auto answer = show(parent, QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No);
    return answer == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::optional<Dialogs::Answer> DesktopDialogs::askOrCancel(QWidget *parent, const QString &title, const QString &text)
{
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    switch (show(parent, QMessageBox::Question, title, text, buttons, QMessageBox::Yes)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return {};
    }
}

Dialogs::CloseAnswer DesktopDialogs::askToSave(QWidget *parent, const QString &title, const QString &text)
{
    const auto buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    switch (show(parent, QMessageBox::Warning, title, text, buttons, QMessageBox::Save)) {
    case QMessageBox::Save:
        return CloseAnswer::Save;
    case QMessageBox::Discard:
        return CloseAnswer::Discard;
    default:
        return CloseAnswer::Cancel;
    }
}

Dialogs::OverwriteAnswer DesktopDialogs::askToOverwrite(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    const auto *const overwrite =
        box.addButton(QCoreApplication::translate("Dialogs", "Overwrite"), QMessageBox::DestructiveRole);
    auto *const saveAs = box.addButton(QCoreApplication::translate("Dialogs", "Save As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(saveAs);
    box.exec();
    if (box.clickedButton() == overwrite)
        return OverwriteAnswer::Overwrite;
    return box.clickedButton() == saveAs ? OverwriteAnswer::SaveAs : OverwriteAnswer::Cancel;
}

Dialogs::DraftAnswer DesktopDialogs::askAboutDraft(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    auto *const fix = box.addButton(QCoreApplication::translate("Dialogs", "&Fix Errors"), QMessageBox::RejectRole);
    const auto *const keep =
        box.addButton(QCoreApplication::translate("Dialogs", "&Keep as Draft"), QMessageBox::AcceptRole);
    const auto *const discard =
        box.addButton(QCoreApplication::translate("Dialogs", "&Discard Changes"), QMessageBox::DestructiveRole);
    box.setDefaultButton(fix);
    box.setEscapeButton(fix);
    box.exec();
    if (box.clickedButton() == keep)
        return DraftAnswer::KeepAsDraft;
    return box.clickedButton() == discard ? DraftAnswer::Discard : DraftAnswer::Fix;
}

std::optional<Dialogs::ForeignAnswer> DesktopDialogs::askAboutForeign(QWidget *parent, const QString &title,
                                                                      const QString &text)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    auto *const convert =
        box.addButton(QCoreApplication::translate("Dialogs", "&Convert for the Game"), QMessageBox::AcceptRole);
    const auto *const open =
        box.addButton(QCoreApplication::translate("Dialogs", "&Open as It Is"), QMessageBox::AcceptRole);
    box.setDefaultButton(convert);
    box.exec();
    if (box.clickedButton() == convert)
        return ForeignAnswer::Convert;
    return box.clickedButton() == open ? std::optional(ForeignAnswer::OpenAsItIs) : std::nullopt;
}

bool DesktopDialogs::run(QDialog &dialog)
{
    return dialog.exec() == QDialog::Accepted;
}

void DesktopDialogs::openInBrowser(const QUrl &address)
{
    if (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"))
        QDesktopServices::openUrl(address);
}

void DesktopDialogs::openFolder(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void DesktopDialogs::tellEnd(QWidget *window, const QString &title, const QString &text, qint64 took)
{
    constexpr qint64 longMs = 5000;
    if (took >= longMs && !QApplication::activeWindow())
        showDesktopNotice(*window, title, text);
}
