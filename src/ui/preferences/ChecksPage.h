#pragma once

#include "settings/Settings.h"

#include <QWidget>

class QSpinBox;

// The limits that a song is checked against.
class ChecksPage : public QWidget
{
    Q_OBJECT

public:
    explicit ChecksPage(const Settings &settings, QWidget *parent = nullptr); // shows what is in them

signals:
    void changed(Settings::Setting setting, const QVariant &value);

private:
    QSpinBox *limit(Settings::Setting setting, int most, const char *name, const QString &tip);

    const Settings &settings_;
};
