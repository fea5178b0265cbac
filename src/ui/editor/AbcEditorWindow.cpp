#include "ui/editor/AbcEditorWindow.h"

#include "check/findings/CheckOptions.h"
#include "check/findings/FindingKinds.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"
#include "ui/editor/EditorActions.h"
#include "ui/editor/EditorCleanUp.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/editor/EditorStatus.h"
#include "ui/editor/EditorTransforms.h"
#include "ui/editor/GhostParts.h"
#include "ui/editor/StepEntry.h"
#include "ui/roll/PianoRoll.h"
#include "ui/text/AbcTextEdit.h"
#include "ui/text/FindBar.h"
#include "ui/text/ProblemList.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QSlider>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

AbcEditorWindow::AbcEditorWindow(Settings &settings, Dialogs &dialogs, TrackPlayer &player, QWidget *parent)
    : QMainWindow(parent), settings_(settings), dialogs_(dialogs),
      playback_(new EditorPlayback(document_, player, this)),
      transforms_(new EditorTransforms(document_, settings, dialogs, *this)), text_(new AbcTextEdit(document_)),
      actions_(new EditorActions(*this, *text_)), roll_(new PianoRoll(document_, settings)),
      stepEntry_(new StepEntry(document_, *text_, *roll_, this)), ghosts_(new GhostParts(*roll_, this)),
      findBar_(new FindBar(*text_, settings)), problems_(new ProblemList(document_)),
      status_(new EditorStatus(document_)), cleanUp_(new EditorCleanUp(document_, roll_->state(), this))
{
    setWindowIcon(QIcon(QStringLiteral(":/icons/appicon.png")));
    createViews();
    createMenus();
    createToolBar();
    followShortcuts(*this, settings_);
    connectActions();
    connectDocument();
    followCheckOptions();
    resize(1080, 760);
    fitToScreen(*this);
    setManualPage(*this, "editor.md");
    showTitle();
    showPlaying();
    showTempo(playback_->tempoPercent());
    showRoll(settings_.value(Settings::PianoRollVisible).toBool());
    text_->setFocus();
}

// The views look at the document until they are gone.
AbcEditorWindow::~AbcEditorWindow()
{
    document_.disconnect();
    delete takeCentralWidget();
}

void AbcEditorWindow::setTrack(const Track &track)
{
    playback_->stop();
    document_.setTrack(track);
    auto caret = text_->textCursor();
    caret.setPosition(std::min(document_.reading().layout.bodyOffset, document_.text()->characterCount() - 1));
    text_->setTextCursor(caret);
    showTitle();
}

void AbcEditorWindow::setInstruments(const QStringList &names)
{
    text_->setInstruments(names);
}

void AbcEditorWindow::createViews()
{
    text_->setObjectName(QStringLiteral("abcText"));
    roll_->setObjectName(QStringLiteral("pianoRoll"));
    auto *const textSide = new QWidget;
    auto *const textLayout = new QVBoxLayout(textSide);
    textLayout->setContentsMargins({});
    textLayout->setSpacing(0);
    textLayout->addWidget(text_, 1);
    textLayout->addWidget(findBar_);
    auto *const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(roll_);
    splitter->addWidget(textSide);
    splitter->addWidget(problems_);
    for (int i = 0; i < splitter->count(); ++i)
        splitter->setStretchFactor(i, i < 2 ? 1 : 0);
    splitter->setSizes({340, 360, 100});
    splitter->setChildrenCollapsible(false);
    text_->setMinimumHeight(100);
    setCentralWidget(splitter);
    setStatusBar(status_);
    problems_->hide();
}

void AbcEditorWindow::connectActions()
{
    connectEditing();
    connectCleanUp();
    connectPlaying();
    connectViews();
}

