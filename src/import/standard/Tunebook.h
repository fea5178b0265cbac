#pragma once

#include <QString>
#include <QStringView>
#include <QVector>

// The tunes of an ABC text as its lines say, without reading their music (ABC standard 2.1, section 2.2).
struct TunebookTune
{
    QString number;              // of X:
    QString title;               // the first T:
    QVector<QStringView> header; // fields of the file's header, then the tune's own, up to K:
    QVector<QStringView> body;
};

// Whether a line is a field, "K:G", and no music like "E:|", "C::D" or, in the body, "H:|".
enum class LinePlace { Header, Body };
bool isFieldLine(QStringView line, LinePlace place);

// The views point into the text, which must outlive them. A tune begins with X: and ends at an empty line; where no X:
// stands, at the first field that tunes begin with. Free text between tunes is left out. Throws
// a QString when there are more tunes than any book has.
QVector<TunebookTune> splitTunebook(const QString &text);
