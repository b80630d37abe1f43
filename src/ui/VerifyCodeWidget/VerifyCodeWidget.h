// SPDX-License-Identifier: MIT
#pragma once

#include "controller/SecondAuthentication/StruVerifyCode.h"

#include <VantorExport.h>

#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

struct CVerifyCodeWidgetDataPtr;

/// \brief Shows the image of a verification code and an entry for its text. A click on the image
/// and the standard key for a refresh in the entry (F5) emit SignalRefreshVerifyCode().
///
/// docs/styling.md lists the object names of the children. The name of the frame around entry and
/// image changes between "ptr_back_frame" and "ptr_back_frame_enter", which it has while the entry
/// has the focus or the pointer is over the frame. Do not look it up by name.
class VANTOR_EXPORT CVerifyCodeWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CVerifyCodeWidget(QWidget *parent = nullptr);
    ~CVerifyCodeWidget() override;

    /// \brief Keep a copy of \a code and show its image, stretched to the current size of the image
    /// label. A null image shows nothing.
    void SetVerifyCode(const CStruVerifyCode &code);
    /// \brief A copy of the code from SetVerifyCode(), with the current text of the entry.
    [[nodiscard]] CStruVerifyCode GetVerifyCode() const;
    /// \brief Whether the entry is empty.
    [[nodiscard]] bool IsCodeTextEmpty() const;
    /// \brief Empty the entry; the image stays.
    void ClearEdit();
    /// \brief Give the focus to the entry.
    void SetEditFocus();
    /// \brief Set the margins around the content, in pixels.
    void SetMargins(int left, int top, int right, int bottom);
    /// \brief Hide the row with the labels above entry and image.
    void HideLabel();

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

Q_SIGNALS:
    /// The user wants another image. The host requests one and calls SetVerifyCode().
    void SignalRefreshVerifyCode();

protected:
    void changeEvent(QEvent *event) override;

private:
    void BuildLabels();
    void BuildEntry();
    void ShowEntered(bool is_entered);
    [[nodiscard]] QString GetCodeText() const;
    void Retranslate();

    const std::unique_ptr<CVerifyCodeWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
