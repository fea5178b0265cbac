#pragma once

// What is still right, by the player's choice.
struct CheckOptions
{
    int mostSemitones = 7;   // between a note and its sample
    int mostNotesAtOnce = 0; // of a part; 0: any number
    int mostFindings = 500;  // of one kind that are kept of a part
};
