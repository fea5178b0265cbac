#pragma once

#include "audio/AudioEngine.h"

#include <QString>

// Every result of an engine passes through its owner's checker, which logs failures and never throws.
class ResultChecker
{
public:
    // One failure repeated within one pass, as by a thousand notes for which there are no voices, is logged once.
    // [audio] [render]
    void beginPass() { logged_.clear(); }

    // Whether the result is Ok; logs it at critical level when not. [audio] [render]
    bool check(const AudioEngine &engine, AudioResult result);

private:
    QString logged_; // the text of the latest
};
