#include "app/AnsweringDialogs.h"
#include "assets/InstrumentSetModel.h"
#include "core/AbcParser.h"
#include "import/Transpose.h"
#include "settings/Settings.h"
#include "ui/Theme.h"
#include "ui/ValueDial.h"
#include "ui/song/TitleLabel.h"
#include "ui/song/TrackVisualizationWidget.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <QWheelEvent>
#include <QtTest>

namespace {

Track song(const QString &title)
{
    Track track;
    track.setHeaderField(QStringLiteral("T"), title);
    for (const quint32 pitch : {60U, 64U, 67U})
        track.appendEvent(TrackEvent::note(pitch, Ticks(pitch - 60) * ticksPerQuarter, ticksPerQuarter));
    track.normalize();
    return track;
}

InstrumentSet catalogue(const QStringList &names)
{
    InstrumentSet instruments;
    for (const auto &name : names)
        instruments.add({name, {}, {}});
    return instruments;
}

} // namespace

class TestTrackWidget : public QObject
{
    Q_OBJECT

public slots:
    void note() { signals_.append(QString::fromLatin1(row_->metaObject()->method(senderSignalIndex()).name())); }

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        settings_ = std::make_unique<Settings>(folder_->filePath(QStringLiteral("settings.cfg")));
        instruments_ = std::make_unique<InstrumentSetModel>(
            catalogue({QStringLiteral("flute"), QStringLiteral("lute"), QStringLiteral("piano")}));
        dialogs_ = std::make_unique<AnsweringDialogs>();
        const SongTrack shown{QStringLiteral("T1"), std::make_shared<const Track>(song(QStringLiteral("Jig"))), {}};
        row_ = std::make_unique<TrackWidget>(std::make_shared<const SongTrack>(shown), *instruments_, *settings_,
                                             *dialogs_);
        const auto *const row = row_->metaObject();
        for (int i = row->methodOffset(); i < row->methodCount(); ++i) {
            if (row->method(i).methodType() == QMetaMethod::Signal)
                connect(row_.get(), row->method(i), this, metaObject()->method(metaObject()->indexOfSlot("note()")));
        }
        connect(row_.get(), &TrackWidget::trackChanged, this, [this](const QString &step, const Track &wanted) {
            step_ = step;
            wanted_ = wanted;
        });
    }

    void cleanup()
    {
        row_.reset();
        settings_.reset(); // before their folder, which they would make again
        signals_.clear();
    }

    void tabReachesEveryControl()
    {
        row_->show();
        row_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(row_.get()));
        child<QWidget>("chkSelect")->setFocus();
        QStringList reached;
        for (int i = 0; i < 12; ++i) {
            reached.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        const QString order = QStringLiteral(
            "chkSelect lblTitle cboInstrument wVis dlVolume dlPan btnMute btnSolo btnEdit btnDelete btnUp btnDown");
        QCOMPARE(reached.join(u' '), order);
    }

    void selects()
    {
        QSignalSpy selected(row_.get(), &TrackWidget::trackSelected);
        child<QCheckBox>("chkSelect")->click();
        QVERIFY(row_->isSelected() && selected.last()[0].toBool());
        child<QCheckBox>("chkSelect")->click();
        QVERIFY(!row_->isSelected() && !selected.last()[0].toBool());
    }

    void mutes()
    {
        auto *const visualization = child<TrackVisualizationWidget>("wVis");
        child<QCheckBox>("btnMute")->click();
        QVERIFY(row_->isMuted() && visualization->isMuted());
        choose(QStringLiteral("(Un)mute"));
        QVERIFY(!row_->isMuted() && !visualization->isMuted() && !child<QCheckBox>("btnMute")->isChecked());
        QCOMPARE(signals_, QStringList({QStringLiteral("trackMuteChanged"), QStringLiteral("trackMuteChanged")}));
    }

    void showsATrackWithoutAnnouncingIt()
    {
        const SongTrack shown{
            QStringLiteral("T1"), std::make_shared<const Track>(song({})), QStringLiteral("piano"), true, 40, -50};
        row_->setTrack(std::make_shared<const SongTrack>(shown));
        row_->setSelected(true);
        row_->setPosition(100);
        row_->setSpan({0, 1000});
        QVERIFY(signals_.isEmpty());
        QCOMPARE(child<QLabel>("lblTitle")->text(), QStringLiteral("Untitled"));
        QVERIFY(row_->isSelected() && row_->isMuted() && child<QCheckBox>("btnMute")->isChecked());
        QCOMPARE(row_->volumePercent(), 40);
        QCOMPARE(row_->panPercent(), -50);
        QCOMPARE(child<QComboBox>("cboInstrument")->currentText(), QStringLiteral("piano"));
    }

    void asksForWhatTheWindowDoes()
    {
        row_->setSpan({0, 1000});
        child<QToolButton>("btnUp")->click();
        child<QToolButton>("btnDown")->click();
        child<QToolButton>("btnEdit")->click();
        choose(QStringLiteral("Open ABC Editor"));
        choose(QStringLiteral("Solo"));
        choose(QStringLiteral("Save"));
        choose(QStringLiteral("Save As..."));
        emit child<TrackVisualizationWidget>("wVis")->seek(5);
        child<QComboBox>("cboInstrument")->setCurrentIndex(1);
        child<ValueDial>("dlVolume")->setValue(30);
        child<ValueDial>("dlPan")->setValue(30);
        child<QToolButton>("btnDelete")->click();
        QCOMPARE(signals_.join(u' '),
                 QStringLiteral("trackMoveUp trackMoveDown editorRequested editorRequested trackSolo saveRequested "
                                "saveAsRequested trackSeek trackInstrumentChanged trackVolumeChanged trackPanChanged "
                                "trackRemoved"));
        QCOMPARE(row_->instrumentName(), QStringLiteral("lute"));
    }

    void renames()
    {
        dialogs_->enteredText = QStringLiteral("Reel");
        QTest::mouseDClick(child<QLabel>("lblTitle"), Qt::LeftButton);
        QCOMPARE(dialogs_->takeAsked(), QStringList(QStringLiteral("Rename Track|New track title:")));
        QCOMPARE(dialogs_->starts, QStringList(QStringLiteral("Jig")));
        QCOMPARE(step_ + u'|' + wanted_.title(), QStringLiteral("Rename Track|Reel"));
        QCOMPARE(child<QLabel>("lblTitle")->text(), QStringLiteral("Jig")); // until the list has it
        dialogs_->enteredText.reset();
        choose(QStringLiteral("Rename Track"));
        QCOMPARE(signals_, QStringList(QStringLiteral("trackChanged")));
        dialogs_->takeAsked();
        for (const auto key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter, Qt::Key_X})
            QTest::keyClick(child<QLabel>("lblTitle"), key);
        QCOMPARE(dialogs_->asked.size(), 3);
    }

    void renamingKeepsTheTextOfTheTrack()
    {
        const auto text = QStringLiteral("X:1\nT:Jig\nT:again\nL:1/4\nK:C\nC E | G % as I like it\n");
        dialogs_->enteredText = QStringLiteral("Reel \\1");
        auto oneTitle = text;
        oneTitle.remove(QStringLiteral("T:again\n"));
        show(parseAbc(oneTitle));
        row_->onChangeTitle();
        QCOMPARE(wanted_.toAbc(), QString(oneTitle).replace(QStringLiteral("Jig"), QStringLiteral("Reel \\1")));

        show(parseAbc(text));
        row_->onChangeTitle();
        QCOMPARE(parseAbc(wanted_.toAbc()).headerFields(QStringLiteral("T")), QStringList(QStringLiteral("Reel \\1")));
    }

    void transposes()
    {
        QSignalSpy transposed(row_.get(), &TrackWidget::trackTransposed);
        choose(QStringLiteral("Transpose one octave up"));
        choose(QStringLiteral("Transpose one octave down"));
        QVERIFY(transposed.size() == 2 && transposed[0][0] == 12 && transposed[1][0] == -12);
        row_->onTrackChanged(song(QStringLiteral("Edited")));
        QCOMPARE(step_ + u'|' + wanted_.title(), QStringLiteral("Edit Track|Edited"));
    }

    void instrumentSurvivesNewCatalogues()
    {
        auto *const box = child<QComboBox>("cboInstrument");
        show(&SongTrack::instrument, QStringLiteral("lute"));
        instruments_->setInstruments(catalogue({QStringLiteral("None")}));
        QCOMPARE(box->currentIndex(), -1);
        QCOMPARE(row_->instrumentName(), QStringLiteral("lute"));
        row_->setStandIn(QStringLiteral("None"));
        QVERIFY(box->toolTip().contains(QStringLiteral("'lute'; 'None' sounds instead")));
        row_->show();
        const auto missing = box->grab().toImage();
        show(&SongTrack::instrument, QStringLiteral("bass"));
        QVERIFY(box->grab().toImage() != missing); // it is named
        show(&SongTrack::instrument, QStringLiteral("lute"));
        signals_.clear();
        instruments_->setInstruments(
            catalogue({QStringLiteral("bass"), QStringLiteral("drum"), QStringLiteral("lute")}));
        QCOMPARE(box->currentText(), QStringLiteral("lute"));
        QVERIFY(signals_.isEmpty());
        box->setCurrentIndex(0);
        QCOMPARE(row_->instrumentName(), QStringLiteral("bass"));
        QCOMPARE(signals_, QStringList(QStringLiteral("trackInstrumentChanged")));
    }

    void dials()
    {
        auto *const volume = child<ValueDial>("dlVolume");
        auto *const pan = child<ValueDial>("dlPan");
        QCOMPARE(volume->valueText() + u'|' + pan->valueText(), QStringLiteral("100 %|C"));
        volume->setValue(75);
        pan->setValue(-60);
        QCOMPARE(volume->valueText() + u'|' + pan->valueText(), QStringLiteral("75 %|L 60"));
        QCOMPARE(row_->volumePercent(), 75);
        QCOMPARE(row_->panPercent(), -60);
        QTest::mouseDClick(volume, Qt::LeftButton);
        QTest::mouseDClick(pan, Qt::LeftButton);
        QCOMPARE(row_->volumePercent(), 100);
        QCOMPARE(row_->panPercent(), 0);
    }

    void theWheelScrollsTheListUntilADialHasTheFocus()
    {
        row_->show();
        row_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(row_.get()));
        auto *const dial = child<ValueDial>("dlVolume");
        const auto turnWheel = [](QWidget *widget) {
            const QPointF middle = widget->rect().center();
            QWheelEvent event(middle, widget->mapToGlobal(middle.toPoint()), {}, {0, -120}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(widget, &event);
            return event.isAccepted();
        };
        show(&SongTrack::instrument, QStringLiteral("flute"));
        signals_.clear(); // the overview came to its place
        child<QWidget>("chkSelect")->setFocus();
        QVERIFY(!turnWheel(dial) && !turnWheel(child<QComboBox>("cboInstrument")));
        QVERIFY(signals_.isEmpty());
        dial->setFocus();
        row_->setAttribute(Qt::WA_KeyboardFocusChange); // the ring is for those who use keys
        auto *const title = row_->findChild<TitleLabel *>();
        const auto withoutFocus = title->grab().toImage();
        title->setFocus();
        QVERIFY(title->grab().toImage() != withoutFocus);
        dial->setFocus();
        turnWheel(dial);
        QVERIFY(row_->volumePercent() < 100);
    }

    void showsWhatThePlayerSays()
    {
        auto *const visualization = child<TrackVisualizationWidget>("wVis");
        auto *const meter = child<VUMeter>("vuMeter");
        row_->setSpan({0, 1000});
        row_->setPosition(250);
        row_->setLevels(0.1F, 0.2F, 0.3F, 0.4F);
        row_->notePressed(1);
        QCOMPARE(visualization->span().length, Ticks(1000));
        QCOMPARE(visualization->position(), Ticks(250));
        QCOMPARE(visualization->pressedNotes(), QSet<int>({1}));
        QCOMPARE(meter->channel(0).rms(), 0.1F);
        QCOMPARE(meter->channel(1).rms(), 0.2F);
        QCOMPARE(meter->channel(0).peak(), 0.3F);
        QCOMPARE(meter->channel(1).peak(), 0.4F);
        row_->noteReleased(1);
        QVERIFY(visualization->pressedNotes().isEmpty());
        row_->notePressed(0);
        row_->releaseAllNotes();
        QVERIFY(visualization->pressedNotes().isEmpty());
    }

    void marksWhatItsFileLacks()
    {
        row_->show();
        const auto plain = child<QLabel>("lblTitle")->grab().toImage();
        for (const bool isMarked : {true, false}) {
            row_->setDiffersFromFile(isMarked);
            QCOMPARE(child<QLabel>("lblTitle")->grab().toImage() != plain, isMarked);
        }
        for (const bool hasDraft : {true, false}) {
            row_->setHasDraft(hasDraft);
            QCOMPARE(child<QLabel>("lblDraft")->isVisible(), hasDraft);
        }
    }

    void followsTheThemeAtOnce()
    {
        QWidget window;
        row_->setParent(&window);
        window.show();
        for (const bool isDark : {true, false, true, false}) {
            applyTheme(isDark ? Theme::Dark : Theme::Light);
            QCOMPARE(row_->styleSheet().contains(QStringLiteral("#DADADA")), !isDark);
        }
        row_->setParent(nullptr);
    }

    void opensItsMenu()
    {
        row_->show();
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, row_->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(row_.get(), &event);
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->actions().size(), row_->contextMenu()->actions().size());
        menu->close();
    }

    void asksForTheStartOffset()
    {
        QSignalSpy chosen(row_.get(), &TrackWidget::startOffsetChosen);
        dialogs_->inDialog = [](QDialog &dialog) {
            auto &input = *qobject_cast<QInputDialog *>(&dialog);
            input.setIntValue(input.intValue() - 30);
            input.accept();
        };
        QVERIFY(child<QLabel>("lblOffset")->isHidden());
        show(&SongTrack::startOffset, 10);
        QCOMPARE(child<QLabel>("lblOffset")->text(), QStringLiteral("+10 ms"));
        choose(QStringLiteral("Start Offset..."));
        QCOMPARE(chosen.value(0).value(0).toInt(), -20);
    }