void AbcEditorWindow::connectEditing()
{
    using Id = EditorActions::Id;
    const auto on = [this](Id id, auto *receiver, auto slot) {
        connect((*actions_)[id], &QAction::triggered, receiver, slot);
    };
    on(Id::Apply, transforms_, &EditorTransforms::apply);
    on(Id::Save, this, &AbcEditorWindow::save);
    on(Id::Revert, this, &AbcEditorWindow::revert);
    on(Id::Close, this, &QWidget::close);
    on(Id::Undo, this, &AbcEditorWindow::stepBack);
    on(Id::Redo, this, &AbcEditorWindow::stepForward);
    text_->setUndoCommands((*actions_)[Id::Undo], (*actions_)[Id::Redo]);
    on(Id::Cut, text_, &QPlainTextEdit::cut);
    on(Id::Copy, text_, &QPlainTextEdit::copy);
    on(Id::Paste, text_, &QPlainTextEdit::paste);
    on(Id::SelectAll, text_, &QPlainTextEdit::selectAll);
    on(Id::Find, findBar_, [this] { findBar_->open(FindBar::Purpose::Find); });
    on(Id::Replace, findBar_, [this] { findBar_->open(FindBar::Purpose::Replace); });
    on(Id::FindNext, findBar_, &FindBar::findNext);
    on(Id::FindPrevious, findBar_, &FindBar::findPrevious);
    on(Id::GoToLine, this, &AbcEditorWindow::goToLine);
    on(Id::NextProblem, problems_, &ProblemList::goToNext);
    on(Id::PreviousProblem, problems_, &ProblemList::goToPrevious);
    on(Id::FixProblem, this, [this] {
        if (!text_->fixAtCaret())
            status_->sayForNow(tr("There is nothing at the caret that has one right fix."));
    });
    on(Id::QuickRealign, transforms_, &EditorTransforms::quickRealign);
    on(Id::RealignNotes, transforms_, &EditorTransforms::realignNotes);
    on(Id::CleanQuantise, transforms_, &EditorTransforms::cleanQuantise);
    on(Id::Transpose, transforms_, &EditorTransforms::transposeNotes);
    on(Id::ChangeUnitLength, transforms_, &EditorTransforms::changeUnitLength);
    on(Id::ChangeKey, transforms_, &EditorTransforms::changeKey);
}

void AbcEditorWindow::connectCleanUp()
{
    using Id = EditorActions::Id;
    const auto on = [this](Id id, void (EditorCleanUp::*run)()) {
        connect((*actions_)[id], &QAction::triggered, cleanUp_, run);
    };
    on(Id::SplitNotes, &EditorCleanUp::split);
    on(Id::JoinNotes, &EditorCleanUp::join);
    on(Id::Legato, &EditorCleanUp::legato);
    on(Id::DoubleLengths, &EditorCleanUp::doubleLengths);
    on(Id::HalveLengths, &EditorCleanUp::halveLengths);
    on(Id::Quantise, &EditorCleanUp::quantise);
    on(Id::QuantiseHalf, &EditorCleanUp::quantiseHalf);
    on(Id::InvertSelection, &EditorCleanUp::invertSelection);
    on(Id::SelectSamePitch, &EditorCleanUp::selectSamePitch);
    on(Id::SelectPitchRange, &EditorCleanUp::selectPitchRange);
    on(Id::InsertMeasure, &EditorCleanUp::insertMeasure);
    on(Id::DeleteMeasures, &EditorCleanUp::deleteMeasures);
    connect(cleanUp_, &EditorCleanUp::said, status_, &EditorStatus::sayForNow);
}

void AbcEditorWindow::connectPlaying()
{
    using Id = EditorActions::Id;
    const auto on = [this](Id id, auto *receiver, auto slot) {
        connect((*actions_)[id], &QAction::triggered, receiver, slot);
    };
    on(Id::PlayOrStop, playback_, &EditorPlayback::playOrStop);
    connect((*actions_)[Id::WithSong], &QAction::toggled, playback_, &EditorPlayback::setWithSong);
    on(Id::PlayFromCaret, playback_, &EditorPlayback::playFromCaret);
    on(Id::PlayFromStart, playback_, &EditorPlayback::playFromStart);
    on(Id::LoopSelection, playback_, &EditorPlayback::loopSelection);
    on(Id::Stop, playback_, &EditorPlayback::stop);
    on(Id::Slower, this, [this] { tempo_->setValue(tempo_->value() - 5); });
    on(Id::Faster, this, [this] { tempo_->setValue(tempo_->value() + 5); });
    on(Id::NormalTempo, this, [this] { tempo_->setValue(100); });
    connect(playback_, &EditorPlayback::playingChanged, this, &AbcEditorWindow::showPlaying);
    connect(roll_, &PianoRoll::playRequested, playback_, &EditorPlayback::playFrom);
    connect(roll_, &PianoRoll::playOrStopRequested, playback_,
            [this](Ticks tick) { playback_->isPlaying() ? playback_->stop() : playback_->playFrom(tick); });
}

