#pragma once

#include "arguments/Arguments.h"

extern const char *const programName;
extern const char *const programPurpose;
// What all commands share: inputs, transformations, exit status; paragraphs are parted by empty lines.
extern const char *const inputHelp;
extern const char *const statusHelp;

// "kelvarion-composer-cli convert INPUT… --output DIR [OPTION…]"; with all options when they are few enough for a line.
QString synopsis(const Command &command);

// "midi/pitchBend=true", with the default.
QString settingWithDefault(SettingsTable::Setting setting);

// For a terminal: all commands, and one with its options.
QString helpText(const std::vector<Command> &commands);
QString helpText(const Command &command);
