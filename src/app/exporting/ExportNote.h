#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

class QLabel;

// What an export has written, at the right of the status bar, with a button that opens its folder; until it is closed,
// or something else is told. [ui]
class ExportNote : public QWidget
{
    Q_OBJECT

public:
    using OpenFolder = std::function<void(const QString &folder)>;

    explicit ExportNote(OpenFolder open, QWidget *parent = nullptr);

    void tell(const QStringList &paths, const QString &remark);

private:
    QLabel *text_;
    QString folder_;
};
