// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PasswordFrame/PasswordFrameBase.h"

namespace Vantor {

/// \brief The password entry of login pages; see CPasswordFrameBase for what it does.
class VANTOR_EXPORT CPasswordFrame : public CPasswordFrameBase
{
    Q_OBJECT

public:
    explicit CPasswordFrame(QWidget *parent = nullptr);
    ~CPasswordFrame() override;

    [[nodiscard]] Ravel::CPasswordLineEdit *GetPassWordLineEdit() const;

    /// \brief Give up the room before the icon; false does nothing.
    void HideLeftSpacer(bool hide);
};

} // namespace Vantor
