#include "ui/editor/RewriteQuestion.h"

#include "edit/plan/RewriteLoss.h"
#include "ui/Dialogs.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct Question
{
    Q_DECLARE_TR_FUNCTIONS(RewriteQuestion)

public:
    static QString losses(const RewriteLoss &loss);
    static QString text(const RewriteLoss &loss, const QString &otherwise);
};

QString Question::losses(const RewriteLoss &loss)
{
    QStringList lost;
    const auto add = [&](int count, const QString &words) {
        if (count > 0)
            lost += words;
    };
    add(loss.barLines, tr("%n bar line(s)", nullptr, loss.barLines));
    add(loss.chordSymbols, tr("%n chord symbol(s) and text(s) above the staff", nullptr, loss.chordSymbols));
    add(loss.decorations, tr("%n decoration(s), grace notes and slurs", nullptr, loss.decorations));
    add(loss.comments, tr("%n comment(s)", nullptr, loss.comments));
    return lost.isEmpty() ? tr("its line breaks and its own way of writing notes") : lost.join(QStringLiteral(", "));
}

QString Question::text(const RewriteLoss &loss, const QString &otherwise)
{
    const auto question = tr("The whole text must be written anew for this change. The notes stay as they are, but the "
                             "text loses: %1.\n\nWrite it anew?")
                              .arg(losses(loss));
    return otherwise.isEmpty() ? question : question + u' ' + otherwise;
}

} // namespace

bool mayRewriteText(Dialogs &dialogs, QWidget *parent, const QString &title, const RewriteLoss &loss,
                    const QString &otherwise)
{
    return dialogs.ask(parent, title, Question::text(loss, otherwise)) == Dialogs::Answer::Yes;
}
