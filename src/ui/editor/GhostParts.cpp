#include "ui/editor/GhostParts.h"

#include "ui/roll/PianoRoll.h"

#include <QMenu>

void GhostParts::setParts(const QVector<OtherPart> &parts)
{
    parts_ = parts;
    show();
}

void GhostParts::fill(QMenu &menu)
{
    menu.clear();
    QSet<QString> all;
    for (const auto &part : std::as_const(parts_))
        all.insert(part.id);
    menu.addAction(tr("&All Parts"), this, [=, this] { choose(all); })->setDisabled(all.isEmpty());
    menu.addAction(tr("&None"), this, [this] { choose({}); })->setDisabled(chosen_.isEmpty());
    menu.addSeparator();
    for (const auto &part : std::as_const(parts_)) {
        auto title = part.track->title();
        auto *const action = menu.addAction(title.replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(chosen_.contains(part.id));
        connect(action, &QAction::toggled, this, [this, id = part.id](bool isOn) {
            auto chosen = chosen_;
            isOn ? void(chosen.insert(id)) : void(chosen.remove(id));
            choose(chosen);
        });
    }
}

void GhostParts::choose(const QSet<QString> &ids)
{
    chosen_ = ids;
    show();
}

void GhostParts::show()
{
    std::vector<RollNotes> ghosts;
    for (const auto &part : std::as_const(parts_)) {
        if (chosen_.contains(part.id))
            ghosts.emplace_back(*part.track);
    }
    roll_.setGhosts(std::move(ghosts));
}
