// ABC text of any bytes is read or refused, and what was read can be transformed and written anew.
#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    try {
        const auto track = parseAbc(decodeText(bytes));
        transpose(track, 5).toAbc();
        changeUnitLength(realign(track, SnapGrid::quick()), QStringLiteral("auto")).toAbc();
    } catch (const QString &) {
    }
    return 0;
}
