#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

class QDialog;
class QWidget;

// The one door to whatever asks the user or shows a message and waits: the windows are handed a Dialogs, and tests hand
// in one that answers by itself. An empty answer means that the user cancelled. On the interface thread.
class Dialogs
{
public:
    enum class Severity { Information, Warning, Critical };
    enum class Answer { Yes, No };
    enum class CloseAnswer { Save, Discard, Cancel };
    enum class OverwriteAnswer { Overwrite, SaveAs, Cancel };
    enum class DraftAnswer { Fix, KeepAsDraft, Discard };
    enum class ForeignAnswer { Convert, OpenAsItIs };

    virtual ~Dialogs() = default;

    // start: the folder, or the proposed file, that the dialog begins with. filter: as QFileDialog takes it.
    virtual QStringList openFiles(QWidget *parent, const QString &caption, const QString &start,
                                  const QString &filter) = 0;
    virtual QString openFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter) = 0;
    virtual QString saveFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter) = 0;
    virtual QString directory(QWidget *parent, const QString &caption, const QString &start) = 0;

    virtual std::optional<QString> text(QWidget *parent, const QString &title, const QString &label,
                                        const QString &value) = 0;
    virtual QColor colour(QWidget *parent, const QString &title, const QColor &value) = 0; // invalid when cancelled

    virtual void message(QWidget *parent, Severity severity, const QString &title, const QString &text) = 0;
    virtual void about(QWidget *parent, const QString &title, const QString &html) = 0;
    virtual Answer ask(QWidget *parent, const QString &title, const QString &text) = 0;
    virtual std::optional<Answer> askOrCancel(QWidget *parent, const QString &title, const QString &text) = 0;
    virtual CloseAnswer askToSave(QWidget *parent, const QString &title, const QString &text) = 0;
    virtual OverwriteAnswer askToOverwrite(QWidget *parent, const QString &title, const QString &text) = 0;
    virtual DraftAnswer askAboutDraft(QWidget *parent, const QString &title, const QString &text) = 0;
    virtual std::optional<ForeignAnswer> askAboutForeign(QWidget *parent, const QString &title,
                                                         const QString &text) = 0;

    // Shows a dialog that somebody else made, and waits; whether it was accepted.
    virtual bool run(QDialog &dialog) = 0;

    virtual void openInBrowser(const QUrl &address) = 0; // http and https only; others are ignored
    virtual void openFolder(const QString &path) = 0;    // in the desktop's program for files

    // That work has ended which took so many milliseconds: when that was long and no window of the program is in front,
    // the desktop tells the user. Does not wait.
    virtual void tellEnd(QWidget *window, const QString &title, const QString &text, qint64 took) = 0;
};

// The dialogs of the desktop.
class DesktopDialogs : public Dialogs
{
public:
    QStringList openFiles(QWidget *parent, const QString &caption, const QString &start,
                          const QString &filter) override;
    QString openFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter) override;
    QString saveFile(QWidget *parent, const QString &caption, const QString &start, const QString &filter) override;
    QString directory(QWidget *parent, const QString &caption, const QString &start) override;
    std::optional<QString> text(QWidget *parent, const QString &title, const QString &label,
                                const QString &value) override;
    QColor colour(QWidget *parent, const QString &title, const QColor &value) override;
    void message(QWidget *parent, Severity severity, const QString &title, const QString &text) override;
    void about(QWidget *parent, const QString &title, const QString &html) override;
    Answer ask(QWidget *parent, const QString &title, const QString &text) override;
    std::optional<Answer> askOrCancel(QWidget *parent, const QString &title, const QString &text) override;
    CloseAnswer askToSave(QWidget *parent, const QString &title, const QString &text) override;
    OverwriteAnswer askToOverwrite(QWidget *parent, const QString &title, const QString &text) override;
    DraftAnswer askAboutDraft(QWidget *parent, const QString &title, const QString &text) override;
    std::optional<ForeignAnswer> askAboutForeign(QWidget *parent, const QString &title, const QString &text) override;
    bool run(QDialog &dialog) override;
    void openInBrowser(const QUrl &address) override;
    void openFolder(const QString &path) override;
    void tellEnd(QWidget *window, const QString &title, const QString &text, qint64 took) override;
};
