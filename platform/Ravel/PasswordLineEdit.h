// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/LineEdit.h>

namespace Ravel {

/// \brief The client's password entry. It is hidden at first, and always marked as sensitive for
/// input methods, which then neither predict nor remember the text.
class VANTOR_PLATFORM_EXPORT CPasswordLineEdit : public CLineEdit
{
    Q_OBJECT

public:
    explicit CPasswordLineEdit(QWidget *parent = nullptr);
    ~CPasswordLineEdit() override;

    /// \brief Show or hide the text. (QLineEdit::setEchoMode() would pass visible text to the input
    /// method.)
    void SetPasswordVisible(bool is_visible);
    /// \brief Whether the text can be read on the screen; false at first.
    [[nodiscard]] bool IsPasswordVisible() const;
};

} // namespace Ravel
