#pragma once

#include <QByteArray>
#include <QString>

#include <map>

// The contents of an asset directory or a package by their paths, which begin with "/".
using Files = std::map<QString, QByteArray>;
