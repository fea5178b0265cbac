#include "Pak.h"

#include "assets/package/PackageRegistry.h"
#include "assets/package/PakReader.h"
#include "base/SafeFile.h"
#include "streams/Messages.h"

namespace {

void writeOutput(const QByteArray &bytes)
{
    StandardOutput out;
    out.device().write(bytes);
    out.finish();
}

} // namespace

int listPackage(const Arguments &arguments)
{
    const auto &package = arguments.inputs.first();
    const auto list = [&package] {
        QByteArray lines;
        const auto paths = OpenPackage(package)->fileList();
        for (const auto &path : paths)
            lines += printable(path).toUtf8() + '\n';
        writeOutput(lines);
    };
    return runOrPrint(package, list) ? 0 : 1;
}

int extractFromPackage(const Arguments &arguments)
{
    const auto &package = arguments.inputs.first();
    QByteArray bytes;
    const auto read = [&] { bytes = OpenPackage(package)->getFile(arguments.inputs.last()); };
    const auto write = [&] { SafeFile::write(arguments.output, bytes); };
    if (!runOrPrint(package, read))
        return 1;
    const bool isWritten = arguments.output.isEmpty() ? runOrPrint(package, [&] { writeOutput(bytes); })
                                                      : runOrPrint(arguments.output, write);
    return isWritten ? 0 : 1;
}
