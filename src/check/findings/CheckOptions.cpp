#include "check/findings/CheckOptions.h"

#include <algorithm>

CheckOptions checkOptions(const std::function<QVariant(SettingsTable::Setting)> &setting)
{
    const auto limit = [&](SettingsTable::Setting which) { return std::max(0, setting(which).toInt()); };
    CheckOptions options;
    options.mostSemitones = limit(SettingsTable::CheckSemitones);
    options.mostNotesAtOnce = limit(SettingsTable::CheckNotesAtOnce);
    options.mostCharacters = limit(SettingsTable::CheckCharacters);
    return options;
}

bool isCheckOption(SettingsTable::Setting setting)
{
    return setting == SettingsTable::CheckSemitones || setting == SettingsTable::CheckNotesAtOnce ||
           setting == SettingsTable::CheckCharacters;
}
