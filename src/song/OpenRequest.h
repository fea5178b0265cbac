#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

// What a program that was started with files says to the one that is running: one line of JSON, {"open":["/a.abc"]}.
// [any]
namespace OpenRequest {

constexpr int mostBytes = 1 << 20; // of a line

// Of absolute paths, with the line's end.
QByteArray toLine(const QStringList &files);

// Of bytes from anywhere; nothing when they are no such line, or longer than the most.
std::optional<QStringList> fromLine(const QByteArray &line);

} // namespace OpenRequest
