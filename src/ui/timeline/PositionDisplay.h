#pragma once

#include "core/Measures.h"
#include "ui/SpokenWidget.h"

#include <QWidget>

// The position in a song, as time and as measure and beat. On the interface thread.
class PositionDisplay : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    explicit PositionDisplay(QWidget *parent = nullptr);

    // The measure that the tick is in.
    void setPosition(Ticks position, const Measure &measure, qint64 milliseconds);
    const QString &time() const { return time_; }   // "1:02.345"
    const QString &place() const { return place_; } // "12.3"

    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenValue() const override { return time_ + u' ' + place_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont timeFont() const;

    QString time_;
    QString place_;
};
