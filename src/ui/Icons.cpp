#include "ui/Icons.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

namespace {

// Draws the file that is the theme's at the moment: a button asks anew whenever it is painted.
class ThemedIcon : public QIconEngine
{
public:
    explicit ThemedIcon(const QString &name) : name_(name) {}

    QIconEngine *clone() const override { return new ThemedIcon(*this); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        auto drawing = pixmap(rect.size() * painter->device()->devicePixelRatioF(), mode, state);
        drawing.setDevicePixelRatio(painter->device()->devicePixelRatioF());
        painter->drawPixmap(rect, drawing);
    }

    // size: in pixels of the screen. The larger drawing is scaled where the small one does not fit exactly.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const auto file = iconFile(name_);
        const auto key = QStringLiteral("%1 %2x%3 %4").arg(file).arg(size.width()).arg(size.height()).arg(int(mode));
        QPixmap drawing;
        if (QPixmapCache::find(key, &drawing))
            return drawing;
        drawing = QPixmap::fromImage(imageFor(file, size));
        if (mode == QIcon::Disabled) {
            QStyleOption option;
            option.palette = QApplication::palette();
            drawing = QApplication::style()->generatedIconPixmap(mode, drawing, &option);
        }
        QPixmapCache::insert(key, drawing);
        return drawing;
    }

private:
    static QImage imageFor(const QString &file, const QSize &size)
    {
        QImage image(file);
        if (image.size() == size)
            return image;
        auto twin = file;
        image = QImage(twin.replace(QStringLiteral(".png"), QStringLiteral("@2x.png")));
        image.setDevicePixelRatio(1);
        return image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    QString name_;
};

} // namespace

QString iconFile(const QString &name)
{
    return (isDarkTheme() ? QStringLiteral(":/icons/dark/%1.png") : QStringLiteral(":/icons/%1.png")).arg(name);
}

QIcon icon(const QString &name)
{
    return QIcon(new ThemedIcon(name));
}

IconLabel::IconLabel(const char *name, int size, QWidget *parent) : QLabel(parent), icon_(icon(name)), size_(size) {}

QSize IconLabel::sizeHint() const
{
    const auto margins = contentsMargins();
    return QSize(size_, size_) + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void IconLabel::paintEvent(QPaintEvent *)
{
    QRect place(0, 0, size_, size_);
    place.moveCenter(contentsRect().center());
    QPainter painter(this);
    icon_.paint(&painter, place);
}
