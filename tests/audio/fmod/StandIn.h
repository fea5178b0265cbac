#pragma once

#include "audio/fmod/FmodLibrary.h"

#include <QLibrary>

// One of the libraries that stand in for FMOD: kinds 1 to 3, see stand_in.cpp.
class StandIn
{
public:
    explicit StandIn(int kind) : library_(fileOf(kind)) {}

    static QString fileOf(int kind) { return QStringLiteral(STAND_INS).section(u':', kind - 1, kind - 1); }
    QString file() const { return library_.fileName(); }
    std::shared_ptr<const FmodLibrary> open() const { return FmodLibrary::open(library_.fileName()); }

    // The next call of the function fails, after so many that do not.
    void fail(const char *function, int code, int skip = 0)
    {
        resolve<void(const char *, int, int)>("StandIn_Fail")(function, code, skip);
    }
    bool hasFailed() { return resolve<int()>("StandIn_HasFailed")() != 0; }
    void setDevice(bool isThere) { resolve<void(int)>("StandIn_SetDevice")(isThere ? 1 : 0); }
    int systemsAlive() { return resolve<int()>("StandIn_SystemsAlive")(); }
    int soundsAlive() { return resolve<int()>("StandIn_SoundsAlive")(); }

private:
    template<typename Function>
    Function *resolve(const char *name)
    {
        return reinterpret_cast<Function *>(library_.resolve(name));
    }

    QLibrary library_;
};
