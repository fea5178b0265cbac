// What all windows share.
#include "assets/InstrumentSetModel.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "ui/BusyIndicator.h"
#include "ui/Dialogs.h"
#include "ui/InstrumentComboBox.h"
#include "ui/Theme.h"
#include "ui/ValueDial.h"
#include "ui/WrappedCheckBox.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QProgressBar>
#include <QToolButton>
#include <QtMath>

using Ask = QString (*)(Dialogs &dialogs);
Q_DECLARE_METATYPE(Ask)

class TestControls : public QObject
{
    Q_OBJECT

    // Does something with the dialog that opens next.
    template<typename Dialog, typename Act>
    void withNext(Act act)
    {
        QTimer::singleShot(0, this, [act] {
            auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (dialog)
                act(*dialog);
            else
                qFatal("another dialog");
        });
    }
    static void press(const QMessageBox &box, const QString &text)
    {
        for (auto *const button : box.buttons()) {
            if (button->text().remove(u'&') == text)
                return button->click();
        }
        qFatal("no button %s", qPrintable(text));
    }

    QStringList opened_;

public slots:
    void noteAddress(const QUrl &address) { opened_.append(address.scheme()); }

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void asks_data()
    {
        // answers: the buttons, each with what it means; the last one is what Esc means
        const Rows<Ask, QString> row("ask", "answers");
        using D = Dialogs;
        row(
            "yes or no", [](D &d) { return QString::number(int(d.ask(nullptr, {}, QStringLiteral("<b>?")))); },
            QStringLiteral("Yes=%1 No=%2").arg(int(D::Answer::Yes)).arg(int(D::Answer::No)));
        row(
            "or cancel",
            [](D &d) {
                const auto answer = d.askOrCancel(nullptr, {}, QStringLiteral("<b>?"));
                return answer ? QString::number(int(*answer)) : QStringLiteral("-");
            },
            QStringLiteral("Yes=%1 No=%2 Cancel=-").arg(int(D::Answer::Yes)).arg(int(D::Answer::No)));
        row(
            "save", [](D &d) { return QString::number(int(d.askToSave(nullptr, {}, QStringLiteral("<b>?")))); },
            QStringLiteral("Save=%1 Discard=%2 Cancel=%3")
                .arg(int(D::CloseAnswer::Save))
                .arg(int(D::CloseAnswer::Discard))
                .arg(int(D::CloseAnswer::Cancel)));
        row(
            "overwrite",
            [](D &d) { return QString::number(int(d.askToOverwrite(nullptr, {}, QStringLiteral("<b>?")))); },
            QStringLiteral("Overwrite=%1 Save_As...=%2 Cancel=%3")
                .arg(int(D::OverwriteAnswer::Overwrite))
                .arg(int(D::OverwriteAnswer::SaveAs))
                .arg(int(D::OverwriteAnswer::Cancel)));
        row(
            "draft", [](D &d) { return QString::number(int(d.askAboutDraft(nullptr, {}, QStringLiteral("<b>?")))); },
            QStringLiteral("Keep_as_Draft=%1 Discard_Changes=%2 Fix_Errors=%3")
                .arg(int(D::DraftAnswer::KeepAsDraft))
                .arg(int(D::DraftAnswer::Discard))
                .arg(int(D::DraftAnswer::Fix)));
        row(
            "standard ABC",
            [](D &d) {
                const auto answer = d.askAboutForeign(nullptr, {}, QStringLiteral("<b>?"));
                return answer ? QString::number(int(*answer)) : QStringLiteral("-");
            },
            QStringLiteral("Convert_for_the_Game=%1 Open_as_It_Is=%2 Cancel=-")
                .arg(int(D::ForeignAnswer::Convert))
                .arg(int(D::ForeignAnswer::OpenAsItIs)));
    }

