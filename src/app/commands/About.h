#pragma once

#include <QString>
#include <QUrl>

// The program's name, version, rights notice and the libraries that it uses, as rich text.
QString aboutHtml();

QUrl websiteAddress();
QUrl donationAddress();
