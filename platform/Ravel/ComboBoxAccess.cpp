// SPDX-License-Identifier: MIT
#include "Ravel/ComboBoxAccess.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

namespace Ravel {
namespace {

// On Linux, Qt 5 names a combo box after its current text, and only a label with it as buddy can
// name it. Here the accessible name comes first.
class CComboBoxAccess : public QAccessibleWidget
{
public:
    explicit CComboBoxAccess(QComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return Box().isEditable() ? Box().lineEdit()->text() : Box().currentText();
        return QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = Box().view()->isVisible();
        state.editable = Box().isEditable() && !Box().lineEdit()->isReadOnly();
        return state;
    }

    [[nodiscard]] int childCount() const override { return Box().isEditable() ? 2 : 1; }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(Box().view());
        return index == 1 ? QAccessible::queryAccessibleInterface(Box().lineEdit()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override
    {
        if (child->object() == Box().view())
            return 0;
        return Box().isEditable() && child->object() == Box().lineEdit() ? 1 : -1;
    }

    [[nodiscard]] QStringList actionNames() const override { return {showMenuAction()}; }
    void doAction(const QString &name) override
    {
        if (name != showMenuAction() || !Box().isEnabled())
            return;
        if (Box().view()->isVisible())
            Box().hidePopup();
        else
            Box().showPopup();
    }

private:
    [[nodiscard]] QComboBox &Box() const { return *static_cast<QComboBox *>(widget()); }
};

QAccessibleInterface *NewAccess(const QString & /*class_name*/, QObject *object)
{
    const bool is_ours = object && object->inherits("Ravel::CComboBox");
    return is_ours ? new CComboBoxAccess(static_cast<QComboBox *>(object)) : nullptr;
}

} // namespace

void InstallComboBoxAccess()
{
    static const bool is_installed = [] {
        QAccessible::installFactory(NewAccess);
        return true;
    }();
    Q_UNUSED(is_installed)
}

} // namespace Ravel
