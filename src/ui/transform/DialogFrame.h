#pragma once

#include <QList>
#include <QString>

class QDialog;
class QWidget;

// What the dialogs of the editor have in common: title, application icon, the parts one below the other, and OK and
// Cancel. The size is fixed to what the parts need.
void frameDialog(QDialog &dialog, const QString &title, const QList<QWidget *> &parts);
