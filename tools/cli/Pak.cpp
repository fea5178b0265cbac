#include "Pak.h"

#include "Messages.h"
#include "assets/package/PackageRegistry.h"
#include "assets/package/PakReader.h"
#include "base/SafeFile.h"

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
    try {
        QByteArray lines;
        const auto paths = OpenPackage(package)->fileList();
        for (const auto &path : paths)
            lines += path.toUtf8() + '\n';
        writeOutput(lines);
        return 0;
    } catch (const QString &message) {
        printFailure(package, message);
        return 1;
    }
}

int extractFromPackage(const Arguments &arguments)
{
    auto failing = arguments.inputs.first();
    try {
        const auto bytes = OpenPackage(failing)->getFile(arguments.inputs.last());
        if (arguments.output.isEmpty()) {
            writeOutput(bytes);
            return 0;
        }
        failing = arguments.output;
        SafeFile::write(arguments.output, bytes);
        return 0;
    } catch (const QString &message) {
        printFailure(failing, message);
        return 1;
    }
}
