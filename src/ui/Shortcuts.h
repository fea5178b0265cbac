#pragma once

#include <QHash>
#include <QKeySequence>
#include <QString>
#include <QVector>

#include <optional>

class QAction;
class QWidget;
class Settings;

// Where a key works: in the main window, in one of its controls that has the focus, in an editor, or in one of its two
// views.
enum class KeyScope { Window, Controls, Editor, Text, Roll };

// A command and the key that it has unless the user gives it another one; a row of the table of keys.
struct KeyRow
{
    enum class Kind { Changeable, Fixed }; // Fixed: of a control; it is only listed

    QString id; // that the settings keep it under: "window.actionPlay"
    KeyScope scope;
    QString text; // as a menu has it
    QKeySequence usual;
    Kind kind = Kind::Changeable;
};

// The keys that the user has changed, over the rows that know the usual ones. A value; its text is what the settings
// keep: "id=key" a line, without a key where a command is to have none.
class Shortcuts
{
public:
    explicit Shortcuts(const QString &text = {});
    QString text() const;

    QKeySequence key(const KeyRow &row) const { return key(row.id, row.usual); }
    QKeySequence key(const QString &id, const QKeySequence &usual) const { return changed_.value(id, usual); }
    bool isChanged(const KeyRow &row) const { return changed_.contains(row.id); }
    void set(const KeyRow &row, const QKeySequence &key); // the usual one is no change
    void reset(const KeyRow &row) { changed_.remove(row.id); }

    // The row that has the key already where the other would use it. Commands that share a key by the table may: what
    // can be done decides which of them is meant.
    const KeyRow *rivalOf(const KeyRow &row, const QKeySequence &key, const QVector<KeyRow> &rows) const;

private:
    QHash<QString, QKeySequence> changed_;
};

// Whether the key types a character where the row's command would be.
bool isTyped(const KeyRow &row, const QKeySequence &key);

// A menu's text without its letter and dots.
QString plainText(const QString &text);

// Marks an action as the one of a row, with the key that it has as the usual one.
void nameKeyOf(QAction &action, const QString &id);
// The key that it is to have; it may have none for a while.
QKeySequence keyOf(const QAction &action);

// Gives the marked actions below the window their keys, now and whenever the settings change; tool tips that name the
// key follow. The settings outlive the window.
void followShortcuts(QWidget &window, Settings &settings);
