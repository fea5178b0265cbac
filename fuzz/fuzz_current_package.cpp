// A current package of any bytes opens or is refused, and every file that it lists is found and read or refused.
#include "assets/package/KVAssetPakReader.h"

#include <QBuffer>
#include <QLoggingCategory>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool quiet = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    Q_UNUSED(quiet);
    auto package = std::make_unique<QBuffer>();
    package->setData(reinterpret_cast<const char *>(data), int(size));
    KVAssetPakReader reader(std::move(package));
    try {
        reader.open();
    } catch (const QString &) {
        return 0;
    }
    const auto paths = reader.fileList();
    for (int i = 0; i < int(paths.size()); ++i) {
        QByteArray bytes;
        const bool inOrder = i == 0 || paths[i - 1] < paths[i];
        const bool read = reader.tryGetFile(paths[i], bytes);
        if (!inOrder || !reader.hasFile(paths[i]) || (read && size_t(bytes.size()) > size))
            std::abort();
    }
    return 0;
}
