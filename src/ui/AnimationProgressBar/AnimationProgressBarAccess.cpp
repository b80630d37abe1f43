// SPDX-License-Identifier: MIT
#include "common/Translate.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"

#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QLabel>

namespace Vantor {
namespace {

// The years 1 to 9999, in seconds since 1970.
constexpr qint64 kFirstSecond = -62135596800;
constexpr qint64 kLastSecond = 253402300799;

} // namespace

class CTimeLineAccess : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit CTimeLineAccess(CAnimationProgressBar *bar)
        : QAccessibleWidget(bar, QAccessible::Slider)
    {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) {
            const auto *const label = Bar().findChild<QLabel *>(QStringLiteral("CalendarLabel"),
                                                                Qt::FindDirectChildrenOnly);
            return label ? label->text() : QString();
        }
        QString given = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Name && given.isEmpty())
            return Translate(QStringLiteral("Time line"), "Vantor::CAnimationProgressBar");
        if (kind == QAccessible::Description && given.isEmpty())
            return UnderCursorLine();
        return given;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QVariant currentValue() const override { return Bar().GetCurrentUTCTime(); }
    void setCurrentValue(const QVariant &value) override
    {
        if (!Bar().IsPressed() && !Bar().IsMoving())
            Bar().SlideByUser(qBound(kFirstSecond, value.toLongLong(), kLastSecond) * 1000);
    }
    [[nodiscard]] QVariant maximumValue() const override { return kLastSecond; }
    [[nodiscard]] QVariant minimumValue() const override { return kFirstSecond; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

private:
    // The tip of a recording, but not of a time alone, because that is the value.
    [[nodiscard]] QString UnderCursorLine() const
    {
        const QString tip = Bar().TipAtCursorLine();
        return tip == Bar().CAnimationProgressBar::TipAtCursorLine()
                   ? QString()
                   : QTextDocumentFragment::fromHtml(tip).toPlainText();
    }
    [[nodiscard]] CAnimationProgressBar &Bar() const
    {
        return *static_cast<CAnimationProgressBar *>(widget());
    }
};

namespace {

QAccessibleInterface *NewAccess(const QString & /*class_name*/, QObject *object)
{
    auto *const bar = qobject_cast<CAnimationProgressBar *>(object);
    return bar ? new CTimeLineAccess(bar) : nullptr;
}

} // namespace

void InstallTimeLineAccess()
{
    static const bool is_installed = [] {
        QAccessible::installFactory(NewAccess);
        return true;
    }();
    Q_UNUSED(is_installed)
}

void NotifyTimeLineAccess(CAnimationProgressBar &bar)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(&bar, bar.GetCurrentUTCTime());
    QAccessible::updateAccessibility(&event);
}

} // namespace Vantor