void AbcEditorWindow::connectViews()
{
    using Id = EditorActions::Id;
    const auto on = [this](Id id, auto *receiver, auto slot) {
        connect((*actions_)[id], &QAction::toggled, receiver, slot);
    };
    on(Id::ShowRoll, this, &AbcEditorWindow::showRoll);
    on(Id::ShowProblems, this, &AbcEditorWindow::showProblems);
    on(Id::WrapLines, text_, &AbcTextEdit::setWrapsLines);
    (*actions_)[Id::Follow]->setChecked(true);
    on(Id::Follow, text_, &AbcTextEdit::setFollowsPlayback);
    auto *const followOfRoll = roll_->actions().action(RollActions::Follow);
    on(Id::Follow, followOfRoll, &QAction::setChecked);
    connect(followOfRoll, &QAction::toggled, (*actions_)[Id::Follow], &QAction::setChecked);
    connect((*actions_)[Id::SwitchView], &QAction::triggered, this, &AbcEditorWindow::switchView);
    connect((*actions_)[Id::ZoomIn], &QAction::triggered, text_, [this] { text_->zoom(1); });
    connect((*actions_)[Id::ZoomOut], &QAction::triggered, text_, [this] { text_->zoom(-1); });
    connect((*actions_)[Id::ZoomNormal], &QAction::triggered, text_, &AbcTextEdit::zoomNormal);
    connect(problems_, &ProblemList::chosen, text_, [this](TextRange range) {
        text_->goTo(range);
        text_->setFocus();
    });
    connect(findBar_, &FindBar::said, status_, &EditorStatus::say);
    connect(roll_, &PianoRoll::statusChanged, status_, &EditorStatus::say);
    connect(text_, &QPlainTextEdit::copyAvailable, this, [this](bool available) {
        for (const auto id : {Id::Cut, Id::Copy})
            (*actions_)[id]->setEnabled(available);
    });
}

void AbcEditorWindow::connectDocument()
{
    using Id = EditorActions::Id;
    document_.setRewriteQuestion([this](const RewriteLoss &loss) { return transforms_->mayRewrite(loss); });
    connect(&document_, &EditorDocument::applied, this, &AbcEditorWindow::applied);
    connect(&document_, &EditorDocument::applied, status_, [this] { status_->say(tr("The changes are applied.")); });
    connect(&document_, &EditorDocument::isAppliedChanged, this, &AbcEditorWindow::showTitle);
    connect(&document_, &EditorDocument::readingChanged, this, &AbcEditorWindow::showTitle);
    connect(transforms_, &EditorTransforms::refused, this, &AbcEditorWindow::goToError);
    connect(&document_, &EditorDocument::applied, this, &AbcEditorWindow::openProblems);
    const auto follow = [this](Id id, void (QTextDocument::*signal)(bool)) {
        (*actions_)[id]->setEnabled(false);
        connect(document_.text(), signal, (*actions_)[id], &QAction::setEnabled);
    };
    follow(Id::Undo, &QTextDocument::undoAvailable);
    follow(Id::Redo, &QTextDocument::redoAvailable);
    for (const auto id : {Id::Cut, Id::Copy})
        (*actions_)[id]->setEnabled(false);
    auto *const edit = qobject_cast<QMenu *>(menuBar()->actions().at(1)->menu());
    connect(edit, &QMenu::aboutToShow, this, [this] {
        (*actions_)[Id::Undo]->setText(document_.canUndo() ? tr("&Undo %1").arg(document_.undoName()) : tr("&Undo"));
    });
}

