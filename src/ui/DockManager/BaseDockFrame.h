// SPDX-License-Identifier: MIT
#pragma once

#include "ui/DockManager/AbstractDockFrame.h"

QT_BEGIN_NAMESPACE
class QScrollArea;
QT_END_NAMESPACE

namespace Vantor {

struct CBaseDockFramePtr;

/// \brief A panel with a title, a content that scrolls, and buttons that confirm, cancel and reset.
///
/// The buttons only emit signals; the host acts and slides the dock out. Enter in a field of the
/// content confirms too. Tab visits the content first, then the buttons. Object names for style
/// sheets are listed in docs/styling.md. GUI thread only.
class VANTOR_EXPORT CBaseDockFrame : public CAbstractDockFrame
{
    Q_OBJECT
    // Only the host changes these.
    Q_PROPERTY(QString titleText READ GetTitleText WRITE SetTitleText)
    Q_PROPERTY(QString saveBtnText READ GetSaveBtnText WRITE SetSaveBtnText)
    Q_PROPERTY(bool saveEnabled READ IsSaveEnabled WRITE SetSaveEnabeld)
    Q_PROPERTY(bool bottomFrameVisible READ IsBottomFrameVisible WRITE SetBottomFrameVisible)
    Q_PROPERTY(bool resetButtonVisible READ IsResetButtonVisible WRITE SetResetButtonVisible)
    Q_PROPERTY(bool cancelButtonVisible READ IsCancelButtonVisible WRITE SetCancelButtonVisible)
    Q_PROPERTY(bool hideEmit READ IsHideEmit WRITE SetHideEmit)

public:
    /// \param parent of the frame whenever no dock shows it; it owns the frame.
    explicit CBaseDockFrame(QWidget *parent = nullptr);
    ~CBaseDockFrame() override;

    /// \brief The text at the top, as plain text; also what screen readers call the panel.
    void SetTitleText(const QString &title);

    /// \brief Show \a content, which the frame owns from now on; null removes the content.
    ///
    /// A content that was there stays a hidden child of the frame: reparent or delete it yourself.
    void SetContentWnd(QWidget *content);

    void SetBottomFrameVisible(bool visible);  ///< The row of buttons; shown by default.
    void SetResetButtonVisible(bool visible);  ///< Shown by default.
    void SetCancelButtonVisible(bool visible); ///< Shown by default.
    /// \brief The text of the confirming button; an empty one is "Confirm" in the user's language.
    void SetSaveBtnText(const QString &text);
    /// \brief Whether the user can confirm.
    void SetSaveEnabeld(bool enabled);
    /// \brief Whether signalCancel() is emitted when the dock lets the frame go; off by default.
    void SetHideEmit(bool emits);

    [[nodiscard]] QString GetTitleText() const;       ///< See SetTitleText().
    [[nodiscard]] QString GetSaveBtnText() const;     ///< As it was set; empty at first.
    [[nodiscard]] bool IsSaveEnabled() const;         ///< See SetSaveEnabeld().
    [[nodiscard]] bool IsBottomFrameVisible() const;  ///< As it was set, also before showing.
    [[nodiscard]] bool IsResetButtonVisible() const;  ///< As it was set, also before showing.
    [[nodiscard]] bool IsCancelButtonVisible() const; ///< As it was set, also before showing.
    [[nodiscard]] bool IsHideEmit() const;            ///< See SetHideEmit().

    [[nodiscard]] QWidget *GetSetUpUiWidget() const;  ///< Carries title, content and buttons.
    [[nodiscard]] QFrame *GetTitleFrame() const;      ///< Carries the title.
    [[nodiscard]] QScrollArea *GetScrollArea() const; ///< Carries the content.
    [[nodiscard]] QWidget *GetButtonWidget() const;   ///< The row of buttons.

    /// \brief Emits signalCancel() if SetHideEmit() is on.
    void OnDockHide() override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void signalConfirm(); ///< The save button was clicked, or Enter was pressed in a field.
    void signalCancel();  ///< The cancel button was clicked; see also SetHideEmit().
    void signalReset();   ///< The reset button was clicked.

protected:
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void BuildTitle();
    void BuildButtons();
    void Retranslate();

    const std::unique_ptr<CBaseDockFramePtr> d_ptr_;
};

} // namespace Vantor
