// SPDX-License-Identifier: MIT
#include "pages/PaintedAccess.h"

#include "pages/ColoursPage.h"
#include "pages/PtzView.h"
#include "pages/ShareBar.h"

#include <QtCore/QLocale>
#include <QtWidgets/QAccessibleWidget>

namespace Client {
namespace {

constexpr double kPercent = 100;

class CShareAccess : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit CShareAccess(CShareBar *bar) : QAccessibleWidget(bar, QAccessible::ProgressBar) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Value)
            return QAccessibleWidget::text(kind);
        return QLocale().toString(currentValue().toInt()) + QLocale().percent();
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QVariant currentValue() const override
    {
        return qRound(kPercent * static_cast<CShareBar *>(widget())->Share());
    }
    void setCurrentValue(const QVariant & /*value*/) override {} // it only shows
    [[nodiscard]] QVariant maximumValue() const override { return int(kPercent); }
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }
};

// A picture, whose description says what it shows.
template <class Picture> class CPictureAccess : public QAccessibleWidget
{
public:
    explicit CPictureAccess(Picture *picture) : QAccessibleWidget(picture, QAccessible::Graphic) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Description)
            return static_cast<Picture *>(widget())->Text();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *NewAccess(const QString & /*class_name*/, QObject *object)
{
    if (auto *const bar = qobject_cast<CShareBar *>(object))
        return new CShareAccess(bar);
    if (auto *const view = qobject_cast<CPtzView *>(object))
        return new CPictureAccess<CPtzView>(view);
    if (auto *const colours = qobject_cast<CColoursPage *>(object))
        return new CPictureAccess<CColoursPage>(colours);
    return nullptr;
}

} // namespace

void InstallPaintedAccess()
{
    static const bool is_installed = [] {
        QAccessible::installFactory(NewAccess);
        return true;
    }();
    Q_UNUSED(is_installed)
}

} // namespace Client
