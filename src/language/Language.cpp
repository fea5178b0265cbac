#include "language/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>

namespace {

bool isChoice(const QString &code)
{
    const auto choices = Language::choices();
    return std::any_of(choices.begin(), choices.end(), [&](const auto &choice) { return choice.code == code; });
}

// The user's own region when its language was chosen, which may write numbers in its own way.
QLocale localeOf(const QString &code)
{
    const QLocale chosen(code);
    return chosen.language() == QLocale::system().language() ? QLocale::system() : chosen;
}

QString qtFolder()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

// Buttons of standard dialogs stay English when Qt comes without its translations.
void install(const QString &file, const QString &folder)
{
    auto *const translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(file, folder))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

QVector<Language::Choice> Language::choices()
{
    return {{QStringLiteral("en"), QStringLiteral("English")},
            {QStringLiteral("de"), QStringLiteral("Deutsch")},
            {QStringLiteral("fr"), QStringLiteral("Français")}};
}

QString Language::best(const QStringList &systemLanguages)
{
    for (const auto &name : systemLanguages) {
        const auto code = name.left(2);
        if (isChoice(code) && (name.size() == 2 || !name[2].isLetter()))
            return code;
    }
    return QStringLiteral("en");
}

void Language::start(const QString &code)
{
    const bool isChosen = isChoice(code);
    const auto language = isChosen ? code : best(QLocale::system().uiLanguages());
    QLocale::setDefault(isChosen ? localeOf(code) : QLocale::system());
    install(QStringLiteral("qtbase_") + language, qtFolder());
    install(QStringLiteral("kelvarion-composer_") + language, QStringLiteral(":/translations"));
}
