#pragma once

#include <QCheckBox>

// A check box whose text takes several lines where it has no room for one; QCheckBox knows line breaks only. [ui]
class WrappedCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit WrappedCheckBox(const QString &text, QWidget *parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint &place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent *event) override;

private:
    QString textIn(int width) const;
    int widthOfBox() const; // all but the text
};