    void asks()
    {
        QFETCH(Ask, ask);
        QFETCH(QString, answers);
        DesktopDialogs dialogs;
        QString last;
        for (const auto &answer : answers.split(u' ')) {
            withNext<QMessageBox>([&](const QMessageBox &box) {
                QCOMPARE(int(box.textFormat()), int(Qt::PlainText)); // texts of files are no HTML
                press(box, answer.section(u'=', 0, 0).replace(u'_', u' '));
            });
            last = answer.section(u'=', 1);
            QCOMPARE(ask(dialogs), last);
        }
        withNext<QMessageBox>([&](QMessageBox &box) {
            if (answers.startsWith(u"Yes=") && !answers.contains(u"Cancel"))
                return press(box, QStringLiteral("No")); // Esc does nothing there
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        QCOMPARE(ask(dialogs), last);
    }

    void showsMessages()
    {
        using Severity = Dialogs::Severity;
        for (const auto &[severity, icon] : {std::pair(Severity::Information, QMessageBox::Information),
                                             {Severity::Warning, QMessageBox::Warning},
                                             {Severity::Critical, QMessageBox::Critical}}) {
            withNext<QMessageBox>([wanted = icon](QMessageBox &box) {
                QCOMPARE(int(box.icon()), int(wanted));
                box.close();
            });
            DesktopDialogs().message(nullptr, severity, {}, QStringLiteral("Text"));
        }
    }

    // Whatever the server says.
    void opensOnlyWebPages()
    {
        for (const auto *const scheme : {"http", "file", "https", "ftp"}) {
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "noteAddress");
            DesktopDialogs().openInBrowser(QUrl(QLatin1String(scheme) + QStringLiteral("://host.example/x")));
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
        }
        QCOMPARE(opened_, QStringList({QStringLiteral("http"), QStringLiteral("https")}));
    }

    void asksForTextsColoursAndFiles()
    {
        DesktopDialogs dialogs;
        withNext<QInputDialog>([](QInputDialog &dialog) {
            QCOMPARE(dialog.textValue(), QStringLiteral("before"));
            dialog.setTextValue(QStringLiteral("after"));
            dialog.accept();
        });
        QCOMPARE(dialogs.text(nullptr, {}, {}, QStringLiteral("before")), std::optional(QStringLiteral("after")));
        withNext<QInputDialog>([](QInputDialog &dialog) { dialog.reject(); });
        QVERIFY(!dialogs.text(nullptr, {}, {}, QStringLiteral("before")));
        withNext<QColorDialog>([](QColorDialog &dialog) { dialog.accept(); });
        QCOMPARE(dialogs.colour(nullptr, {}, Qt::red), QColor(Qt::red));
        withNext<QColorDialog>([](QColorDialog &dialog) { dialog.reject(); });
        QVERIFY(!dialogs.colour(nullptr, {}, Qt::red).isValid());

        const TestFolder folder;
        const auto filter = QStringLiteral("Songs (*.kvsong)");
        for (const auto &[start, entered, chosen] : {std::tuple("My Song.kvsong", "", "My Song.kvsong"),
                                                     {"My Song.kvsong", "other", "other.kvsong"},
                                                     {"", "other.abc", "other.abc"}}) {
            withNext<QFileDialog>([&, name = entered](QFileDialog &dialog) {
                if (*name != '\0')
                    dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(QLatin1String(name));
                static_cast<QDialog &>(dialog).accept();
            });
            QCOMPARE(dialogs.saveFile(nullptr, {}, folder.path(start), filter), folder.path(chosen));
        }
        withNext<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
        QCOMPARE(dialogs.saveFile(nullptr, {}, folder.path("a.kvsong"), filter), QString());

        const auto song = folder.write("a.kvsong", "x");
        const auto pickSong = [](QFileDialog &dialog) {
            dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("a.kvsong"));
            static_cast<QDialog &>(dialog).accept();
        };
        withNext<QFileDialog>(pickSong);
        QCOMPARE(dialogs.openFile(nullptr, {}, folder.path(), filter), song);
        withNext<QFileDialog>(pickSong);
        QCOMPARE(dialogs.openFiles(nullptr, {}, folder.path(), filter), QStringList(song));
        withNext<QFileDialog>([](QFileDialog &dialog) { static_cast<QDialog &>(dialog).accept(); });
        QCOMPARE(dialogs.directory(nullptr, {}, folder.path()), folder.path());
        for (const bool accepts : {true, false}) {
            QDialog dialog;
            QTimer::singleShot(0, &dialog, accepts ? &QDialog::accept : &QDialog::reject);
            QCOMPARE(dialogs.run(dialog), accepts);
        }
    }

    void showsWorkThatLasts()
    {
        QWidget window;
        auto *const busy = new BusyIndicator(&window);
        window.show();
        QSignalSpy cancelled(busy, &BusyIndicator::cancelled);
        busy->showProgress(QStringLiteral("short"), 1, 2);
        busy->finish();
        QTest::qWait(600);
        QVERIFY(!busy->isVisible());
        QElapsedTimer clock;
        clock.start();
        while (!busy->isVisible() && clock.elapsed() < 5000) {
            busy->showProgress(QStringLiteral("long"), 3, 7); // does not put it off
            QTest::qWait(20);
        }
        QVERIFY(busy->isVisible() && clock.elapsed() >= 450);
        QCOMPARE(busy->findChild<QLabel *>()->text(), QStringLiteral("long"));
        QCOMPARE(busy->findChild<QProgressBar *>()->value(), 3);
        QCOMPARE(busy->findChild<QProgressBar *>()->maximum(), 7);
        busy->findChild<QToolButton *>()->click();
        QCOMPARE(cancelled.size(), 1);
        busy->finish();
        QVERIFY(!busy->isVisible());
    }

