#pragma once

#include "app/commands/ActionRow.h"
#include "ui/Shortcuts.h"

#include <QStringList>
#include <QVector>

#include <functional>
#include <utility>

class QAction;
class QWidget;

// The commands of a window as its actions. On the interface thread.
class WindowActions
{
public:
    // The window outlives this and owns the actions.
    explicit WindowActions(QWidget &window) : window_(window) {}

    // Each action triggers the window's slot that its row names; a row that names none ends the program.
    void add(const QVector<ActionRow> &rows);
    void add(QAction *action, const char *name, const char *shortcut);

    QAction *find(const QString &name) const;
    const QVector<KeyRow> &keyRows() const { return keys_; }
    void update(const std::function<bool(Available)> &isAvailable);

    // A name that stands between groups of actions in a menu or toolbar.
    static QString separator() { return QStringLiteral("-"); }
    // Adds the actions to what has addAction() and addSeparator(). names: with blanks between.
    template<typename Bar>
    void addTo(Bar &bar, const char *names) const
    {
        for (const auto &name : QString::fromLatin1(names).split(u' ', Qt::SkipEmptyParts)) {
            if (name == separator())
                bar.addSeparator();
            else
                bar.addAction(find(name));
        }
    }

private:
    QWidget &window_;
    QVector<std::pair<QAction *, Available>> actions_;
    QVector<KeyRow> keys_;
};
