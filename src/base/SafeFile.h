#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class QFile;

// Replaces a file in one step: the bytes are written and synchronised beside it and then take its place, so that a
// crash or a full disk leaves either the old file or the new one. A symbolic link is followed. Refuses a target that
// exists and is no regular file. Throws a QString that says why it could not be written; nothing is left behind then.
// The file beside has a name of its own, "NAME~….saving"; only a program that is killed leaves it, and whoever saves
// the same file later than ten minutes after removes it.
namespace SafeFile {

void write(const QString &path, const QByteArray &bytes);

// The same for a file that is not there yet. False, and nothing is touched, when there is one, whoever made it and
// however short ago.
bool writeNew(const QString &path, const QByteArray &bytes);

// The same, without waiting for the disk: after a crash of the system there may be no file, or half of one, until
// synchronise() and synchroniseFolder() have returned. For a file that is not there yet.
void writeUnsynchronised(const QString &path, const QByteArray &bytes);

// What may be where a file shall be.
enum class Existing { Kept, Replaced };
bool isThere(const QString &path); // a file, a folder, or a link, wherever that leads

// The same for a file that somebody writes who needs a name for it. What is not committed is removed.
class Replacement
{
public:
    // Creates nothing yet. Existing::Kept: of a file that is not there; the place that is taken may be another's by
    // then.
    explicit Replacement(const QString &target, Existing existing = Existing::Replaced);
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;
    ~Replacement();

    // The empty file, for who wants to know early whether it can be.
    void create() const;
    // Where to write the new contents; the file must be closed before commit().
    const QString &path() const { return path_; }
    void commit();

    // Instead, for one of many: all of it; then that it is on the disk; then that it has its place, or nothing is
    // touched since something is there that shall be kept (false); and finishFolder() once for all of them.
    void write(const QByteArray &bytes);
    void synchronise();
    bool takePlace();
    const QString &target() const { return target_; } // where links led to

    void commitUnsynchronised(); // as writeUnsynchronised()

private:
    struct Open;

    void takeName();

    Existing existing_;
    QString target_;
    QString path_; // empty while it is a file without a name
    std::unique_ptr<Open> open_;
    bool isCommitted_ = false;
};

// After files of a folder took their places: their names are on the disk then, and what others left beside those that
// are given is gone.
void finishFolder(const QString &folder, const QStringList &targets);
bool isLeftBeside(const QString &name); // of a file: it may have been left beside another

// For a program that is about to end at once: removes every file that is not committed, and holds back, for ever,
// whoever would begin or commit one. [any]
void abandonAll();

// Removes the files beside that were left by programs that were killed. Nobody may be saving the file.
void removeLeftovers(const QString &path);

// Returns when everything that was written to an open file is on the disk; throws a QString when it cannot be.
void synchronise(QFile &file);
void synchroniseFolder(const QString &path); // of this file: its name

// The usual causes, by their errno, in words for the user; the others as the system has them.
QString causeOf(int error);

// A title as the name of a file: what a file system refuses becomes "_", at most 200 bytes of UTF-8.
QString cleanName(const QString &title);

} // namespace SafeFile
