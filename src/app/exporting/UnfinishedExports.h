#pragma once

#include <QLockFile>
#include <QStringList>

#include <memory>

// What a program that is killed leaves of an export is found by a record of its files, which a lock shows to belong to
// a program that runs. One export at a time.
class UnfinishedExports
{
public:
    // Of the records; empty: none is kept. Created when it is needed.
    explicit UnfinishedExports(const QString &folder) : folder_(folder) {}
    ~UnfinishedExports() { end(); }

    // From now on these files are being written. Without a record when there can be none. [ui]
    void begin(const QStringList &files);
    void end(); // [ui]

    // Removes what programs left that run no more: of their files only those that SafeFile wrote beside them. [any]
    static void removeLeft(const QString &folder);

private:
    QString folder_;
    QString record_;
    std::unique_ptr<QLockFile> lock_;
};