    void dialTurns_data()
    {
        // of -100 … 100 with a detent at 0; a drag of 160 pixels is the whole range
        const Rows<int, QPoint, int, QString> row("from", "way", "button", "to");
        row("up", 50, QPoint(0, -8), int(Qt::LeftButton), "60");
        row("right", 50, QPoint(8, 0), int(Qt::LeftButton), "60");
        row("down and left", 50, QPoint(-8, 8), int(Qt::LeftButton), "30");
        row("to the end", 50, QPoint(0, -500), int(Qt::LeftButton), "100");
        row("held by the detent", 50, QPoint(0, 36), int(Qt::LeftButton), "0");
        row("past the detent", 50, QPoint(0, 46), int(Qt::LeftButton), "-8");
        row("other button", 50, QPoint(0, -8), int(Qt::RightButton), "50");
    }

    void dialTurns()
    {
        QFETCH(int, from);
        QFETCH(QPoint, way);
        QFETCH(int, button);
        ValueDial dial(-100, 100, 0, ValueDial::Detent::AtNeutral, [](int value) { return QString::number(value); });
        dial.resize(dial.sizeHint());
        QCOMPARE(dial.value(), 0);
        dial.setValue(from);
        const auto drawn = dial.grab().toImage();
        const QPoint middle(20, 20);
        const auto move = [&](QPoint to) {
            QMouseEvent event(QEvent::MouseMove, to, dial.mapToGlobal(to), Qt::NoButton, Qt::MouseButton(button), {});
            QCoreApplication::sendEvent(&dial, &event);
        };
        QTest::mousePress(&dial, Qt::MouseButton(button), {}, middle);
        move(middle + way);
        QTEST(dial.valueText(), "to");
        QCOMPARE(dial.accessibleDescription(), dial.valueText());
        QCOMPARE(dial.grab().toImage() == drawn, dial.value() == from);
        QTest::mouseRelease(&dial, Qt::MouseButton(button), {}, middle + way);
        move(middle + QPoint(0, -100));
        QTEST(dial.valueText(), "to"); // let go
        QTest::mouseDClick(&dial, Qt::LeftButton);
        QCOMPARE(dial.value(), 0);
    }

    // All around its ring, from below: the part that tells the value (#), the rest of the range (-), nothing there ( ).
    void dialShowsItsValue_data()
    {
        const Rows<bool, int, QString> row("hasDetent", "value", "ring");
        row("above the middle", true, 60, "  ---------#####----  ");
        row("below it", true, -60, "  ----#####---------  ");
        row("from the least", false, 60, "  ##############----  ");
        row("the whole range", false, 100, "  ##################  ");
    }
    void dialShowsItsValue()
    {
        QFETCH(bool, hasDetent);
        QFETCH(int, value);
        ValueDial dial(-100, 100, 0, hasDetent ? ValueDial::Detent::AtNeutral : ValueDial::Detent::None,
                       [](int number) { return QString::number(number); });
        dial.resize(dial.sizeHint());
        dial.setValue(value);
        const auto picture = dial.grab().toImage();
        const auto accent = dial.palette().color(QPalette::Highlight);
        const auto paper = dial.palette().color(QPalette::Window);
        QString ring;
        for (int degrees = -165; degrees < 165; degrees += 15) {
            const auto angle = qDegreesToRadians(degrees + 7.5);
            const QPointF place(20 + 16 * std::sin(angle), 19 - 16 * std::cos(angle));
            const auto colour = picture.pixelColor((place * picture.devicePixelRatio()).toPoint());
            const auto like = [&colour](const QColor &other) {
                return std::abs(colour.red() - other.red()) + std::abs(colour.blue() - other.blue()) < 40;
            };
            ring += like(accent) ? u'#' : like(paper) ? u' ' : u'-';
        }
        QTEST(ring, "ring");
    }

    void checkBoxesOfSeveralLinesShowTheirState()
    {
        WrappedCheckBox box(QStringLiteral("What is said in many words takes more than one line"));
        box.resize(120, box.heightForWidth(120));
        QVERIFY(box.height() > 2 * box.fontMetrics().height());
        const auto before = box.grab().toImage();
        box.setChecked(true);
        QVERIFY(box.grab().toImage() != before);
    }

    // An icon in the colour of the row that the mouse is over can be seen.
    void iconsOfHighlightedRowsAreSeen()
    {
        applyTheme(Theme::Light);
        QMenu menu;
        QPixmap blue(16, 16);
        blue.fill(menu.palette().color(QPalette::Highlight));
        menu.addAction(QIcon(blue), QStringLiteral("Text"));
        menu.popup({});
        menu.setActiveAction(menu.actions().first());
        const auto image = menu.grab(menu.actionGeometry(menu.actions().first())).toImage();
        int edges = 0;
        for (int x = 1; x < 30; ++x) {
            const QColor here(image.pixel(x, image.height() / 2)), left(image.pixel(x - 1, image.height() / 2));
            edges += std::abs(here.lightness() - left.lightness()) > 40 ? 1 : 0;
        }
        QVERIFY(edges >= 2);
    }
};

QTEST_MAIN(TestControls)
#include "test_controls.moc"
