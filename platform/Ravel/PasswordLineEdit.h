// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/LineEdit.h>

namespace Ravel {

/// \brief The client's entry of a password: hidden at first, and always told apart from ordinary
/// text to input methods, which then neither predict nor remember.
class VANTOR_PLATFORM_EXPORT CPasswordLineEdit : public CLineEdit
{
    Q_OBJECT

public:
    explicit CPasswordLineEdit(QWidget *parent = nullptr);
    ~CPasswordLineEdit() override;

    /// \brief Show what is typed, or hide it. (QLineEdit::setEchoMode() would give it to the input
    /// method.)
    void SetPasswordVisible(bool is_visible);
    [[nodiscard]] bool IsPasswordVisible() const;
};

} // namespace Ravel
