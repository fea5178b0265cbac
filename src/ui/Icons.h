#pragma once

#include <QIcon>
#include <QLabel>

// The file of the program's own drawing of that name, in the colours that stand out on the windows and rows of today's
// theme.
QString iconFile(const QString &name);

// The drawing for every scale; it follows the theme.
QIcon icon(const QString &name);
inline QIcon icon(const char *name)
{
    return icon(QString(QLatin1String(name)));
}

// A drawing beside a control, of so many logical pixels. On the interface thread.
class IconLabel : public QLabel
{
public:
    IconLabel(const char *name, int size, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QIcon icon_;
    int size_;
};
