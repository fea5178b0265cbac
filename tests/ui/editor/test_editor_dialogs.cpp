#include "app/AnsweringDialogs.h"
#include "app/Settings.h"
#include "ui/editor/KeyDialog.h"
#include "ui/editor/RealignNotesDialog.h"
#include "ui/editor/TransposeDialog.h"
#include "ui/editor/UnitLengthDialog.h"

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

} // namespace

class TestEditorDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init() { settings_ = std::make_unique<Settings>(folder_.filePath(QString::number(++files_))); }

    void realignBeginsAsTheSettingsSay();
    void realignGrids_data();
    void realignGrids();
    void realignNamesEveryGrid();
    void realignStoresOnAcceptOnly();
    void transposeGivesSemitones();
    void unitLengthBegins_data();
    void unitLengthBegins();
    void unitLengthPrefersAutoThenCustom();
    void keyBegins_data();
    void keyBegins();
    void keyShowsItsText();
    void keyAsksAboutOtherModes();

private:
    QTemporaryDir folder_;
    int files_ = 0;
    std::unique_ptr<Settings> settings_;
};

namespace {

const QVector<const char *> dials{"dlRegular", "dlTriplet", "dlQuintuplet", "dlSeptuplet", "dlNonuplet"};

void turn(RealignNotesDialog &dialog, const QVector<int> &values)
{
    for (int i = 0; i < dials.size(); ++i)
        child<QDial>(dialog, dials[i])->setValue(values[i]);
}

} // namespace

void TestEditorDialogs::realignBeginsAsTheSettingsSay()
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

void TestEditorDialogs::realignGrids_data()
{
    QTest::addColumn<QVector<int>>("values");
    QTest::addColumn<QVector<quint32>>("grids");
    QTest::newRow("finest") << QVector<int>{7, 6, 5, 5, 4} << QVector<quint32>{128, 96, 80, 112, 72};
    QTest::newRow("whole notes") << QVector<int>{0, 0, 0, 0, 0} << QVector<quint32>{1};
    QTest::newRow("some") << QVector<int>{2, 0, 1, 0, 2} << QVector<quint32>{4, 5, 18};
}

void TestEditorDialogs::realignGrids()
{
    QFETCH(QVector<int>, values);
    RealignNotesDialog dialog(*settings_);
    turn(dialog, values);
    QTEST(dialog.grids(), "grids");
}

void TestEditorDialogs::realignNamesEveryGrid()
{
    const QVector<QStringList> names{
        {QStringLiteral("Whole"), QStringLiteral("2nds"), QStringLiteral("4ths"), QStringLiteral("8ths"),
         QStringLiteral("16ths"), QStringLiteral("32nds"), QStringLiteral("64ths"), QStringLiteral("128ths")},
        {QStringLiteral("None"), QStringLiteral("3rds"), QStringLiteral("6ths"), QStringLiteral("12ths"),
         QStringLiteral("24ths"), QStringLiteral("48ths"), QStringLiteral("96ths")},
        {QStringLiteral("None"), QStringLiteral("5ths"), QStringLiteral("10ths"), QStringLiteral("20ths"),
         QStringLiteral("40ths"), QStringLiteral("80ths")},
        {QStringLiteral("None"), QStringLiteral("7ths"), QStringLiteral("14ths"), QStringLiteral("28ths"),
         QStringLiteral("56ths"), QStringLiteral("112ths")},
        {QStringLiteral("None"), QStringLiteral("9ths"), QStringLiteral("18ths"), QStringLiteral("36ths"),
         QStringLiteral("72nds")}};
    RealignNotesDialog dialog(*settings_);
    for (int i = 0; i < dials.size(); ++i) {
        for (int value = 0; value < names[i].size(); ++value) {
            turn(dialog, {3, 0, 0, 0, 0});
            child<QDial>(dialog, dials[i])->setValue(value);
            QVERIFY2(hasLabel(dialog, names[i][value]), qPrintable(names[i][value]));
        }
    }
}

