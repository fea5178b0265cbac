#pragma once

#include <QList>
#include <QString>

class QDialog;
class QWidget;

// What the dialogs of the editor have in common: title, application icon, the parts one below the other, the choice
// between a change of the text in place and a new text, and OK and Cancel. The size is fixed to what the parts need.
// Commands of the whole song write the texts anew, and do not ask.
enum class TextChoice { Asked, NotAsked };
void frameDialog(QDialog &dialog, const QString &title, const QList<QWidget *> &parts,
                 TextChoice choice = TextChoice::Asked);

// Whether bar lines and comments are to stay.
bool keepsText(const QDialog &dialog);
