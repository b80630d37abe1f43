// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PasswordFrame/PasswordFrameBase.h"

namespace Vantor {

/// \brief The password entry of login pages. See CPasswordFrameBase.
class VANTOR_EXPORT CPasswordFrame : public CPasswordFrameBase
{
    Q_OBJECT

public:
    explicit CPasswordFrame(QWidget *parent = nullptr);
    ~CPasswordFrame() override;

    /// \brief The entry, a child of the frame.
    [[nodiscard]] Ravel::CPasswordLineEdit *GetPassWordLineEdit() const;

    /// \brief If \a hide is true, remove the space before the icon. False does nothing.
    void HideLeftSpacer(bool hide);
};

} // namespace Vantor
