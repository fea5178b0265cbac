#include "check/PartCheck.h"

#include "check/InstrumentCheck.h"
#include "check/NoteCheck.h"
#include "check/text/LengthCheck.h"

PartCheck checkPart(const QString &text, const QString &instrument, const InstrumentSet &instruments,
                    const CheckOptions &options, const std::stop_token &stop)
{
    auto part = checkText(text, options, octavesToSamples(instrument, instruments, options), stop);
    auto findings = std::move(part.findings);
    findings += checkLength(part, options);
    findings += checkNotes(part, options);
    if (!instruments.isEmpty())
        findings += checkInstrument(part, instrument, instruments, options);
    return {findings, factsOf(part)};
}
