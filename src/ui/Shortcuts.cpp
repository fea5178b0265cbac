#include "ui/Shortcuts.h"

#include "settings/Settings.h"

#include <QAction>
#include <QStringList>
#include <QWidget>

#include <algorithm>

namespace {

constexpr char idProperty[] = "keyRow";
constexpr char usualProperty[] = "usualKey";
constexpr char currentProperty[] = "key";

bool isEditors(KeyScope scope)
{
    return scope == KeyScope::Editor || scope == KeyScope::Text || scope == KeyScope::Roll;
}

// Whether one key may mean both.
bool meet(KeyScope a, KeyScope b)
{
    if (a == KeyScope::Controls || b == KeyScope::Controls)
        return false;
    return a == b || (isEditors(a) && isEditors(b) && (a == KeyScope::Editor || b == KeyScope::Editor));
}

QString withKey(const QString &text, const QKeySequence &key)
{
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText));
}

void give(QAction &action, const QKeySequence &key)
{
    if (action.toolTip() == withKey(action.statusTip(), keyOf(action)))
        action.setToolTip(withKey(action.statusTip(), key));
    action.setProperty(currentProperty, key);
    action.setShortcut(key);
}

void giveAll(const QWidget &window, const Settings &settings)
{
    const Shortcuts shortcuts(settings.value(Settings::Shortcuts).toString());
    for (auto *const action : window.findChildren<QAction *>()) {
        const auto id = action->property(idProperty).toString();
        if (!id.isEmpty())
            give(*action, shortcuts.key(id, action->property(usualProperty).value<QKeySequence>()));
    }
}

} // namespace

Shortcuts::Shortcuts(const QString &text)
{
    for (const auto &line : text.split(u'\n', Qt::SkipEmptyParts))
        changed_.insert(line.section(u'=', 0, 0),
                        QKeySequence::fromString(line.section(u'=', 1), QKeySequence::PortableText));
}

QString Shortcuts::text() const
{
    QStringList lines;
    for (auto each = changed_.begin(); each != changed_.end(); ++each)
        lines.append(each.key() + u'=' + each->toString(QKeySequence::PortableText));
    lines.sort();
    return lines.join(u'\n');
}

void Shortcuts::set(const KeyRow &row, const QKeySequence &key)
{
    if (key == row.usual)
        changed_.remove(row.id);
    else
        changed_.insert(row.id, key);
}

const KeyRow *Shortcuts::rivalOf(const KeyRow &row, const QKeySequence &key, const QVector<KeyRow> &rows) const
{
    const auto isRival = [&](const KeyRow &other) {
        const bool mayShare = !row.usual.isEmpty() && row.usual == other.usual;
        return other.id != row.id && !mayShare && meet(row.scope, other.scope) && this->key(other) == key;
    };
    const auto rival = key.isEmpty() ? rows.end() : std::find_if(rows.begin(), rows.end(), isRival);
    return rival != rows.end() ? &*rival : nullptr;
}

bool isTyped(const KeyRow &row, const QKeySequence &key)
{
    if (key.isEmpty() || (row.scope != KeyScope::Editor && row.scope != KeyScope::Text))
        return false;
    const auto code = key.toString(QKeySequence::PortableText);
    return code.size() == 1 || code == u"Space" || (code.startsWith(u"Shift+") && code.size() == 7);
}

QString plainText(const QString &text)
{
    auto plain = text;
    plain.remove(u'&').remove(u'…');
    return plain.remove(QStringLiteral("..."));
}

void nameKeyOf(QAction &action, const QString &id)
{
    action.setProperty(idProperty, id);
    action.setProperty(usualProperty, action.shortcut());
    action.setProperty(currentProperty, action.shortcut());
}

QKeySequence keyOf(const QAction &action)
{
    return action.property(currentProperty).value<QKeySequence>();
}

void followShortcuts(QWidget &window, Settings &settings)
{
    giveAll(window, settings);
    QObject::connect(&settings, &Settings::settingChanged, &window, [&](Settings::Setting setting) {
        if (setting == Settings::Shortcuts)
            giveAll(window, settings);
    });
}
