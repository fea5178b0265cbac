#pragma once

#include <QCompleter>
#include <QStringListModel>

class QKeyEvent;
class QPlainTextEdit;

// Offers, below the caret of ABC text, what the word that is typed may become. [ui]
class TextCompleter : public QCompleter
{
    Q_OBJECT

public:
    // The text owns it.
    explicit TextCompleter(QPlainTextEdit &text);

    void setInstruments(const QStringList &names) { instruments_ = names; }

    // Before a key reaches the text: whether the list takes it.
    bool takes(QKeyEvent &event);
    // Behind it.
    void follow(const QKeyEvent &event);

private:
    void offer();
    void insert(const QString &choice);

    QPlainTextEdit &text_;
    QStringListModel choices_;
    QStringList instruments_;
    int typed_ = 0;
};
