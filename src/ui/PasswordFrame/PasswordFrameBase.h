// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtWidgets/QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QPixmap;
class QPushButton;
QT_END_NAMESPACE

namespace Ravel {
class CFrame;
class CLabel;
class CPasswordLineEdit;
} // namespace Ravel

namespace Vantor {

struct CPasswordFrameBaseDataPtr;

/// \brief What the two password frames share: an entry with an icon, a button that shows and hides
/// what is typed, a tip below the frame while Caps Lock is on, and room for an error text.
///
/// The object names of its children are listed in docs/styling.md. The button's name is its state:
/// it is not to be looked up by it. Caps Lock is asked of Nim::Base::OS::IsCapsLockOn() on focus
/// and on the key, not in between.
class VANTOR_EXPORT CPasswordFrameBase : public QWidget
{
    Q_OBJECT

public:
    ~CPasswordFrameBase() override;

    /// \brief A copy of the password, for the caller to keep no longer than needed.
    [[nodiscard]] QString GetPasswordLineEditText() const;
    [[nodiscard]] bool IsPasswordEmpty() const;
    [[nodiscard]] Ravel::CPasswordLineEdit *GetPasswordLineEdit() const;
    [[nodiscard]] Ravel::CFrame *GetBaseFrame() const;
    [[nodiscard]] Ravel::CLabel *GetLabel() const;
    [[nodiscard]] QPushButton *GetSwitchPassBtn() const;

    /// \brief Empty the entry and forget what could be undone.
    void ClearLineEdit();
    void HideLabel();
    /// \brief Hide the Caps Lock tip, if it is shown.
    void HideTipFrame();
    /// \brief Put the Caps Lock tip, if it is shown, where the frame is now. For hosts whose window
    /// moves.
    void MoveTipFrame();
    void OnSwitchPassWordShow();
    void RetranslateUI();
    /// \brief Enable or disable entry and icon; a password that is shown is hidden again. The
    /// button stays as it is.
    void SetEnabled(bool enable);
    /// \brief Show \a text below the entry; empty: nothing.
    void SetErrorTip(const QString &text);
    /// \brief Give the keys to the entry.
    void SetFocus();
    /// \param height of the whole frame at most, in pixels.
    void SetMaxHeight(int height);
    /// \brief Let the Caps Lock tip belong to \a window, which takes it over; null: to this frame.
    void SetParentWindow(QWidget *window);
    /// \brief Show the password, or hide it.
    void SetPassWordState(bool is_visible);
    void SetPasswordText(const QString &text);
    /// \brief Another icon.
    void SetPixmap(QPixmap &pixmap);
    /// \brief Whether there is a password. When not, the entry gets the focus and shows \a tip,
    /// which is only read.
    bool PasswordValidCheck(QString &tip);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void SignalLienEditTextChanged(const QString &text);
    /// The entry lost the focus.
    void SignalFousOut(const QString &text);

protected:
    /// \param edit becomes a child of the frame.
    CPasswordFrameBase(Ravel::CPasswordLineEdit *edit, QWidget *parent);

    void HideSpacer();

    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnLineEditFocusIn();
    void OnLineEditFousOut(const QString &text);
    void OnTextEdit();

private:
    void BuildForm();
    void BuildTip();
    void CheckCapsLock();
    void CheckCapsLockKey(const QKeyEvent &event);
    [[nodiscard]] QPoint TipPlace() const;

    const std::unique_ptr<CPasswordFrameBaseDataPtr> d_ptr_;
};

} // namespace Vantor
