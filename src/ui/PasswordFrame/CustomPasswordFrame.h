// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PasswordFrame/PasswordFrameBase.h"

namespace Vantor {

class CPasswordLineEditNoInputMethod;

/// \brief A password entry whose text cannot be copied or cut while it is hidden. See
/// CPasswordFrameBase.
class VANTOR_EXPORT CCustomPasswordFrame : public CPasswordFrameBase
{
    Q_OBJECT

public:
    explicit CCustomPasswordFrame(QWidget *parent = nullptr);
    ~CCustomPasswordFrame() override;

    /// \brief The entry, a child of the frame.
    [[nodiscard]] CPasswordLineEditNoInputMethod *GetPassWordLineEdit() const;
};

} // namespace Vantor
