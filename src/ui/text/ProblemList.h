#pragma once

#include <QListWidget>

class EditorDocument;
struct TextRange;

// The errors of a document's text; a click or Return goes to one.
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

signals:
    void chosen(TextRange range);

private:
    void refresh();
    void choose(const QListWidgetItem *item);
    void goTo(int problem);

    EditorDocument &document_;
};
