// Whatever comes over the socket, a request that is understood says the same when it is written again.
#include "song/OpenRequest.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto files = OpenRequest::fromLine(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    if (files && OpenRequest::fromLine(OpenRequest::toLine(*files)) != files)
        std::abort();
    return 0;
}
