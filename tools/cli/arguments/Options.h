#pragma once

#include "arguments/Arguments.h"

// One option, and what it does with what is asked for.
struct Option
{
    const char *name;
    char letter;       // of its short form, 0 without one
    const char *value; // what its value is called, where the command does not say; empty for an option without one
    const char *help;  // one line, with a small letter and no full stop
    void (*read)(Arguments &arguments, const QString &value); // throws a WrongUsage
};

const std::vector<Option> &allOptions();
const Option &optionNamed(const QString &name); // which must be there

// What --set may name, of all that the settings file holds.
struct SettingHelp
{
    SettingsTable::Setting setting;
    const char *help;
};
const std::vector<SettingHelp> &settingsHelp();
