#pragma once

#include <QWidget>

class ManualBrowser;
class QLineEdit;

// The manual in a window of its own, from the pages of docs/manual that are built into the program. [ui]
class ManualWindow : public QWidget
{
    Q_OBJECT

public:
    // Is deleted when it is closed.
    explicit ManualWindow(QWidget *parent);

    void showPage(const QString &name); // "editor.md"

private:
    void makeToolBar();
    void find(const QString &text);

    ManualBrowser *browser_;
    QLineEdit *search_;
};

// Opens the page about a widget or what it is in (see ManualPage.h); null opens the contents.
void openManualFor(QWidget *widget);

// Makes F1 open the page of the window, dialog or panel that has the keyboard: an event filter for the application.
// [ui]
class ManualKey : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
