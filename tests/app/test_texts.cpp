// Every text that can be seen is translated, has room, and is reached by a letter of its own in its menu.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/recovery/RecoveryDialog.h"
#include "language/Language.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ManualPage.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/preferences/SoundPage.h"
#include "ui/transform/KeyDialog.h"
#include "ui/transform/RealignNotesDialog.h"
#include "ui/transform/TransposeDialog.h"
#include "ui/transform/UnitLengthDialog.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QSpinBox>
#include <QTranslator>
#include <QTreeView>

namespace {

constexpr QChar first = u'⟦';
constexpr QChar last = u'⟧';

// Makes of every text one that is known and two fifths longer: "⟦Play~~⟧".
class PseudoTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        const auto text = QString::fromUtf8(source);
        if (text.startsWith(u"QT_") || text.contains(u"(*.")) // no text; a filter of files
            return {};
        return first + text + QString(text.size() * 2 / 5, u'~') + last;
    }
};

// A German translator speaks through the program's own file.
std::unique_ptr<QTranslator> translatorOf(const QString &language)
{
    if (language.isEmpty())
        return std::make_unique<PseudoTranslator>();
    auto translator = std::make_unique<QTranslator>();
    return translator->load(QStringLiteral(":/translations/kelvarion-composer_") + language) ? std::move(translator)
                                                                                             : nullptr;
}

// Opens the windows and dialogs one after the other, and looks at each.
class Walk
{
public:
    using Look = std::function<void(QWidget &)>;

    explicit Walk(const Look &look) : look_(look), fixture_(demoGame) {}

    bool run()
    {
        if (!fixture_.waitUntilLoaded())
            return false;
        look_(fixture_.window());
        fixture_.window().openFiles({song()});
        if (!QTest::qWaitFor([this] { return fixture_.tracks().song().size() == 2; }, 10'000))
            return false;
        for (const auto *const dock : {"dockHistory", "dockFindings", "dockImportReport"})
            fixture_.child<QDockWidget>(dock)->show();
        fixture_.tracks().setStartOffset({fixture_.tracks().ids().first()}, 20);
        look_(fixture_.window());
        look_(*fixture_.row(0)->contextMenu());
        lookAtEditor();
        lookAtOtherDialogs();
        return lookAtDialogsOfCommands();
    }

private:
    QString song()
    {
        using namespace MidiBytes;
        const auto part = [](int channel) {
            return noteOn(0, 60, 90, channel) + noteOff(96, 60, channel) + noteOn(0, 20, 90, channel) +
                   noteOff(96, 20, channel);
        };
        return fixture_.write("song.mid", file({part(0) + part(1) + endOfTrack()}));
    }

    void lookAtEditor()
    {
        fixture_.inRow<QAbstractButton>(0, "btnEdit")->click();
        auto &editor = *fixture_.window().findChild<AbcEditorWindow *>();
        for (const auto *const action : {"actionShowRoll", "actionShowProblems", "actionReplace"})
            editor.findChild<QAction *>(QLatin1String(action))->trigger();
        look_(editor);
    }

    bool lookAtDialogsOfCommands()
    {
        fixture_.settings().setValue(Settings::ChooseParts, true);
        fixture_.dialogs().files = QStringList(song());
        fixture_.dialogs().answerOrCancel = Dialogs::Answer::No;
        fixture_.dialogs().inDialog = [this](QDialog &dialog) {
            look_(dialog);
            dialog.reject();
        };
        for (const auto *const action :
             {"actionImport_MIDI", "actionImport_Again", "actionExport_Audio", "actionRehearsal_Offsets",
              "actionArrange", "actionTranspose_Song", "actionOne_Tempo"})
            fixture_.trigger(action);
        return QTest::qWaitFor([this] { return !fixture_.window().isLoading(); });
    }

    void lookAtOtherDialogs()
    {
        const auto *const model = fixture_.inRow<InstrumentComboBox>(0, "cboInstrument")->model();
        PreferencesDialog preferences(fixture_.settings(), fixture_.dialogs(), SoundDevices{*fixture_.output},
                                      static_cast<const InstrumentSetModel *>(model)->instruments());
        auto *const pages = preferences.findChild<QListWidget *>();
        for (int row = 0; row < pages->count(); ++row) {
            pages->setCurrentRow(row);
            look_(preferences);
        }
        KeyDialog key(fixture_.dialogs());
        RealignNotesDialog realign(fixture_.settings());
        TransposeDialog transpose;
        UnitLengthDialog unitLength;
        RecoveryDialog recovery(RecoveryDialog::Occasion::Command, &fixture_.window());
        for (QWidget *const dialog :
             std::initializer_list<QWidget *>{&key, &realign, &transpose, &unitLength, &recovery})
            look_(*dialog);
    }

    const Look look_;
    WindowFixture fixture_;
};

bool hasWords(const QString &text)
{
    static const QRegularExpression word(QStringLiteral("\\p{L}{3}"));
    return text.contains(word);
}

// Their names are the game's.
bool listsInstruments(const QComboBox &box)
{
    return qobject_cast<const InstrumentComboBox *>(&box) || box.objectName() == u"cboProgramInstrument";
}

// What the widget shows and tells of itself, as far as it is words of the program.
QStringList textsOf(const QWidget &widget)
{
    QStringList texts{widget.toolTip(), widget.statusTip(), widget.accessibleDescription()};
    if (widget.isWindow())
        texts.append(widget.windowTitle());
    for (const auto *const action : widget.actions())
        texts += QStringList{action->text(), action->toolTip(), action->statusTip()};
    if (const auto *const label = qobject_cast<const QLabel *>(&widget))
        texts.append(label->text());
    else if (const auto *const button = qobject_cast<const QAbstractButton *>(&widget))
        texts.append(button->text());
    else if (const auto *const group = qobject_cast<const QGroupBox *>(&widget))
        texts.append(group->title());
    else if (const auto *const line = qobject_cast<const QLineEdit *>(&widget))
        texts.append(line->placeholderText());
    else if (const auto *const number = qobject_cast<const QSpinBox *>(&widget))
        texts += QStringList{number->suffix(), number->prefix(), number->specialValueText()};
    else if (const auto *const list = qobject_cast<const QListWidget *>(&widget))
        for (int row = 0; row < list->count(); ++row)
            texts.append(list->item(row)->text());
    else if (const auto *const header = qobject_cast<const QHeaderView *>(&widget))
        for (int section = 0; header->orientation() == Qt::Horizontal && section < header->count(); ++section)
            texts.append(header->model()->headerData(section, Qt::Horizontal).toString());
    else if (const auto *const box = qobject_cast<const QComboBox *>(&widget))
        for (int row = 0; row < box->count() && !listsInstruments(*box); ++row)
            texts.append(box->itemText(row));
    return texts;
}

QString nameOf(const QWidget &widget)
{
    return QStringLiteral("%1 %2 in %3")
        .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(),
             QLatin1String(widget.window()->metaObject()->className()));
}

// Whether a text has less room than it asks for.
bool isCut(const QWidget &widget)
{
    const auto *const label = qobject_cast<const QLabel *>(&widget);
    const auto *const button = qobject_cast<const QAbstractButton *>(&widget);
    if (!widget.isVisible() || widget.inherits("TitleLabel") || // which cuts its text itself
        !((label && hasWords(label->text())) || (button && hasWords(button->text()))))
        return false;
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    return widget.sizeHint().width() > widget.width();
}

// Windows and dialogs open a page of the manual with F1, but for the main window, which opens the contents.
bool hasManualPage(const QWidget &window)
{
    const auto page = manualPage(window);
    return page.isEmpty() ? !qobject_cast<const QDialog *>(&window)
                          : QFile::exists(QStringLiteral(":/docs/manual/") + page);
}

// Those that the same letter triggers.
QSet<QString> rivalsIn(const QWidget &menu)
{
    QSet<QString> rivals;
    QHash<QString, QString> owners;
    for (const auto *const action : menu.actions()) {
        const auto letter = QKeySequence::mnemonic(action->text()).toString();
        if (!letter.isEmpty() && owners.contains(letter))
            rivals.insert(QStringLiteral("%1: %2 and %3").arg(nameOf(menu), owners[letter], action->text()));
        owners.insert(letter, action->text());
    }
    return rivals;
}

QString sorted(const QSet<QString> &lines)
{
    auto list = lines.values();
    list.sort();
    return list.join(u'\n');
}

template<typename Do>
void forEachIn(QWidget &window, const Do &tell)
{
    tell(window);
    for (auto *const child : window.findChildren<QWidget *>())
        tell(*child);
}

} // namespace

