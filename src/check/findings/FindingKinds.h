#pragma once

#include "check/findings/Finding.h"

// The table of what can be found. [any]
namespace FindingKinds {

QString name(FindingKind kind); // of files and command lines: "no-sample"
Severity severity(FindingKind kind);
QString severityName(Severity severity); // likewise: "error"
QString title(FindingKind kind);         // as a row of a list has it: "Notes without a sample"
QString fixText(FindingKind kind);       // what its fix does, as a command; empty when it has none

} // namespace FindingKinds

// A length as a value of a finding: "3/8 note", "18.5 whole notes".
QString lengthInWords(Ticks length);

// In plain words: "The instrument has no sample for C4."
QString sentenceOf(const Finding &finding);
