#pragma once

#include <QString>

#include <map>

// The names of the steps in a history of which only the length is known. A value.
class StepNames
{
public:
    void clear() { names_.clear(); }

    // The step that made the history as long as `steps`; what stood behind it is gone.
    void name(int steps, const QString &name)
    {
        names_.erase(names_.lower_bound(steps), names_.end());
        names_[steps] = name;
    }

    // Of the last of so many steps; `otherwise` where it has none.
    QString of(int steps, const QString &otherwise) const
    {
        const auto name = names_.find(steps);
        return name != names_.end() ? name->second : otherwise;
    }

private:
    std::map<int, QString> names_;
};
