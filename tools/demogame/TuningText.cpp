#include "TuningText.h"

namespace {

QString noteName(int note)
{
    static const QStringList names{
        QStringLiteral("C"),  QStringLiteral("C#"), QStringLiteral("D"),  QStringLiteral("D#"),
        QStringLiteral("E"),  QStringLiteral("F"),  QStringLiteral("F#"), QStringLiteral("G"),
        QStringLiteral("G#"), QStringLiteral("A"),  QStringLiteral("A#"), QStringLiteral("B"),
    };
    return names.at(note % 12) + QString::number(note / 12 - 1);
}

QString fileMember(const QStringList &files)
{
    if (files.isEmpty())
        return {};
    if (files.size() == 1)
        return QStringLiteral("\"file\": \"%1\", ").arg(files.first());
    return QStringLiteral("\"files\": [\"%1\"], ").arg(files.join(QStringLiteral("\", \"")));
}

} // namespace

TuningText::TuningText(const QString &instrument, double fadeout)
    : head_(QStringLiteral("// %1: which sample sounds for which note, and its frequency in hertz.\n"
                           "// A note without a file borrows its neighbour's below.\n"
                           "{\n"
                           "    \"fadeout\": %2, // seconds\n"
                           "    \"mapping\": {\n")
                .arg(instrument)
                .arg(fadeout))
{
}

void TuningText::add(int note, double hertz, const QStringList &files)
{
    const auto key = QStringLiteral("        \"%1\": ").arg(note);
    const auto value = QStringLiteral("{%1\"f\": %2}").arg(fileMember(files), QString::number(hertz, 'f', 3));
    mapping_.append(QStringLiteral("        // %1\n").arg(noteName(note)) + key + value);
}

QByteArray TuningText::bytes() const
{
    return (head_ + mapping_.join(QStringLiteral(",\n")) + QStringLiteral("\n    }\n}\n")).toUtf8();
}
