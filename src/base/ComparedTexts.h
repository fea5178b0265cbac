#pragma once

#include <QHash>
#include <QString>

// Whether two texts are the same, for whoever asks about the same ones again and again: two of a key are looked through
// once, as long as none of them changes, and two that share their characters not at all. On one thread at a time.
class ComparedTexts
{
public:
    bool areSame(const QString &key, const QString &a, const QString &b);
    void clear() { pairs_.clear(); }

private:
    // Copies, so that no other text comes to lie where they are.
    struct Pair
    {
        QString a;
        QString b;
        bool areSame = false;
    };
    QHash<QString, Pair> pairs_;
};
