#include "ui/SpokenWidget.h"

#include "ui/InstrumentComboBox.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeySequenceEdit>
#include <QLineEdit>

#include <algorithm>

namespace {

class SpokenInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    SpokenInterface(QWidget *widget, const SpokenWidget &spoken) : QAccessibleWidget(widget, spoken.spokenRole()) {}

    QString text(QAccessible::Text kind) const override
    {
        const auto *const asked = spoken();
        if (asked && kind == QAccessible::Value)
            return asked->spokenValue();
        if (asked && kind == QAccessible::Description && widget()->accessibleDescription().isEmpty())
            return asked->spokenDescription();
        return QAccessibleWidget::text(kind);
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface && spoken() && spoken()->spokenRange())
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return range().value; }
    void setCurrentValue(const QVariant &value) override
    {
        const auto bounds = range();
        if (auto *const asked = spoken())
            asked->setSpokenValue(std::clamp(value.toDouble(), bounds.least, std::max(bounds.least, bounds.most)));
    }
    QVariant minimumValue() const override { return range().least; }
    QVariant maximumValue() const override { return range().most; }
    QVariant minimumStepSize() const override { return range().step; }

private:
    // None while the widget is being destroyed.
    SpokenWidget *spoken() const { return dynamic_cast<SpokenWidget *>(object()); }
    SpokenWidget::Range range() const
    {
        return (spoken() ? spoken()->spokenRange() : std::nullopt).value_or(SpokenWidget::Range{});
    }
};

class ComboInterface : public QAccessibleWidget
{
public:
    explicit ComboInterface(QComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox)
    {
        QObject::connect(box, qOverload<int>(&QComboBox::currentIndexChanged), box, [box] {
            QAccessibleEvent event(box, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&event);
        });
    }

    // The chosen text is the description, too: it is all that D-Bus carries of them.
    QString text(QAccessible::Text kind) const override
    {
        const auto own = kind == QAccessible::Value ? QString() : QAccessibleWidget::text(kind);
        const bool isWanted = kind == QAccessible::Value || (kind == QAccessible::Description && own.isEmpty());
        return isWanted ? chosen() : own;
    }

    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.editable = box().isEditable();
        return state;
    }

    // As Qt's own have them.
    int childCount() const override { return box().isEditable() ? 2 : 1; }
    QAccessibleInterface *child(int index) const override
    {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(box().view());
        return index == 1 && box().isEditable() ? QAccessible::queryAccessibleInterface(box().lineEdit()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (child->object() == box().view())
            return 0;
        return child->object() == box().lineEdit() ? 1 : -1;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString &name) override
    {
        if (name == showMenuAction())
            box().view()->isVisible() ? box().hidePopup() : box().showPopup();
        else if (name == increaseAction())
            choose(box().currentIndex() + 1);
        else if (name == decreaseAction())
            choose(box().currentIndex() - 1);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QComboBox &box() const { return *static_cast<QComboBox *>(widget()); }

    QString chosen() const
    {
        const auto *const instruments = qobject_cast<const InstrumentComboBox *>(&box());
        const auto text = instruments ? instruments->shownText() : box().currentText();
        return text.isEmpty() ? QCoreApplication::translate("SpokenWidget", "nothing chosen") : text;
    }

    // As if the user had chosen it.
    void choose(int index)
    {
        if (index < 0 || index >= box().count() || !box().isEnabled())
            return;
        box().setCurrentIndex(index);
        emit box().activated(index);
    }
};

class KeyInterface : public QAccessibleWidget
{
public:
    explicit KeyInterface(QKeySequenceEdit *edit) : QAccessibleWidget(edit, QAccessible::HotkeyField) {}

    QString text(QAccessible::Text kind) const override
    {
        const auto &edit = *static_cast<const QKeySequenceEdit *>(object());
        return kind == QAccessible::Value ? edit.keySequence().toString(QKeySequence::NativeText)
                                          : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *interfaceFor(const QString &className, QObject *object)
{
    auto *const widget = qobject_cast<QWidget *>(object);
    if (auto *const spoken = dynamic_cast<SpokenWidget *>(object); spoken && widget)
        return new SpokenInterface(widget, *spoken);
    if (className == QLatin1String("QComboBox"))
        return new ComboInterface(static_cast<QComboBox *>(widget));
    if (className == QLatin1String("QKeySequenceEdit"))
        return new KeyInterface(static_cast<QKeySequenceEdit *>(widget));
    if (className == QLatin1String("QScrollArea")) // Qt has no role for it
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    return nullptr;
}

} // namespace

void speakWidgets()
{
    QAccessible::installFactory(interfaceFor);
}
