// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QComboBox>

namespace Ravel {

/// \brief The client's base combo box ("Ravel--CComboBox" in a theme).
///
/// Its popup is a list on every platform, and the wheel turns it only while it has the focus: a
/// wheel that scrolls a page does not change what it passes over.
class VANTOR_PLATFORM_EXPORT CComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CComboBox(QWidget *parent = nullptr);
    ~CComboBox() override;

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace Ravel
