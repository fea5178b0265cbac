#include "import/PartReport.h"

#include <algorithm>

void PartReport::add(const PartReport &other)
{
    for (size_t i = 0; i < findings_.size(); ++i) {
        auto &found = findings_[i];
        found.count += other.findings_[i].count;
        found.places += other.findings_[i].places.mid(0, mostPlaces - int(found.places.size()));
    }
    barLineSilence += other.barLineSilence;
    notes += other.notes;
    shifts.add(other.shifts);
}

bool PartReport::hasFindings() const
{
    return std::any_of(findings_.begin(), findings_.end(), [](const Found &found) { return found.count > 0; });
}

void addNotes(ImportReport &sum, const PartReport &part)
{
    sum.belowVelocityGate += part.count(ImportFinding::BelowVelocityGate);
    sum.restruck += part.count(ImportFinding::Restruck);
    sum.outOfRange += part.count(ImportFinding::OutOfRange);
    sum.folded += part.count(ImportFinding::Folded);
    sum.unterminated += part.count(ImportFinding::Unterminated);
}
