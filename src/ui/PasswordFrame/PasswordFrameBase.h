// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/SecretText.h>
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

/// \brief The base of both password frames: an entry with an icon, a button that shows and hides
/// the password, a tip below the frame while Caps Lock is on, and an error text.
///
/// docs/styling.md lists the object names of the children. Do not look up the button by its name,
/// because the name changes with its state. Nim::Base::OS::IsCapsLockOn() is asked on focus and on
/// the key, not in between. The tip follows the frame and its window.
class VANTOR_EXPORT CPasswordFrameBase : public QWidget
{
    Q_OBJECT

public:
    ~CPasswordFrameBase() override;

    /// \brief A copy of the password. Do not keep it longer than necessary.
    [[nodiscard]] QString GetPasswordLineEditText() const;
    /// \brief The password as UTF-8 in memory that is overwritten before it is given up.
    [[nodiscard]] Nim::Base::SecretText GetSecretText() const;
    /// \brief Whether nothing was typed; blanks count as a password.
    [[nodiscard]] bool IsPasswordEmpty() const;
    /// \brief The entry, a child of the frame.
    [[nodiscard]] Ravel::CPasswordLineEdit *GetPasswordLineEdit() const;
    /// \brief The box around icon, entry and button, a child of the frame.
    [[nodiscard]] Ravel::CFrame *GetBaseFrame() const;
    /// \brief The icon before the entry, a child of the frame.
    [[nodiscard]] Ravel::CLabel *GetLabel() const;
    /// \brief The button that shows and hides the password, a child of the frame.
    [[nodiscard]] QPushButton *GetSwitchPassBtn() const;

    /// \brief Empty the entry, so that nothing can be undone, and overwrite the password in memory,
    /// unless a copy from GetPasswordLineEditText() still shares it.
    void ClearLineEdit();
    /// \brief Hide the icon; nothing here shows it again.
    void HideLabel();
    /// \brief Hide the Caps Lock tip, if it is shown.
    void HideTipFrame();
    /// \brief Move the Caps Lock tip, if it is shown, below the frame. Called on each move and
    /// resize of the frame, its parents and its window.
    void MoveTipFrame();
    /// \brief Show the password if it is hidden, and hide it if it is shown.
    void OnSwitchPassWordShow();
    /// \brief Set all texts in the present language. Called on each change of the language.
    void RetranslateUI();
    /// \brief Enable or disable the entry and the icon. Disabling hides a password that is shown.
    /// The button stays enabled.
    void SetEnabled(bool enable);
    /// \brief Show \a text below the entry, as plain text; an empty text hides the label.
    void SetErrorTip(const QString &text);
    /// \brief Give the focus to the entry.
    void SetFocus();
    /// \param height the maximum height of the whole frame, in pixels.
    void SetMaxHeight(int height);
    /// \brief Make \a window the parent and owner of the Caps Lock tip; null makes it this frame.
    void SetParentWindow(QWidget *window);
    /// \brief Show the password, or hide it.
    void SetPassWordState(bool is_visible);
    /// \brief Put \a text in place of the password; nothing can be undone.
    void SetPasswordText(const QString &text);
    /// \brief Set the icon.
    void SetPixmap(QPixmap &pixmap);
    /// \brief Check that there is a password. If it is empty, give the entry the focus and show
    /// \a tip, which is not changed.
    bool PasswordValidCheck(QString &tip);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The password was changed to \a text, by the user or by SetPasswordText().
    void SignalLienEditTextChanged(const QString &text);
    /// The entry lost the focus.
    void SignalFousOut(const QString &text);

protected:
    /// \param edit becomes a child of the frame.
    CPasswordFrameBase(Ravel::CPasswordLineEdit *edit, QWidget *parent);

    /// \brief Remove the space before the icon.
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
    void WatchPlace();
    void SetFocusLook(bool has_focus);
    void CheckCapsLock();
    void CheckCapsLockKey(const QKeyEvent &event);
    [[nodiscard]] QPoint TipPlace() const;

    const std::unique_ptr<CPasswordFrameBaseDataPtr> d_ptr_;
};

} // namespace Vantor
