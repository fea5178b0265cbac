#pragma once

#include <QString>

#include <algorithm>
#include <map>

// The names of the steps in a history of which only the length is known. A value.
class StepNames
{
public:
    void clear() { steps_.clear(); }

    // The step that made the history longer from one length to another; what stood behind it is gone.
    void name(int from, int to, const QString &name)
    {
        steps_.erase(steps_.lower_bound(to), steps_.end());
        steps_[to] = {from, name};
    }

    void forgetBehind(int length) { steps_.erase(steps_.upper_bound(length), steps_.end()); }

    // The length before the last step.
    int beginOf(int length) const
    {
        const auto step = steps_.find(length);
        return step != steps_.end() ? step->second.from : length;
    }

    bool has(int length) const { return steps_.count(length) != 0; }
    // Whether the step that comes next has a name.
    bool hasNext(int length) const
    {
        return std::any_of(steps_.upper_bound(length), steps_.end(),
                           [length](const auto &step) { return step.second.from == length; });
    }

    // Of the last step of a history of this length; `otherwise` where it has none.
    QString of(int length, const QString &otherwise) const
    {
        const auto step = steps_.find(length);
        return step != steps_.end() ? step->second.name : otherwise;
    }

private:
    struct Step
    {
        int from = 0;
        QString name;
    };

    std::map<int, Step> steps_; // by the length behind them
};
