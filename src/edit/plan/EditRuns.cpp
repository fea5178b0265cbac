#include "edit/plan/EditRuns.h"

#include "edit/plan/RhythmFit.h"

#include <algorithm>

namespace {

class RunFinder
{
public:
    RunFinder(const AbcLayout &layout, const NotePieces &pieces) : layout_(layout), pieces_(pieces) {}
    std::vector<EditRun> find() const;

private:
    EditRun::Form formOf(int unit) const;
    void extend(EditRun &run) const;
    bool joins(int unit) const;
    bool absorbs(const EditRun &run, Ticks covered, int next) const;
    Ticks endOfPieces(int unit) const;

    const AbcLayout &layout_;
    const NotePieces &pieces_;
};

EditRun::Form RunFinder::formOf(int unit) const
{
    const auto &own = layout_.units[unit];
    if (own.isRest() && layout_.measuresRest(own) != nullptr && own.endElement - own.firstElement == 1)
        return EditRun::Form::Measures;
    return pieces_.keepsForm(unit) && fitsElements(layout_, own, pieces_.of(unit)) ? EditRun::Form::Elements
                                                                                   : EditRun::Form::Free;
}

bool RunFinder::joins(int unit) const
{
    return pieces_.isDirty(unit) && layout_.units[unit].joinsPrevious && formOf(unit) == EditRun::Form::Free;
}

// covered: what the run's notes reach.
bool RunFinder::absorbs(const EditRun &run, Ticks covered, int next) const
{
    const auto &unit = layout_.units[next];
    const bool isSilence = unit.isGap || (unit.isRest() && !unit.isCompound && layout_.measuresRest(unit) == nullptr);
    if (!unit.joinsPrevious || !isSilence || pieces_.isDirty(next))
        return false;
    const auto end = layout_.units[run.last].end;
    const auto &last = layout_.units[run.last];
    const bool isSilentAgain = pieces_.isDirty(run.last) && !last.isRest();
    return covered > end || (covered < end && isSilentAgain && (unit.isGap || !last.isGap));
}

Ticks RunFinder::endOfPieces(int unit) const
{
    auto end = layout_.units[unit].start;
    for (const auto &piece : pieces_.of(unit))
        end = std::max(end, piece.end());
    return end;
}

void RunFinder::extend(EditRun &run) const
{
    auto covered = endOfPieces(run.first);
    for (auto next = run.last + 1; next < layout_.units.size(); ++next) {
        if (!joins(next) && !absorbs(run, covered, next))
            return;
        run.last = next;
        if (!pieces_.of(next).empty())
            covered = std::max(covered, endOfPieces(next));
    }
}

std::vector<EditRun> RunFinder::find() const
{
    std::vector<EditRun> runs;
    for (int unit = 0; unit < layout_.units.size(); ++unit) {
        if (!pieces_.isDirty(unit))
            continue;
        EditRun run{unit, unit, formOf(unit)};
        if (run.form == EditRun::Form::Free)
            extend(run);
        runs.push_back(run);
        unit = run.last;
    }
    return runs;
}

} // namespace

std::vector<EditRun> findEditRuns(const AbcLayout &layout, const NotePieces &pieces)
{
    return RunFinder(layout, pieces).find();
}

std::vector<NotePiece> piecesOf(const NotePieces &pieces, const EditRun &run)
{
    std::vector<NotePiece> found;
    for (auto unit = run.first; unit <= run.last; ++unit)
        found.insert(found.end(), pieces.of(unit).begin(), pieces.of(unit).end());
    std::stable_sort(found.begin(), found.end(),
                     [](const NotePiece &a, const NotePiece &b) { return a.start < b.start; });
    return found;
}
