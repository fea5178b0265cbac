#pragma once

#include <QString>

struct RewriteLoss;
class Dialogs;
class QWidget;

// Whether the user agrees that a text is written anew for a change, and to what it loses. otherwise: what becomes of
// the change if not, as a sentence; nothing where it is given up. Waits for the answer. On the interface thread.
bool mayRewriteText(Dialogs &dialogs, QWidget *parent, const QString &title, const RewriteLoss &loss,
                    const QString &otherwise = {});