// The same that the song is checked by.
void AbcEditorWindow::followCheckOptions()
{
    const auto take = [this] {
        document_.setCheckOptions(checkOptions([this](auto setting) { return settings_.value(setting); }));
    };
    take();
    connect(&settings_, &Settings::settingChanged, this, [take](Settings::Setting setting) {
        if (isCheckOption(setting))
            take();
    });
}

void AbcEditorWindow::showTitle()
{
    const bool isApplied = document_.isApplied();
    const auto title = document_.track().headerField(QStringLiteral("T"));
    setWindowTitle(tr("%1[*] – ABC Editor").arg(title.isEmpty() ? tr("Untitled") : title));
    setWindowModified(!isApplied);
    for (const auto id : {EditorActions::Apply, EditorActions::Revert})
        (*actions_)[id]->setEnabled(!isApplied);
}

void AbcEditorWindow::showPlaying()
{
    (*actions_)[EditorActions::Stop]->setEnabled(playback_->isPlaying());
}

void AbcEditorWindow::showTempo(int percent)
{
    tempoLabel_->setText(tr("%1 %").arg(percent));
}

void AbcEditorWindow::showRoll(bool visible)
{
    roll_->setVisible(visible);
    (*actions_)[EditorActions::ShowRoll]->setChecked(visible);
    if (settings_.value(Settings::PianoRollVisible).toBool() != visible)
        settings_.setValue(Settings::PianoRollVisible, visible);
    if (!visible)
        text_->setFocus();
}

void AbcEditorWindow::showProblems(bool visible)
{
    problems_->setVisible(visible);
    mayOpenProblems_ = visible;
}

// After Apply, and never again once it was closed.
void AbcEditorWindow::openProblems()
{
    const auto &findings = document_.findings();
    if (mayOpenProblems_ && std::any_of(findings.begin(), findings.end(), [](const Finding &finding) {
            return FindingKinds::severity(finding.kind) == Severity::Error;
        }))
        (*actions_)[EditorActions::ShowProblems]->setChecked(true);
}

void AbcEditorWindow::goToError()
{
    document_.update();
    openProblems();
    if (!document_.hasErrors())
        return;
    text_->goTo(document_.reading().problems.first().range);
    text_->setFocus();
}

void AbcEditorWindow::switchView()
{
    if (text_->hasFocus()) {
        showRoll(true);
        roll_->setFocus();
    } else {
        text_->setFocus();
    }
}

void AbcEditorWindow::save()
{
    if (!document_.apply()) {
        goToError();
        status_->say(tr("The text has errors: it is a draft, and the part stays as it was applied last."));
    }
    emit saveRequested();
}

void AbcEditorWindow::revert()
{
    auto applied = document_.appliedTrack();
    document_.replaceText(applied.toAbc(), tr("Revert"));
    transforms_->apply();
}

void AbcEditorWindow::goToLine()
{
    const auto answer = dialogs_.text(this, tr("Go to Line"), tr("Line, 1 to %1:").arg(text_->blockCount()),
                                      QString::number(text_->textCursor().blockNumber() + 1));
    bool isNumber = false;
    const auto line = answer ? answer->toInt(&isNumber) : 0;
    if (isNumber)
        text_->goToLine(line);
}

// The text's own undo brings its caret to what was typed.
void AbcEditorWindow::stepBack()
{
    if (!document_.isTypingUndone()) {
        document_.undo();
        return;
    }
    text_->undo();
    document_.update();
}

void AbcEditorWindow::stepForward()
{
    if (!document_.isTypingRedone()) {
        document_.redo();
        return;
    }
    text_->redo();
    document_.update();
}

void AbcEditorWindow::closeEvent(QCloseEvent *event)
{
    const auto wanted = transforms_->settleBeforeClosing();
    if (wanted == EditorTransforms::Closing::Stay) {
        event->ignore();
        return;
    }
    playback_->stop();
    emit closing(wanted == EditorTransforms::Closing::KeepDraft ? document_.draft() : std::nullopt);
    QMainWindow::closeEvent(event);
}
