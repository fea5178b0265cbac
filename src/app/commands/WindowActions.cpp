#include "app/commands/WindowActions.h"

#include "ui/Icons.h"

#include <QAction>
#include <QMetaMethod>
#include <QWidget>

void WindowActions::add(const QVector<ActionRow> &rows)
{
    const auto &type = *window_.metaObject();
    for (const auto &row : rows) {
        auto *const made = new QAction(row.text, &window_);
        if (*row.icon != '\0')
            made->setIcon(icon(row.icon));
        if (!row.tip.isEmpty()) {
            made->setToolTip(row.tip);
            made->setStatusTip(row.tip);
        }
        const auto slot = type.method(type.indexOfSlot(row.slot));
        if (!QObject::connect(made, QMetaMethod::fromSignal(&QAction::triggered), &window_, slot))
            qFatal("%s: the window has no slot %s", row.name, row.slot);
        made->setCheckable(slot.parameterCount() == 1); // whether it is on
        add(made, row.name, row.shortcut);
        actions_.append({made, row.available});
    }
}

void WindowActions::add(QAction *action, const char *name, const char *shortcut)
{
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(QLatin1String(shortcut)));
    window_.addAction(action);
    const auto id = QStringLiteral("window.") + action->objectName();
    keys_.append({id, KeyScope::Window, plainText(action->text()), action->shortcut()});
    nameKeyOf(*action, id);
}

QAction *WindowActions::find(const QString &name) const
{
    return window_.findChild<QAction *>(name);
}

void WindowActions::update(const std::function<bool(Available)> &isAvailable)
{
    for (const auto &[action, available] : std::as_const(actions_))
        action->setEnabled(isAvailable(available));
}
