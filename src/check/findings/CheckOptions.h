#pragma once

#include "settings/SettingsTable.h"

#include <functional>

// What is still right, by the player's choice.
struct CheckOptions
{
    int mostSemitones = 7;   // between a note and its sample
    int mostNotesAtOnce = 0; // of a part; 0: any number
    int mostCharacters = 0;  // of a part's text; 0: any number
    int mostFindings = 500;  // of one kind that are kept of a part

    bool operator==(const CheckOptions &) const = default;
};
// As they are set.
CheckOptions checkOptions(const std::function<QVariant(SettingsTable::Setting)> &setting);
bool isCheckOption(SettingsTable::Setting setting);
