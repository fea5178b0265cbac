#pragma once

#include "ui/Dialogs.h"

#include <QDialog>
#include <QTimer>

#include <functional>

// Answers at once with what the test has put in, and keeps what was asked ("Title|Text").
class AnsweringDialogs : public Dialogs
{
public:
    QStringList files;       // of the next open and save dialogs
    QStringList directories; // one after another; then the user cancels
    std::optional<QString> enteredText;
    QColor pickedColour;
    Answer answer = Answer::No;
    std::optional<Answer> answerOrCancel;
    CloseAnswer closeAnswer = CloseAnswer::Cancel;
    OverwriteAnswer overwriteAnswer = OverwriteAnswer::Cancel;
    DraftAnswer draftAnswer = DraftAnswer::Fix;
    std::optional<ForeignAnswer> foreignAnswer = ForeignAnswer::OpenAsItIs;
    std::function<void(QDialog &)> inDialog = [](QDialog &dialog) { dialog.accept(); };

    QStringList asked;
    QStringList messages;
    QStringList starts; // folders, proposed files and texts
    QList<QUrl> opened;
    QStringList ends;

    QStringList takeAsked() { return std::exchange(asked, {}); }
    QStringList takeMessages() { return std::exchange(messages, {}); }

    QStringList openFiles(QWidget *, const QString &caption, const QString &start, const QString &filter) override
    {
        note(caption, filter, start);
        return files;
    }
    QString openFile(QWidget *, const QString &caption, const QString &start, const QString &filter) override
    {
        note(caption, filter, start);
        return files.value(0);
    }
    QString saveFile(QWidget *, const QString &caption, const QString &start, const QString &filter) override
    {
        note(caption, filter, start);
        return files.isEmpty() ? QString() : files.takeFirst();
    }
    QString directory(QWidget *, const QString &caption, const QString &start) override
    {
        note(caption, {}, start);
        return directories.isEmpty() ? QString() : directories.takeFirst();
    }
    std::optional<QString> text(QWidget *, const QString &title, const QString &label, const QString &value) override
    {
        note(title, label, value);
        return enteredText;
    }
    QColor colour(QWidget *, const QString &title, const QColor &) override
    {
        note(title, {}, {});
        return pickedColour;
    }
    void message(QWidget *, Severity, const QString &title, const QString &text) override
    {
        messages.append(title + u'|' + text);
    }
    void about(QWidget *, const QString &title, const QString &html) override { messages.append(title + u'|' + html); }
    Answer ask(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return answer;
    }
    std::optional<Answer> askOrCancel(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return answerOrCancel;
    }
    CloseAnswer askToSave(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return closeAnswer;
    }
    OverwriteAnswer askToOverwrite(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return overwriteAnswer;
    }
    DraftAnswer askAboutDraft(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return draftAnswer;
    }
    std::optional<ForeignAnswer> askAboutForeign(QWidget *, const QString &title, const QString &text) override
    {
        note(title, text, {});
        return foreignAnswer;
    }
    bool run(QDialog &dialog) override
    {
        QTimer::singleShot(0, &dialog, [&] { inDialog(dialog); });
        return dialog.exec() == QDialog::Accepted;
    }
    void openInBrowser(const QUrl &address) override { opened.append(address); }
    void openFolder(const QString &path) override { opened.append(QUrl::fromLocalFile(path)); }
    void tellEnd(QWidget *, const QString &title, const QString &text, qint64) override
    {
        ends.append(title + u'|' + text);
    }

private:
    void note(const QString &title, const QString &text, const QString &start)
    {
        asked.append(title + u'|' + text);
        starts.append(start);
    }
};
