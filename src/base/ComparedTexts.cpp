#include "base/ComparedTexts.h"

bool ComparedTexts::areSame(const QString &key, const QString &a, const QString &b)
{
    if (a.size() != b.size() || a.constData() == b.constData())
        return a.size() == b.size();
    auto &pair = pairs_[key];
    if (pair.a.constData() != a.constData() || pair.b.constData() != b.constData())
        pair = {a, b, a == b};
    return pair.areSame;
}
