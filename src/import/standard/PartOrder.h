#pragma once

#include <QString>
#include <QStringView>

// The letters of a header's P: field in the order in which their parts are played: "((AB)3.C)2" gives ABABABCABABABC;
// nothing for other texts, which are remarks. Throws a QString when it comes to more parts than any tune has.
QString expandPartOrder(QStringView text);
