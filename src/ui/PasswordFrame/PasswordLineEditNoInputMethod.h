// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/PasswordLineEdit.h>
#include <VantorExport.h>

namespace Vantor {

/// \brief The entry of a password that gives away nothing while it is hidden: the keys of copy and
/// cut do nothing then.
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
