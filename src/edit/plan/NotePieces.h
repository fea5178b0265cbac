#pragma once

#include "edit/AbcReading.h"
#include "edit/NoteEdit.h"

#include <bitset>
#include <optional>
#include <vector>

// How much of the text an edit may write anew.
enum class EditReach {
    Notes,    // what it must
    Measures, // the measures that it reaches into
};

// How it is written.
enum class EditLayout {
    InMeasures, // rests, triplets and bar lines as measures want them, in a text that has bar lines or nothing yet
    Plain,
};

// A note as one place of the text writes it: all of a note, or one of those that ties join.
struct NotePiece
{
    Ticks start = 0;
    Ticks length = 0; // as written: twice as long as a staccato note sounds
    quint32 pitch = 0;
    int token = -1;             // that writes it now; -1 for a new one
    bool keepsSpelling = false; // of its token
    bool isAltered = false;     // in more than its pitch
    bool isStaccato = false;
    bool isTied = false;         // to the next of its pitch
    bool isContinuation = false; // new, and tied to by another

    Ticks end() const { return start + length; }
};

// Where a piece begins; the token is -1 for a new one.
struct NoteBegin
{
    quint32 pitch = 0;
    int unit = 0;
    Ticks start = 0;
    int token = -1;
};

// The notes of a text behind an edit, as pieces, and which units of the text must be written anew for them. What lies
// across a bar line, or the end of a tuplet, is written in two and tied. Private to the planner of edits.
class NotePieces
{
public:
    // The edit must be cleaned. All must outlive this object.
    NotePieces(const AbcReading &reading, const NoteEdit &edit, EditReach reach);

    // Has the notes before the offset written as their key wants it.
    void respellUpTo(int offset);

    // False where the text has no place for a new note; nothing else may be asked then.
    bool isPossible() const { return isPossible_; }
    // Whether there are more notes than before, and not only other ones.
    bool addsNotes() const { return addsNotes_; }
    // Whether the unit stays a tuplet or a broken rhythm where it can.
    bool keepsForm(int unit) const { return keepsForms() && !isLoose_[size_t(unit)]; }
    bool isDirty(int unit) const { return isDirty_[size_t(unit)]; }
    // Of a dirty unit, by start; those that start together as a chord writes them.
    const std::vector<NotePiece> &of(int unit) const { return ofUnit_[size_t(unit)]; }
    // Of a token of a unit that is not dirty.
    const NotePiece &ofToken(int token) const { return ofToken_[size_t(token)]; }

private:
    bool keepsForms() const { return reach_ == EditReach::Notes; }
    void readTokens();
    void lengthenTied();
    Ticks lengthOf(const AbcNoteToken &token, const AbcTextElement &element) const;
    void findTokens(const NoteEdit &edit);
    void change(const NoteEdit::Change &change);
    void repitch(const std::vector<int> &tokens, quint32 pitch);
    void resize(const std::vector<int> &tokens, const NoteSpec &to);
    void remove(const std::vector<int> &tokens);
    void move(const std::vector<int> &tokens, const NoteSpec &to);
    void addNew(NotePiece piece);
    std::optional<NotePiece> cutOff(NotePiece &piece, int unit) const;
    Ticks endOfPlace(const NotePiece &piece, int unit) const;
    bool isSilent(int unit) const;
    bool takes(int unit, const NotePiece &rest) const;
    bool meetsItsPitch(const NotePiece &piece, Ticks until) const;
    void settleTies();
    void settleTie(int token, int continuation, const NoteBegin *next);
    void joinTied(int event);
    std::bitset<128> changedPitches() const;
    // By pitch, and in the order of the text.
    std::vector<NoteBegin> beginsOf(const std::bitset<128> &pitches) const;
    Ticks nextBarLine(const NotePiece &piece, int unit) const;
    int unitAt(Ticks tick) const;
    void setDirty(int unit) { isDirty_[size_t(unit)] = true; }
    void dirtyMeasures();
    void loosenTuplets();
    void loosen(int unit);
    void assign();
    void assignTokens(int unit);
    void dirtyBefore(int unit);
    bool sounds(int unit) const;
    bool soundsBeyond(int unit) const;

    const AbcReading &reading_;
    const AbcLayout &layout_;
    const EditReach reach_;
    const bool addsNotes_;
    bool isInOrder_ = true;
    bool isPossible_ = true;
    std::vector<NotePiece> ofToken_;
    std::vector<bool> isNew_;                // by event: gone from where it was, or of another pitch
    std::vector<bool> isGone_;               // by token
    std::vector<std::vector<int>> tokensOf_; // by event; of those that the edit names
    std::vector<bool> isDirty_;              // by unit, as is the next
    std::vector<bool> isLoose_;              // part of a tuplet that becomes plain notes
    std::vector<std::vector<NotePiece>> ofUnit_;
};
