#pragma once

#include "edit/TextSearch.h"

#include <QTimer>
#include <QWidget>

class AbcTextEdit;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;
class Settings;

// Finds and replaces in an AbcTextEdit, from a bar below it. What was entered is kept in the settings.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    enum class Purpose { Find, Replace };

    // Both must outlive the bar.
    FindBar(AbcTextEdit &text, Settings &settings, QWidget *parent = nullptr);

    // Shows the bar; a selection within one line becomes what is looked for.
    void open(Purpose purpose);
    SearchOptions options() const;
    // What the label beside the field says: "3 of 17", "No matches".
    QString countText() const;

public slots:
    void find() { findTowards(options()); } // in the direction that is set
    void findNext();
    void findPrevious();
    void replace(); // the selected match, and finds the next
    void replaceAll();
    void dismiss();

signals:
    void said(const QString &message); // for the status bar

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QToolButton *addButton(const char *drawing, const QString &text, const QString &tip, void (FindBar::*slot)());
    void createOptions();
    void layOut();
    void readSettings();
    void writeSettings();
    void refresh();
    void findTowards(const SearchOptions &options);
    TextRange selection() const;

    AbcTextEdit &text_;
    Settings &settings_;
    QLineEdit *find_;
    QLineEdit *replace_;
    QLabel *count_;
    QCheckBox *wholeWords_;
    QCheckBox *matchCase_;
    QCheckBox *wrapAround_;
    QComboBox *mode_;
    QComboBox *direction_;
    QWidget *replaceLine_;
    QTimer textRest_;
};
