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
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include <numeric>

namespace {

template<typename Widget>
Widget *child(const QWidget &parent, const char *name)
{
    return parent.findChild<Widget *>(QLatin1String(name));
}

bool hasLabel(const QWidget &parent, const QString &text)
{
    for (const auto *const label : parent.findChildren<QLabel *>()) {
        if (label->text() == text)
            return true;
    }
    return false;
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

    void realignBeginsAsTheSettingsSay()
    {
        settings_->setValue(Settings::RealignTriplets, 2);
        RealignNotesDialog dialog(*settings_);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Realign Notes"));
        QCOMPARE(dialog.findChild<QGroupBox *>()->title(), QStringLiteral("Quantization Precision"));
        const QVector<int> maxima{7, 6, 5, 5, 4};
        const QVector<int> values{7, 2, 5, 5, 4};
        for (int i = 0; i < dials.size(); ++i) {
            const auto *const dial = child<QDial>(dialog, dials[i]);
            QCOMPARE(dial->maximum(), maxima[i]);
            QCOMPARE(dial->value(), values[i]);
            QVERIFY(dial->notchesVisible());
            QCOMPARE(dial->pageStep(), 1);
        }
        for (const auto &text : {"Regular", "Triplets", "Quintuplets", "Septuplets", "Nonuplets", "128ths", "6ths"})
            QVERIFY2(hasLabel(dialog, QLatin1String(text)), text);
    }

    void realignGrids_data()
    {
        const Rows<QVector<int>, QVector<quint32>> row("values", "grids");
        row("finest", {7, 6, 5, 5, 4}, {128, 96, 80, 112, 72});
        row("whole notes", {0, 0, 0, 0, 0}, {1});
        row("some", {2, 0, 1, 0, 2}, {4, 5, 18});
    }

    void realignGrids()
    {
        QFETCH(QVector<int>, values);
        RealignNotesDialog dialog(*settings_);
        turn(dialog, values);
        QTEST(dialog.grids(), "grids");
    }

    void realignNamesEveryGrid()
    {
        const std::pair<const char *, const char *> names[] = {
            {"dlRegular", "Whole 2nds 4ths 8ths 16ths 32nds 64ths 128ths"},
            {"dlTriplet", "None 3rds 6ths 12ths 24ths 48ths 96ths"},
            {"dlQuintuplet", "None 5ths 10ths 20ths 40ths 80ths"},
            {"dlSeptuplet", "None 7ths 14ths 28ths 56ths 112ths"},
            {"dlNonuplet", "None 9ths 18ths 36ths 72nds"}};
        RealignNotesDialog dialog(*settings_);
        for (const auto &[dial, wanted] : names) {
            turn(dialog, {3, 0, 0, 0, 0});
            int value = 0;
            for (const auto &name : QString::fromLatin1(wanted).split(u' ')) {
                child<QDial>(dialog, dial)->setValue(value++);
                QVERIFY2(hasLabel(dialog, name), qPrintable(name));
            }
        }
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
        QVector<int> stored;
        for (const auto setting : {Settings::RealignRegular, Settings::RealignTriplets, Settings::RealignQuintuplets,
                                   Settings::RealignSeptuplets, Settings::RealignNonuplets})
            stored.append(settings_->value(setting).toInt());
        QCOMPARE(stored, (QVector<int>{1, 2, 3, 4, 0}));
    }

    void transposeGivesSemitones()
    {
        TransposeDialog dialog;
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Transpose"));
        QVERIFY(hasLabel(dialog, QStringLiteral("Transpose all notes")));
        QVERIFY(
            hasLabel(dialog, QStringLiteral("Notes that fall outside of the valid octave range after transposing will "
                                            "be removed!")));
        auto *const box = child<QSpinBox>(dialog, "spTranspose");
        QCOMPARE(box->suffix(), QStringLiteral("semitone(s)"));
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
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Change Unit Length"));
        const auto *const fixed = child<QComboBox>(dialog, "cboUnitLength");
        QCOMPARE(fixed->itemText(fixed->count() - 1), QStringLiteral("1/128"));
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
        row("no key", "?", "C");
    }

    void keyBegins()
    {
        QFETCH(QString, value);
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        dialog.preset(value);
        QTEST(dialog.key(), "key");
    }

    void keyShowsItsText()
    {
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Change Key"));
        auto *const mode = child<QComboBox>(dialog, "cboMode");
        auto *const accidentals = child<QComboBox>(dialog, "cboAccidentals");
        const auto *const label = child<QLabel>(dialog, "lblNewKey");
        QCOMPARE(mode->count(), 7);
        QCOMPARE(mode->itemText(6), QStringLiteral("Locrian"));
        QCOMPARE(accidentals->count(), 15);
        QCOMPARE(accidentals->itemText(0), QStringLiteral("7 sharps"));
        QCOMPARE(accidentals->itemText(6), QStringLiteral("1 sharp"));
        QCOMPARE(accidentals->itemText(8), QStringLiteral("1 flat"));
        QCOMPARE(accidentals->currentText(), QStringLiteral("0 sharps / flats"));
        QCOMPARE(label->text(), QStringLiteral("C"));
        child<QCheckBox>(dialog, "chkIncludeMajor")->click();
        QCOMPARE(label->text(), QStringLiteral("Cmaj"));
        mode->setCurrentIndex(1);
        accidentals->setCurrentIndex(10);
        QCOMPARE(label->text(), QStringLiteral("Cm"));
    }

    void keyAsksAboutOtherModes()
    {
        AnsweringDialogs dialogs;
        KeyDialog dialog(dialogs);
        dialog.show();
        child<QComboBox>(dialog, "cboMode")->setCurrentIndex(5);
        button(dialog, QDialogButtonBox::Ok)->click();
        QVERIFY(dialog.isVisible());
        QVERIFY(dialogs.takeAsked().value(0).endsWith(QStringLiteral(
            "|You've chosen a key that is not supported by Kelvarion.\nAre you sure you want to continue?")));
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
