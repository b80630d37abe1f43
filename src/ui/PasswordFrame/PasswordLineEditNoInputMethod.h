// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/PasswordLineEdit.h>
#include <VantorExport.h>

namespace Vantor {

/// \brief A password entry in which the keys of copy and cut do nothing while the password is
/// hidden.
class VANTOR_EXPORT CPasswordLineEditNoInputMethod : public Ravel::CPasswordLineEdit
{
    Q_OBJECT

public:
    explicit CPasswordLineEditNoInputMethod(QWidget *parent = nullptr);
    ~CPasswordLineEditNoInputMethod() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace Vantor
