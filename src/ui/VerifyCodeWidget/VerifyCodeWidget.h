// SPDX-License-Identifier: MIT
#pragma once

#include "controller/SecondAuthentication/StruVerifyCode.h"

#include <VantorExport.h>

#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

struct CVerifyCodeWidgetDataPtr;

/// \brief Shows a verification code and takes what the user reads in it. A click on the image asks
/// for another one, as does the standard key for it (F5) in the entry.
///
/// The object names of its children are listed in docs/styling.md. The frame around entry and image
/// is "ptr_back_frame", and "ptr_back_frame_enter" while the entry has the focus or the pointer is
/// over the frame; so it is not to be looked up by name.
class VANTOR_EXPORT CVerifyCodeWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CVerifyCodeWidget(QWidget *parent = nullptr);
    ~CVerifyCodeWidget() override;

    /// \brief Keep a copy of \a code and show its image, stretched to the size that the label has
    /// now.
    void SetVerifyCode(const CStruVerifyCode &code);
    /// \brief The code that was set, with what is typed now.
    [[nodiscard]] CStruVerifyCode GetVerifyCode() const;
    [[nodiscard]] bool IsCodeTextEmpty() const;
    void ClearEdit();
    void SetEditFocus();
    /// \brief The room around everything, in pixels.
    void SetMargins(int left, int top, int right, int bottom);
    /// \brief Show entry and image only, without the row above them.
    void HideLabel();

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

Q_SIGNALS:
    /// The user wants another image: the host requests one and calls SetVerifyCode().
    void SignalRefreshVerifyCode();

protected:
    void changeEvent(QEvent *event) override;

private:
    [[nodiscard]] QString GetCodeText() const;
    void Retranslate();

    const std::unique_ptr<CVerifyCodeWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
