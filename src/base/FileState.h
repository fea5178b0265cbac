#pragma once

#include <QString>

// Why a file is not to be replaced without a question: replacing needs no more than a folder that may be written to.
enum class FileProtection { None, ReadOnly, OfAnotherUser };

// None for a file that does not exist. On any thread.
FileProtection protectionOf(const QString &path);

// Whether a regular file that can be read holds another text; no other file does. On any thread.
bool holdsAnotherText(const QString &path, const QString &text);

// Whether a regular file can be read and holds this text. On any thread.
bool holdsText(const QString &path, const QString &text);

// Another one as soon as a file was written again; empty for a file that does not exist. On any thread.
QString stampOf(const QString &path);