private:
    template<typename Child>
    Child *child(const char *name)
    {
        auto *const found = row_->findChild<Child *>(QLatin1String(name));
        if (found == nullptr)
            qFatal("no child %s", name);
        return found;
    }

    void choose(const QString &text)
    {
        const auto menu = row_->contextMenu();
        auto actions = menu->actions();
        for (const auto *const action : menu->actions()) {
            if (action->menu() != nullptr)
                actions += action->menu()->actions();
        }
        for (auto *const action : std::as_const(actions)) {
            if (action->text() == text)
                return action->trigger();
        }
        QFAIL(qPrintable(text));
    }

    // What it shows, but for a part.
    template<typename Part>
    void show(Part SongTrack::*part, const Part &value)
    {
        auto shown = *row_->shown();
        shown.*part = value;
        row_->setTrack(std::make_shared<const SongTrack>(shown));
    }
    void show(const Track &track) { show(&SongTrack::track, std::make_shared<const Track>(track)); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Settings> settings_;
    std::unique_ptr<InstrumentSetModel> instruments_;
    std::unique_ptr<AnsweringDialogs> dialogs_;
    std::unique_ptr<TrackWidget> row_;
    QString step_; // of the last change that was wanted
    Track wanted_;
    QStringList signals_; // names of the signals that the row emitted, in their order
};

QTEST_MAIN(TestTrackWidget)
#include "test_track_widget.moc"
