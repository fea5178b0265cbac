// manual_html DIR PAGE.md…: writes the pages of the manual as HTML, as the program itself shows them.
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextDocument>

#include <cstdio>

namespace {

QString titleOf(const QString &markdown)
{
    return markdown.section(u'\n', 0, 0).remove(QStringLiteral("# "));
}

void convert(const QString &page, const QDir &folder)
{
    QFile source(page);
    if (!source.open(QIODevice::ReadOnly))
        throw QStringLiteral("%1: %2").arg(page, source.errorString());
    const auto markdown = QString::fromUtf8(source.readAll());
    QTextDocument document;
    document.setMarkdown(markdown);
    document.setMetaInformation(QTextDocument::DocumentTitle, titleOf(markdown));
    QFile target(folder.filePath(QFileInfo(page).completeBaseName() + QStringLiteral(".html")));
    const auto html =
        document.toHtml()
            .replace(QStringLiteral("href=\"../"), QStringLiteral("href=\"")) // all are in one folder here
            .replace(QStringLiteral(".md\""), QStringLiteral(".html\""))
            .toUtf8();
    if (!target.open(QIODevice::WriteOnly) || target.write(html) != html.size())
        throw QStringLiteral("%1: %2").arg(target.fileName(), target.errorString());
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv); // has the fonts
    const auto words = QCoreApplication::arguments();
    try {
        QDir().mkpath(words.value(1));
        for (const auto &page : words.mid(2))
            convert(page, QDir(words.value(1)));
        return 0;
    } catch (const QString &error) {
        std::fprintf(stderr, "manual_html: %s\n", qUtf8Printable(error));
        return 1;
    }
}
