// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>
#include <Ravel/ComboBox.h>

#include <QtCore/QPersistentModelIndex>

namespace Ravel {

/// \brief A combo box whose rows are ticked ("Ravel--CLocationComboBox" in a theme).
///
/// The popup stays open while rows are ticked by click, Space or Return; Escape, F4, Tab or a click
/// elsewhere closes it. The field shows a text that the user cannot edit. There is never a current
/// row: the choice is the check state (Qt::CheckStateRole) of the rows. Space, F4, Up and Down open
/// the popup.
class VANTOR_PLATFORM_EXPORT CLocationComboBox : public CComboBox
{
    Q_OBJECT

public:
    explicit CLocationComboBox(QWidget *parent = nullptr);
    ~CLocationComboBox() override;

    void showPopup() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// \brief The user chose the row \a index of the popup. Toggles its check state.
    virtual void ToggleRow(const QModelIndex &index);

    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void PressArrow(const QMouseEvent &event);
    [[nodiscard]] bool OnPopupMouse(QEvent &event);
    [[nodiscard]] bool OnPopupKey(QKeyEvent &event);

    QPersistentModelIndex pressed_row_;
};

} // namespace Ravel
