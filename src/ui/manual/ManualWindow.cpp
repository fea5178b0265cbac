#include "ui/manual/ManualWindow.h"

#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"
#include "ui/manual/ManualBrowser.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

const auto contents = QStringLiteral("index.md");

} // namespace

ManualWindow::ManualWindow(QWidget *parent)
    : QWidget(parent, Qt::Window), browser_(new ManualBrowser), search_(new QLineEdit)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Manual - Kelvarion Composer"));
    browser_->setObjectName(QStringLiteral("manualPages"));
    browser_->setAccessibleName(tr("Manual"));
    browser_->setOpenLinks(true);
    browser_->setOpenExternalLinks(true);
    browser_->document()->setDocumentMargin(fontMetrics().height());

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    makeToolBar();
    layout->addWidget(browser_);
    constexpr QSize comfortable(960, 680);
    resize(comfortable);
    fitToScreen(*this);
}

void ManualWindow::makeToolBar()
{
    auto *const bar = new QToolBar;
    auto *const back = bar->addAction(tr("Back"), browser_, &QTextBrowser::backward);
    back->setShortcut(QKeySequence::Back);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    bar->addAction(tr("Contents"), this, [this] { showPage(contents); });
    auto *const close = new QAction(this);
    close->setShortcuts({QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)});
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);

    search_->setObjectName(QStringLiteral("manualSearch"));
    search_->setPlaceholderText(tr("Find in this page"));
    search_->setAccessibleName(tr("Find in this page"));
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::returnPressed, this, [this] { find(search_->text()); });
    bar->addSeparator();
    bar->addWidget(search_);
    layout()->addWidget(bar);
}

void ManualWindow::showPage(const QString &name)
{
    browser_->setSource(QUrl(QStringLiteral("qrc:/docs/manual/") + name));
}

// From the start again behind the last place.
void ManualWindow::find(const QString &text)
{
    if (browser_->find(text))
        return;
    browser_->moveCursor(QTextCursor::Start);
    browser_->find(text);
}

void openManualFor(QWidget *widget)
{
    const auto page = widget != nullptr ? manualPage(*widget) : QString();
    // A child, since a dialog lets nobody else be used.
    auto *const manual = new ManualWindow(widget != nullptr ? widget->window() : nullptr);
    manual->showPage(page.isEmpty() ? contents : page);
    manual->show();
}

bool ManualKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent *>(event)->matches(QKeySequence::HelpContents))
        return false;
    auto *const widget = qobject_cast<QWidget *>(watched);
    if (widget == nullptr)
        return false;
    openManualFor(widget);
    return true;
}
