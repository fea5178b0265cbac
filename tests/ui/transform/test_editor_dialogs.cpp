#include "app/AnsweringDialogs.h"
#include "settings/Settings.h"
#include "support/Rows.h"
#include "ui/transform/KeyDialog.h"
#include "ui/transform/RealignNotesDialog.h"
#include "ui/transform/TransposeDialog.h"
#include "ui/transform/UnitLengthDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDial>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

namespace {

template<typename Widget>
Widget *child(const QWidget &parent, const char *name)
{
    return parent.findChild<Widget *>(QLatin1String(name));
}

QPushButton *button(const QWidget &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>()->button(which);
}

const QVector<const char *> dials{"dlRegular", "dlTriplet", "dlQuintuplet", "dlSeptuplet", "dlNonuplet"};

void turn(RealignNotesDialog &dialog, const QVector<int> &values)
{
    for (int i = 0; i < dials.size(); ++i)
        child<QDial>(dialog, dials[i])->setValue(values[i]);
}

} // namespace

class TestEditorDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init() { settings_ = std::make_unique<Settings>(folder_.filePath(QString::number(++files_))); }

    void realignGrids_data()
    {
        const Rows<QVector<int>, QVector<quint32>> row("values", "grids");
        row("finest", {7, 6, 5, 5, 4}, {128, 96, 80, 112, 72});
        row("no finer than that", {9, 9, 9, 9, 9}, {128, 96, 80, 112, 72});
        row("whole notes", {0, 0, 0, 0, 0}, {1});
        row("some", {2, 0, 1, 0, 2}, {4, 5, 18});
    }

    void realignGrids()
    {
        QFETCH(QVector<int>, values);
        RealignNotesDialog dialog(*settings_);
        turn(dialog, values);
        QTEST(dialog.grids(), "grids");
        auto *const dial = child<QDial>(dialog, dials[0]);
        QTest::keyClick(dial, Qt::Key_PageUp);
        QCOMPARE(dial->value(), std::min(values[0] + 1, dial->maximum()));
    }

    void realignStoresOnAcceptOnly()
    {
        RealignNotesDialog cancelled(*settings_);
        turn(cancelled, {1, 1, 1, 1, 1});
        button(cancelled, QDialogButtonBox::Cancel)->click();
        QVERIFY(!settings_->contains(Settings::RealignRegular));

        RealignNotesDialog accepted(*settings_);
        turn(accepted, {1, 2, 3, 4, 0});
        button(accepted, QDialogButtonBox::Ok)->click();
        QCOMPARE(accepted.result(), int(QDialog::Accepted));
        QCOMPARE(RealignNotesDialog(*settings_).grids(), accepted.grids());
        QVector<int> stored;
        for (const auto setting : {Settings::RealignRegular, Settings::RealignTriplets, Settings::RealignQuintuplets,
                                   Settings::RealignSeptuplets, Settings::RealignNonuplets})
            stored.append(settings_->value(setting).toInt());
        QCOMPARE(stored, (QVector<int>{1, 2, 3, 4, 0}));
    }

    void transposeGivesSemitones()
    {
        TransposeDialog dialog;
        auto *const box = child<QSpinBox>(dialog, "spTranspose");
        box->setValue(-100);
        QCOMPARE(dialog.semitones(), -48);
        box->setValue(100);
        QCOMPARE(dialog.semitones(), 48);
    }

    void unitLengthBegins_data()
    {
        const Rows<QString, QString, bool> row("value", "result", "isCustom");
        row("fixed", "1/16", "1/16", false);
        row("finest", "1/128", "1/128", false);
        row("whole", "1/1", "1/1", false);
        row("bare", "1", "1/1", false);
        row("custom", "3/8", "3/8", true);
        row("not reduced", "2/8", "2/8", true);
        row("none", "", "1/1", false);
        row("zero", "1/0", "1/1", false);
    }

    void unitLengthBegins()
    {
        QFETCH(QString, value);
        UnitLengthDialog dialog;
        dialog.preset(value);
        QTEST(dialog.result(), "result");
        QTEST(child<QCheckBox>(dialog, "chkCustom")->isChecked(), "isCustom");
    }

    void unitLengthPrefersAutoThenCustom()
    {
        UnitLengthDialog dialog;
        const auto *const fixed = child<QComboBox>(dialog, "cboUnitLength");
        dialog.preset(QStringLiteral("3/8"));
        QVERIFY(!fixed->isEnabled());
        QVERIFY(child<QSpinBox>(dialog, "spNum")->isEnabled());
        child<QCheckBox>(dialog, "chkAutoDetect")->setChecked(true);
        QCOMPARE(dialog.result(), QStringLiteral("auto"));
        QVERIFY(!child<QSpinBox>(dialog, "spDen")->isEnabled());
        child<QCheckBox>(dialog, "chkAutoDetect")->setChecked(false);
        child<QCheckBox>(dialog, "chkCustom")->setChecked(false);
        QCOMPARE(dialog.result(), QStringLiteral("1/1"));
    }

    void keyBegins_data()
    {
        const Rows<QString, QString> row("value", "key");
        row("minor", "Cm", "Cm");
        row("lower case", "bbmin", "Bbm");
        row("mode", "F#lyd", "F#lyd");
        row("major", "Ebmaj", "Eb");
        row("ends of the list", "C#", "C#");
        row("other end", "Abm", "Abm");
        row("mixolydian", "G mix", "Gmix");
        row("no key", "?", "C");
    }

    void keyBegins()
    {
        QFETCH(QString, value);
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        QCOMPARE(child<QLabel>(dialog, "lblNewKey")->text(), QStringLiteral("C"));
        dialog.preset(value);
        QTEST(dialog.key(), "key");
        QTEST(child<QLabel>(dialog, "lblNewKey")->text(), "key");
    }

    void keyIsChosen()
    {
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        QCOMPARE(dialog.key(), QStringLiteral("C"));
        child<QCheckBox>(dialog, "chkIncludeMajor")->click();
        QCOMPARE(child<QLabel>(dialog, "lblNewKey")->text(), QStringLiteral("Cmaj"));
        const auto chosen = [&](int mode, int accidentals) {
            child<QComboBox>(dialog, "cboMode")->setCurrentIndex(mode);
            child<QComboBox>(dialog, "cboAccidentals")->setCurrentIndex(accidentals);
            return dialog.key() + u' ' + child<QComboBox>(dialog, "cboAccidentals")->currentText();
        };
        QCOMPARE(chosen(0, 0), QStringLiteral("C#maj 7 sharps"));
        QCOMPARE(chosen(0, 6), QStringLiteral("Gmaj 1 sharp"));
        QCOMPARE(chosen(0, 7), QStringLiteral("Cmaj 0 sharps / flats"));
        QCOMPARE(chosen(6, 8), QStringLiteral("Eloc 1 flat"));
        QCOMPARE(chosen(1, 10), QStringLiteral("Cm 3 flats"));
        QCOMPARE(child<QLabel>(dialog, "lblNewKey")->text(), QStringLiteral("Cm"));
    }

    void keyAsksAboutOtherModes()
    {
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        dialog.show();
        child<QComboBox>(dialog, "cboMode")->setCurrentIndex(5);
        button(dialog, QDialogButtonBox::Ok)->click();
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialogs.takeAsked().size(), 1);
        dialogs.answer = Dialogs::Answer::Yes;
        button(dialog, QDialogButtonBox::Ok)->click();
        QVERIFY(!dialog.isVisible());
        dialogs.takeAsked();

        KeyDialog minor(dialogs);
        minor.preset(QStringLiteral("A#m"));
        button(minor, QDialogButtonBox::Ok)->click();
        QCOMPARE(minor.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.asked.isEmpty());
    }

private:
    QTemporaryDir folder_;
    int files_ = 0;
    std::unique_ptr<Settings> settings_;
};

QTEST_MAIN(TestEditorDialogs)
#include "test_editor_dialogs.moc"
