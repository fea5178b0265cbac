#include "app/commands/About.h"

#include <QCoreApplication>

QString aboutHtml()
{
    return QCoreApplication::translate(
               "About", "<p><b>Kelvarion Composer</b> (v<i>%1</i>)</p>"
                        "<p>Turns MIDI, MML and ABC music into songs that the instruments of Kelvarion can play.</p>"
                        "<p>Copyright © 2026 the Kelvarion Composer developers.<br>"
                        "Free software under the MIT licence; it comes without any warranty.</p>"
                        "<p>With thanks to the makers of Qt %2 (LGPL 3), libsndfile (LGPL 2.1) and SDL (zlib licence), "
                        "which this program is built upon.</p>")
        .arg(QStringLiteral(COMPOSER_VERSION), QString::fromLatin1(qVersion()));
}

QUrl websiteAddress()
{
    return QUrl(QStringLiteral("https://" COMPOSER_WEBSITE_HOST "/"));
}

QUrl donationAddress()
{
    return QUrl(QStringLiteral("https://" COMPOSER_WEBSITE_HOST "/donate"));
}
