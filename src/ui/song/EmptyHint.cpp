#include "ui/song/EmptyHint.h"

#include "ui/Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

QPushButton *largeButton(const QString &name, const char *drawing, const QString &text, const QString &tip)
{
    auto *const button = new QPushButton(icon(drawing), text);
    button->setObjectName(name);
    button->setIconSize({24, 24});
    button->setMinimumSize(180, 44);
    button->setToolTip(tip);
    return button;
}

} // namespace

EmptyHint::EmptyHint(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("emptyHint"));
    auto *const headline = new QLabel(tr("Drop a MIDI or ABC file here"));
    auto large = headline->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    headline->setFont(large);
    auto *const explanation = new QLabel(tr("Every part of the song becomes a track that you can hear with the game's "
                                            "instruments and save as ABC."));
    auto *const pasteHint = new QLabel(tr("Text in ABC or MML can be pasted with Ctrl+V."));

    auto *const midi = largeButton(QStringLiteral("btnHintImport"), "midiimport", tr("Import MIDI..."),
                                   tr("Choose a MIDI file (Ctrl+Shift+M)"));
    auto *const abc =
        largeButton(QStringLiteral("btnHintOpen"), "open", tr("Open ABC..."), tr("Choose ABC files (Ctrl+O)"));
    connect(midi, &QPushButton::clicked, this, &EmptyHint::importMidi);
    connect(abc, &QPushButton::clicked, this, &EmptyHint::openAbc);

    auto *const buttons = new QHBoxLayout;
    buttons->setSpacing(16);
    buttons->addStretch();
    buttons->addWidget(midi);
    buttons->addWidget(abc);
    buttons->addStretch();

    auto *const column = new QVBoxLayout(this);
    column->setSpacing(16);
    column->addStretch(2);
    for (auto *const label : {headline, explanation, pasteHint}) {
        label->setAlignment(Qt::AlignHCenter);
        label->setWordWrap(true); // the window may be narrow
        column->addWidget(label);
    }
    column->insertLayout(3, buttons);
    column->addStretch(3);
}
