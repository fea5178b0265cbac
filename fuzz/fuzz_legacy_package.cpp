// A legacy package of any bytes opens or is refused, and so does every lookup in it; what is read comes from its bytes.
#include "assets/package/LegacyPakReader.h"

#include <QBuffer>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {
void lookUp(LegacyPakReader &reader, const QString &path, size_t packageSize)
{
    QByteArray bytes;
    if (!reader.tryGetFile(path, bytes))
        return;
    if (!reader.hasFile(path) || size_t(bytes.size()) > packageSize)
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool quiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    Q_UNUSED(quiet);
    auto package = std::make_unique<QBuffer>();
    package->setData(reinterpret_cast<const char *>(data), int(size));
    LegacyPakReader reader(std::move(package));
    try {
        reader.open();
        lookUp(reader, QStringLiteral("/a"), size);
        lookUp(reader, QStringLiteral("/absent"), size);
        const auto paths = reader.fileList();
        for (int i = 0; i < std::min(8, int(paths.size())); ++i)
            lookUp(reader, paths[i], size);
    } catch (const QString &) {
        return 0;
    }
    return 0;
}