class TestTexts : public QObject
{
    Q_OBJECT

private slots:
    void areTranslated()
    {
        // Names: of the program, of what is in the song and in the game, of languages, formats and notes.
        static const QRegularExpression names(QStringLiteral("^(Kelvarion( Composer)?|FMOD|/.*|Untitled|song.*|Track "
                                                             "\\d.*|English|Deutsch|Français|.*piano.*|ABC|MIDI|"
                                                             "(WAV|FLAC|Ogg|Opus|MP3).*|.*\\.mid)$"),
                                              QRegularExpression::CaseInsensitiveOption);
        const auto translator = translatorOf({});
        QCoreApplication::installTranslator(translator.get());
        QSet<QString> untranslated;
        int seen = 0;
        const bool isSeen = Walk([&](QWidget &window) {
                                forEachIn(window, [&](const QWidget &widget) {
                                    for (const auto &text : textsOf(widget)) {
                                        seen += hasWords(text);
                                        if (hasWords(text) && !text.contains(first) && !names.match(text).hasMatch())
                                            untranslated.insert(nameOf(widget) + QStringLiteral(": ") + text);
                                    }
                                });
                            }).run();
        QCoreApplication::removeTranslator(translator.get());
        QVERIFY(isSeen);
        QVERIFY2(seen > 500, qPrintable(QString::number(seen)));
        QVERIFY2(untranslated.isEmpty(), qPrintable(sorted(untranslated)));
    }

    void fitTheirPlaces_data()
    {
        const Rows<QString> row("language");
        row("two fifths longer", "");
        row("English", "en");
        row("German", "de");
        row("French", "fr");
    }

    void fitTheirPlaces()
    {
        QFETCH(QString, language);
        const auto translator = translatorOf(language);
        QVERIFY(translator);
        QCoreApplication::installTranslator(translator.get());
        const bool translates = language == u"de" || language == u"fr"; // English letters are as they are
        QSet<QString> misfits;
        const bool isSeen =
            Walk([&](QWidget &window) {
                window.show();
                QCoreApplication::processEvents();
                if (!hasManualPage(window))
                    misfits.insert(nameOf(window) + QStringLiteral(" has no page of the manual"));
                forEachIn(window, [&](const QWidget &widget) {
                    if (isCut(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" is cut: ") + textsOf(widget).last());
                    if (translates && (widget.inherits("QMenu") || widget.inherits("QMenuBar")))
                        misfits += rivalsIn(widget);
                });
            }).run();
        QCoreApplication::removeTranslator(translator.get());
        QVERIFY(isSeen);
        QVERIFY2(misfits.isEmpty(), qPrintable(sorted(misfits)));
    }
};

QTEST_MAIN(TestTexts)
#include "test_texts.moc"
