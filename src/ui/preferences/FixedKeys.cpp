#include "ui/preferences/FixedKeys.h"

#include <QCoreApplication>

namespace {

struct FixedKey
{
    KeyScope scope;
    const char *text;
    const char *key;
};

const FixedKey controls[]{
    {KeyScope::Window, QT_TRANSLATE_NOOP("FixedKeys", "Cancel what takes long"), "Esc"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Next control"), "Tab"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Previous control"), "Shift+Tab"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Press the button, tick the box"), "Space"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Title of a track: rename it"), "Return"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Overview of a track: a measure back"), "Left"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Overview of a track: a measure on"), "Right"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Overview of a track: to the start"), "Home"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Dial, slider or list: more, the one before"), "Up"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Dial, slider or list: less, the one behind"), "Down"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "Dial: its usual value"), "Backspace"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "List of instruments: open it"), "Alt+Down"},
    {KeyScope::Controls, QT_TRANSLATE_NOOP("FixedKeys", "The menu of the track, the notes or the text"), "Menu"},
    {KeyScope::Editor, QT_TRANSLATE_NOOP("FixedKeys", "Manual"), "F1"},
    {KeyScope::Text, QT_TRANSLATE_NOOP("FixedKeys", "Take the first completion"), "Tab"},
};

// Of every text; a shortcut of the editor would take them away.
struct TextKey
{
    QKeySequence::StandardKey key;
    const char *text;
};

const TextKey textKeys[]{
    {QKeySequence::MoveToNextWord, QT_TRANSLATE_NOOP("FixedKeys", "Next word")},
    {QKeySequence::MoveToPreviousWord, QT_TRANSLATE_NOOP("FixedKeys", "Previous word")},
    {QKeySequence::MoveToStartOfLine, QT_TRANSLATE_NOOP("FixedKeys", "Start of the line")},
    {QKeySequence::MoveToEndOfLine, QT_TRANSLATE_NOOP("FixedKeys", "End of the line")},
    {QKeySequence::MoveToStartOfDocument, QT_TRANSLATE_NOOP("FixedKeys", "Start of the text")},
    {QKeySequence::MoveToEndOfDocument, QT_TRANSLATE_NOOP("FixedKeys", "End of the text")},
    {QKeySequence::MoveToNextPage, QT_TRANSLATE_NOOP("FixedKeys", "A page down")},
    {QKeySequence::MoveToPreviousPage, QT_TRANSLATE_NOOP("FixedKeys", "A page up")},
    {QKeySequence::SelectNextChar, QT_TRANSLATE_NOOP("FixedKeys", "Select on")},
    {QKeySequence::SelectPreviousChar, QT_TRANSLATE_NOOP("FixedKeys", "Select back")},
    {QKeySequence::SelectNextWord, QT_TRANSLATE_NOOP("FixedKeys", "Select to the next word")},
    {QKeySequence::SelectPreviousWord, QT_TRANSLATE_NOOP("FixedKeys", "Select to the previous word")},
    {QKeySequence::SelectNextLine, QT_TRANSLATE_NOOP("FixedKeys", "Select down")},
    {QKeySequence::SelectPreviousLine, QT_TRANSLATE_NOOP("FixedKeys", "Select up")},
    {QKeySequence::DeleteEndOfWord, QT_TRANSLATE_NOOP("FixedKeys", "Delete to the end of the word")},
    {QKeySequence::DeleteStartOfWord, QT_TRANSLATE_NOOP("FixedKeys", "Delete to the start of the word")},
};

} // namespace

QVector<KeyRow> fixedKeys()
{
    QVector<KeyRow> rows;
    const auto add = [&](KeyScope scope, const char *text, const QKeySequence &key) {
        rows.append({QStringLiteral("fixed.%1").arg(rows.size()), scope, QCoreApplication::translate("FixedKeys", text),
                     key, KeyRow::Kind::Fixed});
    };
    for (const auto &row : controls)
        add(row.scope, row.text, QKeySequence(QLatin1String(row.key)));
    for (const auto &row : textKeys)
        add(KeyScope::Text, row.text, QKeySequence::keyBindings(row.key).value(0));
    return rows;
}
