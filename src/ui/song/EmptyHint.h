#pragma once

#include <QWidget>

// What an empty track list shows: how to begin. On the interface thread.
class EmptyHint : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyHint(QWidget *parent = nullptr);

signals:
    void importMidi();
    void openAbc();
};
