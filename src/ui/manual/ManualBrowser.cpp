#include "ui/manual/ManualBrowser.h"

#include <algorithm>

ManualBrowser::ManualBrowser(QWidget *parent) : QTextBrowser(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // whether it is there must not depend on the width of pictures
}

QVariant ManualBrowser::loadResource(int type, const QUrl &name)
{
    if (type != QTextDocument::ImageResource) { // another page
        pictures_.clear();
        return QTextBrowser::loadResource(type, name);
    }
    const auto picture = QImage::fromData(QTextBrowser::loadResource(type, name).toByteArray());
    pictures_.insert(name, picture);
    return fitted(picture);
}

void ManualBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    for (auto picture = pictures_.cbegin(); picture != pictures_.cend(); ++picture)
        document()->addResource(QTextDocument::ImageResource, picture.key(), fitted(picture.value()));
    if (!pictures_.isEmpty())
        document()->markContentsDirty(0, document()->characterCount());
}

QImage ManualBrowser::fitted(const QImage &picture) const
{
    const int room = std::max(1, viewport()->width() - 2 * int(document()->documentMargin()));
    return picture.width() <= room ? picture : picture.scaledToWidth(room, Qt::SmoothTransformation);
}
