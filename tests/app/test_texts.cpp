// Every text that can be seen is translated, has room, and is reached by a letter of its own in its menu.
#include "app/ExampleSongs.h"
#include "app/WindowWalk.h"
#include "language/Language.h"
#include "support/Rows.h"
#include "ui/InstrumentComboBox.h"
#include "ui/ManualPage.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
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
    if (widget.hasHeightForWidth())
        return widget.heightForWidth(widget.width()) > widget.height();
    return widget.sizeHint().width() > widget.width();
}

// Rows of the main window, which need their width, do so.
bool scrollsSideways(const QWidget &widget)
{
    const auto *const area = qobject_cast<const QScrollArea *>(&widget);
    return area && area->isVisible() && qobject_cast<const QDialog *>(widget.window()) &&
           area->horizontalScrollBar()->maximum() > 0;
}

// Windows and dialogs open a page of the manual with F1, but for the main window, which opens the contents.
bool hasManualPage(const QWidget &window)
{
    const auto page = manualPage(window);
    return page.isEmpty() ? !qobject_cast<const QDialog *>(&window)
                          : QFile::exists(QStringLiteral(":/docs/manual/") + page);
}

bool isIn(const QLayout &layout, const QWidget &widget)
{
    for (int i = 0; i < layout.count(); ++i) {
        if (layout.itemAt(i)->widget() == &widget)
            return true;
    }
    return false;
}

// Whether no layout gives it a place beside the others.
bool isLost(const QWidget &widget)
{
    const auto *const parent = widget.parentWidget();
    if (!widget.isVisible() || widget.isWindow() || !parent->layout() || widget.inherits("QSizeGrip") ||
        parent->inherits("QMainWindow") || widget.objectName().startsWith(QStringLiteral("qt_")))
        return false;
    const auto layouts = parent->findChildren<QLayout *>();
    return std::none_of(layouts.begin(), layouts.end(),
                        [&](const auto *layout) { return layout->parentWidget() == parent && isIn(*layout, widget); });
}

// A sentence that makes its dialog as wide as it is long.
bool isUnbroken(const QWidget &widget)
{
    constexpr int longest = 40;
    const auto *const label = qobject_cast<const QLabel *>(&widget);
    return label && qobject_cast<const QDialog *>(widget.window()) && !label->wordWrap() &&
           label->text().size() > longest;
}

// A table whose columns have numbers instead of titles.
bool isUntitled(const QWidget &widget)
{
    const auto *const header = qobject_cast<const QHeaderView *>(&widget);
    return header && header->isVisible() && header->orientation() == Qt::Horizontal && header->count() > 1 &&
           header->model()->headerData(1, Qt::Horizontal).toString() == u"2";
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
        const bool isSeen = WindowWalk(demoGame, [&](QWidget &window) {
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
        QSet<QString> misfits;
        const bool isSeen =
            WindowWalk(demoGame, [&](QWidget &window) {
                window.show();
                QCoreApplication::processEvents();
                if (!hasManualPage(window))
                    misfits.insert(nameOf(window) + QStringLiteral(" has no page of the manual"));
                forEachIn(window, [&](const QWidget &widget) {
                    if (isLost(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" is in no layout"));
                    if (!language.isEmpty() && scrollsSideways(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" scrolls sideways"));
                    if (language == u"en" && isUnbroken(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" is one line: ") + textsOf(widget).last());
                    if (qobject_cast<const QDialog *>(&widget) && widget.windowTitle().isEmpty())
                        misfits.insert(nameOf(widget) + QStringLiteral(" has no title"));
                    if (isUntitled(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" has no titles"));
                    if (isCut(widget))
                        misfits.insert(nameOf(widget) + QStringLiteral(" is cut: ") + textsOf(widget).last());
                    if (!language.isEmpty() && (widget.inherits("QMenu") || widget.inherits("QMenuBar")))
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
