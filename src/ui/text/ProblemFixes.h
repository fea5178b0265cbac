#pragma once

#include "check/findings/Finding.h"

#include <QPoint>
#include <QVector>

class EditorDocument;
class QMenu;

// What can be done about findings of a document's text: each fix that their kinds have, here and in the whole text.
// [ui]
namespace ProblemFixes {

bool areThere(const QVector<Finding> &findings);

// Adds actions, a separator behind them, before what the menu has. The document must outlive it.
void addTo(QMenu &menu, EditorDocument &document, const QVector<Finding> &findings);

// Makes the one fix there is, or shows a menu of several at the place on the screen. False when there is none.
bool fixOrAsk(EditorDocument &document, const QVector<Finding> &findings, const QPoint &place);

} // namespace ProblemFixes
