#pragma once

#include <QListWidget>

class EditorDocument;
struct Finding;
struct TextRange;

// What is wrong with a document's text; a click or Return goes to it, its context menu has fixes.
class ProblemList : public QListWidget
{
    Q_OBJECT

public:
    // The document must outlive the list.
    explicit ProblemList(EditorDocument &document, QWidget *parent = nullptr);

    QSize sizeHint() const override;

public slots:
    // The first problem behind the caret, or before it; from the last to the first and back.
    void goToNext();
    void goToPrevious();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override; // fixes

signals:
    void chosen(TextRange range);

private:
    void refresh();
    void addRemark(const QString &text);
    QString textOf(const Finding &finding) const;
    void choose(const QListWidgetItem *item);
    void goTo(int problem);

    EditorDocument &document_;
    QStringList shown_;
};