void TestEditorDialogs::realignStoresOnAcceptOnly()
{
    RealignNotesDialog cancelled(*settings_);
    turn(cancelled, {1, 1, 1, 1, 1});
    button(cancelled, QDialogButtonBox::Cancel)->click();
    QVERIFY(!settings_->contains(Settings::RealignRegular));

    RealignNotesDialog accepted(*settings_);
    turn(accepted, {1, 2, 3, 4, 0});
    button(accepted, QDialogButtonBox::Ok)->click();
    QCOMPARE(accepted.result(), int(QDialog::Accepted));
    QCOMPARE(settings_->value(Settings::RealignRegular).toInt(), 1);
    QCOMPARE(settings_->value(Settings::RealignSeptuplets).toInt(), 4);
    QCOMPARE(settings_->value(Settings::RealignNonuplets).toInt(), 0);
}

void TestEditorDialogs::transposeGivesSemitones()
{
    TransposeDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Transpose"));
    QVERIFY(hasLabel(dialog, QStringLiteral("Transpose all notes")));
    QVERIFY(hasLabel(dialog, QStringLiteral("Notes that fall outside of the valid octave range after transposing will "
                                            "be removed!")));
    auto *const box = child<QSpinBox>(dialog, "spTranspose");
    QCOMPARE(box->suffix(), QStringLiteral("semitone(s)"));
    box->setValue(-100);
    QCOMPARE(dialog.semitones(), -48);
    box->setValue(100);
    QCOMPARE(dialog.semitones(), 48);
}

void TestEditorDialogs::unitLengthBegins_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("result");
    QTest::addColumn<bool>("isCustom");
    QTest::newRow("fixed") << QStringLiteral("1/16") << QStringLiteral("1/16") << false;
    QTest::newRow("finest") << QStringLiteral("1/128") << QStringLiteral("1/128") << false;
    QTest::newRow("whole") << QStringLiteral("1/1") << QStringLiteral("1/1") << false;
    QTest::newRow("bare") << QStringLiteral("1") << QStringLiteral("1/1") << false;
    QTest::newRow("custom") << QStringLiteral("3/8") << QStringLiteral("3/8") << true;
    QTest::newRow("not reduced") << QStringLiteral("2/8") << QStringLiteral("2/8") << true;
    QTest::newRow("none") << QString() << QStringLiteral("1/1") << false;
    QTest::newRow("zero") << QStringLiteral("1/0") << QStringLiteral("1/1") << false;
}

void TestEditorDialogs::unitLengthBegins()
{
    QFETCH(QString, value);
    UnitLengthDialog dialog;
    dialog.preset(value);
    QTEST(dialog.result(), "result");
    QTEST(child<QCheckBox>(dialog, "chkCustom")->isChecked(), "isCustom");
}

void TestEditorDialogs::unitLengthPrefersAutoThenCustom()
{
    UnitLengthDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Change Unit Length"));
    const auto *const fixed = child<QComboBox>(dialog, "cboUnitLength");
    QCOMPARE(fixed->count(), 8);
    QCOMPARE(fixed->itemText(7), QStringLiteral("1/128"));
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

void TestEditorDialogs::keyBegins_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("key");
    QTest::newRow("minor") << QStringLiteral("Cm") << QStringLiteral("Cm");
    QTest::newRow("lower case") << QStringLiteral("bbmin") << QStringLiteral("Bbm");
    QTest::newRow("mode") << QStringLiteral("F#lyd") << QStringLiteral("F#lyd");
    QTest::newRow("major") << QStringLiteral("Ebmaj") << QStringLiteral("Eb");
    QTest::newRow("no key") << QStringLiteral("?") << QStringLiteral("C");
}

void TestEditorDialogs::keyBegins()
{
    QFETCH(QString, value);
    AnsweringDialogs dialogs;
    KeyDialog dialog(dialogs);
    dialog.preset(value);
    QTEST(dialog.key(), "key");
}

void TestEditorDialogs::keyShowsItsText()
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

void TestEditorDialogs::keyAsksAboutOtherModes()
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

QTEST_MAIN(TestEditorDialogs)
#include "test_editor_dialogs.moc"
