#pragma once

#include <QHash>
#include <QImage>
#include <QTextBrowser>

// Shows the pages of the manual; pictures that are wider than it are made smaller. [ui]
class ManualBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ManualBrowser(QWidget *parent = nullptr);

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QImage fitted(const QImage &picture) const;

    QHash<QUrl, QImage> pictures_; // of the page, as they are
};
